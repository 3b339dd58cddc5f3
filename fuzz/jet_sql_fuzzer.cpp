// A Jet SQL text as the library sends it: the #date# translation, the one-statement check and
// the read-only check, prepared against the practice schema (never run: a statement is only
// compiled, so the fuzzer can't be made to wait on a query). Error 3001 or a statement.
#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "runtime/error.h"
#include "services/sqlite/practice_schema.h"
#include "services/sqlite/sql_text.h"
#include "services/sqlite/statement.h"

using namespace nvwm;
using namespace nvwm::sqlite;

namespace {

sqlite3* practiceSchema() {
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(":memory:", &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK ||
      sqlite3_exec(db, std::string(practiceSchemaSql()).c_str(), nullptr, nullptr, nullptr) !=
          SQLITE_OK)
    __builtin_trap();
  return db;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static sqlite3* const db = practiceSchema();
  std::string_view sql(reinterpret_cast<const char*>(data), size);
  (void)isBlankSql(sql);
  (void)selectShape(sql);
  try {
    Statement st;
    std::string text = prepareOne(db, sql, st);
    (void)selectShape(text);
    requireQuery(st.get(), sql);
  } catch (const RuntimeError&) {
  }
  return 0;
}
