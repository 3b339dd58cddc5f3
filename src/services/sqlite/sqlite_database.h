// Public: the practice database service on an SQLite file.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/database_service.h"

struct sqlite3;

namespace nvwm {

namespace sqlite {
struct Recordset;
}

// DatabaseService over one SQLite practice database (the schema of data/schema.sql).
//
// - SQL: the library's Jet SQL as it stands; #date# literals become the stored date text. One
//   statement per call: an empty text or a second statement raises 3001.
// - Recordsets are snapshots taken at openRecordset, held behind handles that count up from 1
//   and are never reused while the service lives.
// - Values come back typed by the column's declared type (Boolean, Date, Long, Integer,
//   Single, Double, Currency, String, Null); values written as text are stored in the
//   column's one form (see services/sqlite/stored_value.h).
// - Column names: the AS name, else the table's column name; a name that occurs more than once
//   in a result is "Table.Column" for every occurrence and the bare name is not found. Names
//   are matched without regard to case.
// - Lock type 3 writes through to the table at setField and updateRecord; lock type 1 raises
//   on every write. A recordset that reads several tables writes each column to its own table.
//
// Every failure raises RuntimeError 3001 (kDatabaseError) carrying SQLite's own message where
// there is one, except a value a column can't hold (13). Not thread-safe: one thread at a time.
class SqliteDatabase : public DatabaseService {
 public:
  // Opens an existing database file; never creates one. A missing file, a file that isn't an
  // SQLite database or can't be read leaves the service unconnected: isConnected is False and
  // every recordset operation raises 3001. A read-only file opens for reading; writes raise.
  // readOnly opens the file for reading only, as if it were a read-only file.
  explicit SqliteDatabase(const std::string& path, bool readOnly = false);
  ~SqliteDatabase() override;
  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;

  int32_t getRecordCount(Handle h) override;
  bool isEmptyRecordset(Handle h) override;
  bool isRecordsetOpen(Handle h) override;
  bool isEOF(Handle h) override;
  bool isConnected() override;
  Handle openRecordset(const std::string& sql, int32_t cursorType, int32_t lockType,
                       bool option1 = true, const std::string& option2 = "",
                       bool option3 = true) override;
  void closeRecordset(Handle h) override;
  // 1 for the first row; -3 past the last row.
  int32_t getRecordPosition(Handle h) override;
  // 0 when the position names a row of the recordset (which becomes current); 1 otherwise,
  // leaving the current row as it was.
  int32_t setRecordPosition(Handle h, int32_t position) override;
  bool hasRecords(Handle h) override;
  // Raises 3001 when already past the last row.
  void moveNext(Handle h) override;
  // A number as the field name is the column's ordinal (from 0).
  Variant getField(Handle h, const Variant& fieldName) override;
  void setField(Handle h, const std::string& fieldName, const std::string& value,
                const std::string& option1 = "", bool option2 = false) override;
  // Needs a recordset of one table. The new row shows the table's defaults and, for an
  // AutoNumber table, its key, reserved at once (an abandoned new row burns its number).
  void addNewRecord(Handle h) override;
  // Refuses the AutoNumber column. Outside addNewRecord it writes to the current row.
  void setNewField(Handle h, const std::string& fieldName, const Variant& value) override;
  // Inserts the new row (which stays current, with the values the table stored); without a
  // new row there is nothing to write, since setField writes through at once.
  void updateRecord(Handle h) override;
  // The value is compared in the column's kind ("12" finds 12; text without regard to case).
  // The first search of a column builds an index of it; later searches don't scan.
  bool findRecord(Handle h, const std::string& fieldName, const Variant& value) override;
  // ADO filter grammar: `Field op Value` clauses (op = < > <= >= <> = LIKE) joined by AND / OR
  // with parentheses; 'text' with '' for a quote, #date#, numbers with an optional $, True,
  // False, Null (= Null and <> Null test for Null), [Field Name]; LIKE takes * or %.
  // A bad filter raises 3001. The new recordset has the base's columns, lock type and order.
  Handle filterRecordset(Handle h, const std::string& filter) override;
  std::string getSQLDateString(const Date& date) override;

  // --- Beyond the host contract: for the tools (sample-db, sql) and the tests. ---

  // Runs SQL text as it is, several statements allowed, no rows kept. Raises 3001.
  void execute(const std::string& sql);
  // The names getField takes, in column order.
  std::vector<std::string> fieldNames(Handle h);
  const std::string& path() const { return path_; }

 private:
  sqlite::Recordset& recordset(Handle h);
  sqlite::Recordset& writableRecordset(Handle h, const char* operation);
  Handle keep(std::unique_ptr<sqlite::Recordset> rs);
  void requireConnection() const;

  std::string path_;
  sqlite3* db_ = nullptr;
  bool connected_ = false;
  Handle nextHandle_ = 1;
  std::unordered_map<Handle, std::unique_ptr<sqlite::Recordset>> open_;
};

}  // namespace nvwm
