// "sql --db FILE SQL": runs one Jet SQL query through the database service, as the library
// would, on a read-only recordset (a statement that would change the database is refused), and
// prints the rows: a header line of column names, then one line per row, fields
// separated by tabs. Null prints as nothing, dates in the stored form (YYYY-MM-DD HH:MM:SS),
// other values as the runtime writes them; a tab, a line break or a backslash inside a value
// is written \t, \n, \r or \\ so that every row stays one line.
#include <iostream>

#include "cli/commands.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "services/sqlite/sqlite_database.h"
#include "services/sqlite/stored_value.h"

namespace nvwm::cli {
namespace {

std::string cellText(const Variant& v) {
  if (v.isNull() || v.isEmpty()) return "";
  return oneLine(v.isDate() ? sqlite::dateToStoredText(v.dateValue()) : CStr(v));
}

int runSql(const std::string& path, const std::string& sql) {
  SqliteDatabase db(path);
  if (!db.isConnected()) {
    std::cerr << "nvwordmerge sql: " << path << " is not a practice database that can be read\n";
    return 1;
  }
  try {
    Handle h = db.openRecordset(sql, kCursorKeyset, kLockReadOnly, true, "", true);
    std::vector<std::string> names = db.fieldNames(h);
    for (size_t i = 0; i < names.size(); ++i) std::cout << (i ? "\t" : "") << names[i];
    std::cout << "\n";
    for (; !db.isEOF(h); db.moveNext(h)) {
      for (size_t i = 0; i < names.size(); ++i) {
        std::cout << (i ? "\t" : "") << cellText(db.getField(h, Variant(static_cast<int32_t>(i))));
      }
      std::cout << "\n";
    }
    return 0;
  } catch (const RuntimeError& e) {
    std::cerr << "nvwordmerge sql: " << e.description() << "\n";
    return 1;
  }
}

}  // namespace

void registerSql(CLI::App& app) {
  auto* cmd = app.add_subcommand(
      "sql", "Runs one SQL text on a practice database and prints the rows, tab-separated");
  auto path = std::make_shared<std::string>();
  auto sql = std::make_shared<std::string>();
  cmd->add_option("--db", *path, "The practice database file")->required();
  cmd->add_option("sql", *sql, "The SQL text, as the library would send it")->required();
  cmd->callback([path, sql] { setExitCode(runSql(*path, *sql)); });
}

}  // namespace nvwm::cli
