// The data source of a mail merge.
//
// Typed values from SQLite follow the declared type of the column, as the practice database
// declares them: DATE/TIME types give a Date (text as 'YYYY-MM-DD HH:MM:SS' or any form CDate
// reads; text that is no date stays text), BOOL types (and Jet's BIT, YESNO) a Boolean, INT
// types a Long (a Double beyond its range), REAL/FLOAT/DOUBLE/NUMERIC/CURRENCY a Double;
// otherwise the stored class decides. NULL is Null. CSV values are all text.
//
// Malformed input:
//   - CSV follows RFC 4180: comma separated, fields in double quotes may hold commas, line
//     breaks and "" for a quote; CRLF or LF ends a record; a UTF-8 byte order mark is skipped;
//     a blank line is ignored (a line of "" is a record of one empty value); a short row is filled
//     with empty values; a row longer than the header is refused (it means the quoting is wrong).
//   - Text that is not valid UTF-8, in CSV or in SQLite, is refused with the row it is on, so
//     that no invalid text reaches a document.
#include "docx/data_source.h"

#include <sqlite3.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <sstream>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace nvwm::docx {
namespace {

bool looksLikeSqlite(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  char magic[16] = {};
  in.read(magic, sizeof magic);
  return in.gcount() == 16 &&
         std::string_view(magic, 16) == std::string_view("SQLite format 3\0", 16);
}

struct SqliteCloser {
  void operator()(sqlite3* db) const { sqlite3_close(db); }
};
struct StmtFinalizer {
  void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
};

[[noreturn]] void sourceError(const std::string& path, const std::string& why) {
  raise(ErrorNumber::kDocumentError, "the data source '" + path + "' can't be used: " + why);
}

// The line (from 1) that holds text[offset]; CRLF, LF and a lone CR each end a line.
size_t lineOf(std::string_view text, size_t offset) {
  size_t line = 1;
  for (size_t i = 0; i < offset; ++i) {
    if (text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n')))
      ++line;
  }
  return line;
}

// The records of a CSV text as RFC 4180 reads them (see the top of this file); a blank line
// comes back as a record of one empty value.
std::vector<std::vector<std::string>> splitCsvRecords(const std::string& path,
                                                      std::string_view text) {
  std::vector<std::vector<std::string>> records;
  std::vector<std::string> record;
  std::string field;
  size_t line = 1;
  size_t i = 0;
  bool fieldStarted = false;
  auto endField = [&] {
    record.push_back(std::move(field));
    field.clear();
    fieldStarted = false;
  };
  // A line with nothing on it is no record; a line of "" is one, of one empty value.
  auto endRecord = [&] {
    if (record.empty() && !fieldStarted) return;
    endField();
    records.push_back(std::move(record));
    record.clear();
  };
  while (i < text.size()) {
    char c = text[i];
    if (c == '"' && !fieldStarted) {
      fieldStarted = true;
      size_t openedOn = line;
      ++i;
      for (;;) {
        if (i >= text.size()) {
          sourceError(path, "a quoted value opened on line " + std::to_string(openedOn) +
                                " is never closed");
        }
        if (text[i] == '"') {
          if (i + 1 < text.size() && text[i + 1] == '"') {
            field += '"';
            i += 2;
            continue;
          }
          ++i;
          break;
        }
        if (text[i] == '\n') ++line;
        field += text[i++];
      }
      continue;
    }
    if (c == ',') {
      endField();
      ++i;
      continue;
    }
    if (c == '\r' || c == '\n') {
      i += (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ? 2 : 1;
      endRecord();
      ++line;
      continue;
    }
    fieldStarted = true;
    field += c;
    ++i;
  }
  if (fieldStarted || !record.empty()) endRecord();
  return records;
}

// The first record names the columns; the others are the rows, all values text.
MergeData tableOfCsvRecords(const std::string& path,
                            std::vector<std::vector<std::string>> records) {
  if (records.empty()) sourceError(path, "it has no header row");
  std::vector<std::string> columns = std::move(records[0]);
  std::vector<std::vector<Variant>> rows;
  for (size_t r = 1; r < records.size(); ++r) {
    if (records[r].size() > columns.size()) {
      sourceError(path, "record " + std::to_string(r + 1) + " has " +
                            std::to_string(records[r].size()) + " values for " +
                            std::to_string(columns.size()) + " columns");
    }
    std::vector<Variant> row;
    row.reserve(columns.size());
    for (auto& f : records[r]) row.emplace_back(std::move(f));
    while (row.size() < columns.size()) row.emplace_back(std::string());
    rows.push_back(std::move(row));
  }
  return MergeData(std::move(columns), std::move(rows));
}

// SQLite's last failure on db, said as the user needs it: a file SQLite can't read as a
// database is damaged, whatever step found it.
[[noreturn]] void sqliteError(sqlite3* db, const std::string& path) {
  int code = sqlite3_errcode(db) & 0xff;
  std::string why = sqlite3_errmsg(db);
  if (code == SQLITE_CORRUPT || code == SQLITE_NOTADB) {
    sourceError(path, "the file is damaged (" + why + ")");
  }
  sourceError(path, why);
}

// Raises when SQLite's quick check finds the file damaged.
void requireIntact(sqlite3* db, const std::string& path) {
  sqlite3_stmt* s = nullptr;
  if (sqlite3_prepare_v2(db, "PRAGMA quick_check(1)", -1, &s, nullptr) != SQLITE_OK)
    sqliteError(db, path);
  std::unique_ptr<sqlite3_stmt, StmtFinalizer> stmt(s);
  int step = sqlite3_step(s);
  if (step != SQLITE_ROW) sqliteError(db, path);
  const unsigned char* verdict = sqlite3_column_text(s, 0);
  std::string text = verdict ? reinterpret_cast<const char*>(verdict) : "";
  // The check's own report spans lines and pages; the user needs the verdict.
  if (text != "ok")
    sourceError(path, std::string("the file is damaged (") + sqlite3_errstr(SQLITE_CORRUPT) + ")");
}

Variant typedValue(sqlite3_stmt* stmt, int col, const std::string& declared) {
  int storage = sqlite3_column_type(stmt, col);
  if (storage == SQLITE_NULL) return Variant::null();
  std::string type = toAsciiUpper(declared);
  auto text = [&] {
    const unsigned char* t = sqlite3_column_text(stmt, col);
    return std::string(reinterpret_cast<const char*>(t), sqlite3_column_bytes(stmt, col));
  };
  auto integer = [&](sqlite3_int64 v) -> Variant {
    if (v >= std::numeric_limits<int32_t>::min() && v <= std::numeric_limits<int32_t>::max()) {
      return static_cast<int32_t>(v);
    }
    return static_cast<double>(v);
  };
  if (type.find("DATE") != std::string::npos || type.find("TIME") != std::string::npos) {
    if (storage == SQLITE_TEXT) {
      std::string t = text();
      if (auto d = TryParseDate(t)) return *d;
      return t;
    }
    return Date(sqlite3_column_double(stmt, col));
  }
  if (type.find("BOOL") != std::string::npos || type == "BIT" || type == "YESNO") {
    if (storage == SQLITE_INTEGER || storage == SQLITE_FLOAT) {
      return sqlite3_column_double(stmt, col) != 0;
    }
    return text();
  }
  if (type.find("INT") != std::string::npos && storage == SQLITE_INTEGER) {
    return integer(sqlite3_column_int64(stmt, col));
  }
  switch (storage) {
    case SQLITE_INTEGER:
      return integer(sqlite3_column_int64(stmt, col));
    case SQLITE_FLOAT:
      return sqlite3_column_double(stmt, col);
    default:
      return text();
  }
}

}  // namespace

std::string tableOfConnection(std::string_view connection) {
  size_t pos = 0;
  while (pos < connection.size() && connection[pos] == ' ') ++pos;
  if (toAsciiUpper(connection.substr(pos, 6)) != "TABLE ") return {};
  std::string_view name = connection.substr(pos + 6);
  while (!name.empty() && name.front() == ' ') name.remove_prefix(1);
  while (!name.empty() && name.back() == ' ') name.remove_suffix(1);
  if (name.size() >= 2 &&
      ((name.front() == '`' && name.back() == '`') || (name.front() == '[' && name.back() == ']') ||
       (name.front() == '"' && name.back() == '"'))) {
    name = name.substr(1, name.size() - 2);
  }
  return std::string(name);
}

MergeData::MergeData(std::vector<std::string> columns, std::vector<std::vector<Variant>> rows)
    : columns_(std::move(columns)), rows_(std::move(rows)) {
  buildIndex();
}

void MergeData::buildIndex() {
  index_.clear();
  for (size_t i = 0; i < columns_.size(); ++i) index_.emplace(foldCase(columns_[i]), i);
}

std::optional<size_t> MergeData::column(std::string_view name) const {
  auto it = index_.find(foldCase(name));
  if (it == index_.end()) return std::nullopt;
  return it->second;
}

MergeData MergeData::load(const std::string& path, std::string_view connection,
                          std::string_view sqlStatement) {
  std::error_code ec;
  if (path.empty()) raise(ErrorNumber::kFileNotFound, "no data source was named");
  if (!std::filesystem::is_regular_file(path, ec)) {
    raise(ErrorNumber::kFileNotFound, "the data source '" + path + "' does not exist");
  }
  MergeData data =
      looksLikeSqlite(path) ? loadSqlite(path, connection, sqlStatement) : loadCsv(path);
  data.path_ = path;
  data.buildIndex();
  return data;
}

MergeData MergeData::loadSqlite(const std::string& path, std::string_view connection,
                                std::string_view sqlStatement) {
  sqlite3* raw = nullptr;
  int rc = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READONLY, nullptr);
  std::unique_ptr<sqlite3, SqliteCloser> db(raw);
  if (rc != SQLITE_OK) sourceError(path, sqlite3_errstr(rc));

  MergeData data;
  data.kind_ = DataSourceKind::kSqlite;
  std::string sql;
  if (!sqlStatement.empty()) {
    sql = std::string(sqlStatement);
  } else {
    std::string table = tableOfConnection(connection);
    if (table.empty() && !connection.empty()) {
      sourceError(path, "the connection \"" + std::string(connection) +
                            "\" does not name a table (expected \"TABLE name\")");
    }
    if (table.empty()) {
      sqlite3_stmt* s = nullptr;
      if (sqlite3_prepare_v2(db.get(),
                             "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE "
                             "'sqlite_%'",
                             -1, &s, nullptr) != SQLITE_OK)
        sqliteError(db.get(), path);
      std::unique_ptr<sqlite3_stmt, StmtFinalizer> stmt(s);
      std::vector<std::string> tables;
      int step;
      while ((step = sqlite3_step(s)) == SQLITE_ROW) {
        const unsigned char* name = sqlite3_column_text(s, 0);
        tables.emplace_back(name ? reinterpret_cast<const char*>(name) : "");
      }
      if (step != SQLITE_DONE) sqliteError(db.get(), path);
      if (tables.size() != 1) {
        // A damaged file may still list its tables: say what is wrong before asking for one.
        requireIntact(db.get(), path);
        sourceError(path, "name the table with \"TABLE name\"");
      }
      table = tables[0];
    }
    data.table_ = table;
    std::string quoted;
    for (char c : table) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    sql = "SELECT * FROM \"" + quoted + "\"";
  }
  sqlite3_stmt* s = nullptr;
  rc = sqlite3_prepare_v2(db.get(), sql.c_str(), -1, &s, nullptr);
  std::unique_ptr<sqlite3_stmt, StmtFinalizer> stmt(s);
  if (rc != SQLITE_OK) {
    std::string why = sqlite3_errmsg(db.get());
    if (why.find("no such table") != std::string::npos) {
      sourceError(path, "it has no table \"" + data.table_ + "\"");
    }
    sqliteError(db.get(), path);
  }
  int columns = sqlite3_column_count(s);
  std::vector<std::string> declared;
  for (int c = 0; c < columns; ++c) {
    const char* name = sqlite3_column_name(s, c);
    data.columns_.emplace_back(name ? name : "");
    const char* d = sqlite3_column_decltype(s, c);
    declared.emplace_back(d ? d : "");
  }
  while ((rc = sqlite3_step(s)) == SQLITE_ROW) {
    std::vector<Variant> row;
    row.reserve(columns);
    for (int c = 0; c < columns; ++c) {
      row.push_back(typedValue(s, c, declared[c]));
      if (row.back().isString() && !utf8::isValid(row.back().stringValue())) {
        sourceError(path, "row " + std::to_string(data.rows_.size() + 1) + ", column " +
                              data.columns_[c] + " is not UTF-8 text");
      }
    }
    data.rows_.push_back(std::move(row));
  }
  if (rc != SQLITE_DONE) sqliteError(db.get(), path);
  return data;
}

MergeData MergeData::loadCsv(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream buffer;
  buffer << in.rdbuf();
  return fromCsvText(std::move(buffer).str(), path);
}

MergeData MergeData::fromCsvText(std::string text, const std::string& path) {
  if (text.compare(0, 3, "\xEF\xBB\xBF") == 0) text.erase(0, 3);
  // Values are pieces of the text cut at ASCII bytes, so one look at the text checks them all.
  if (size_t bad = utf8::firstInvalid(text); bad != std::string::npos) {
    sourceError(path, "line " + std::to_string(lineOf(text, bad)) + " is not UTF-8 text");
  }
  MergeData data = tableOfCsvRecords(path, splitCsvRecords(path, text));
  data.path_ = path;
  return data;
}

}  // namespace nvwm::docx
