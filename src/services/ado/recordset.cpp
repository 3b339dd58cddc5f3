// The ADO recordset over SQLite, for writing rows: Open on a SELECT, then AddNew, Field.Value,
// Update. Rows are not read back through it; the merge engine reads the file itself.
#include <sqlite3.h>

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "runtime/convert.h"
#include "runtime/text.h"
#include "services/ado/ado_errors.h"
#include "services/ado/ado_objects.h"
#include "services/ado/sqlite_ado.h"
#include "services/sqlite/stored_value.h"

namespace nvwm::ado {
namespace {

using sqlite::ColumnKind;
using sqlite::StoredValue;

constexpr int32_t kUnspecified = -1;
constexpr int32_t kLockReadOnly = 1;
constexpr int32_t kLockBatchOptimistic = 4;
constexpr int32_t kOpenStatic = 3;

struct FieldInfo {
  std::string name;
  ColumnKind kind;
};

bool startsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

// Turns SQLite's word on a refused row into Jet's error for the column's limit.
[[noreturn]] void raiseWriteFailure(const DatabaseFile& file, const std::string& table) {
  const std::string message = sqlite3_errmsg(file.handle());
  constexpr std::string_view kCheck = "CHECK constraint failed: ";
  constexpr std::string_view kNotNull = "NOT NULL constraint failed: ";
  if (startsWith(message, kCheck)) {
    const std::string name = message.substr(kCheck.size());
    const std::string size = sizeConstraintName("");
    const std::string zero = zeroLengthConstraintName("");
    if (startsWith(name, size)) {
      raise(AdoError::kFieldTooSmall, "\"" + name.substr(size.size()) + "\" of \"" + table + "\"");
    }
    if (startsWith(name, zero)) {
      raise(AdoError::kZeroLength, "\"" + name.substr(zero.size()) + "\" of \"" + table + "\"");
    }
  }
  if (startsWith(message, kNotNull)) {
    // "table.column"
    std::string column = message.substr(kNotNull.size());
    if (startsWith(column, table + ".")) column = column.substr(table.size() + 1);
    raise(AdoError::kRequiredValue, "\"" + column + "\" of \"" + table + "\"");
  }
  file.fail("a row of \"" + table + "\" can't be written");
}

class SqliteRecordset : public Recordset, public std::enable_shared_from_this<SqliteRecordset> {
 public:
  ~SqliteRecordset() override {
    try {
      if (file_) Close();
    } catch (...) {
      // A recordset let go of while open closes quietly.
    }
  }

  void ActiveConnection(std::shared_ptr<Connection> connection) override {
    requireClosed("ActiveConnection");
    connection_ = std::move(connection);
  }
  void Source(const std::string& sql) override {
    requireClosed("Source");
    source_ = sql;
  }
  void CursorType(int32_t value) override {
    requireClosed("CursorType");
    if (value < kUnspecified || value > kOpenStatic)
      raise(AdoError::kInvalidArgument, "CursorType");
    cursorType_ = value;
  }
  void LockType(int32_t value) override {
    requireClosed("LockType");
    if (value < kUnspecified || value > kLockBatchOptimistic) {
      raise(AdoError::kInvalidArgument, "LockType");
    }
    lockType_ = value;
  }

  void Open(const Variant& source, const Variant& activeConnection, int32_t cursorType,
            int32_t lockType, int32_t /*options*/) override {
    requireClosed("Open");
    if (!source.isMissing()) source_ = CStr(source);
    if (!activeConnection.isMissing()) {
      auto connection = activeConnection.objectAs<Connection>();
      if (!connection) raise(AdoError::kConnectionUnusable, "ActiveConnection");
      connection_ = std::move(connection);
    }
    if (cursorType != kUnspecified) CursorType(cursorType);
    if (lockType != kUnspecified) LockType(lockType);
    std::shared_ptr<DatabaseFile> file = fileOf(connection_);
    Statement select = file->prepare(source_);
    const int count = sqlite3_column_count(select.get());
    if (count == 0) raise(AdoError::kInvalidArgument, "\"" + source_ + "\" gives no rows");
    fields_.clear();
    origins_.clear();
    fieldOfName_.clear();
    table_.clear();
    updatable_ = lockType_ != kLockReadOnly && lockType_ != kUnspecified;
    for (int i = 0; i < count; ++i) {
      const char* origin = sqlite3_column_origin_name(select.get(), i);
      const char* table = sqlite3_column_table_name(select.get(), i);
      // The one column of a table made without columns isn't a field.
      if (origin && std::string_view(origin) == "rowid") continue;
      if (!origin || !table || (!table_.empty() && table_ != table)) updatable_ = false;
      if (table && table_.empty()) table_ = table;
      fields_.push_back({sqlite3_column_name(select.get(), i),
                         sqlite::kindFromDeclaredType(sqlite3_column_decltype(select.get(), i))});
      origins_.push_back(origin ? origin : "");
      // The first of two fields of one name is the one found by name.
      fieldOfName_.emplace(foldCase(fields_.back().name), fields_.size() - 1);
    }
    file_ = std::move(file);
  }

  void AddNew() override {
    requireOpen("AddNew");
    if (!updatable_) raise(AdoError::kNotUpdatable, "\"" + source_ + "\"");
    // A row still pending is written first, as ADO does.
    if (pending_) Update();
    if (!writing_) {
      file_->beginWrites();
      writing_ = true;
    }
    pending_.emplace(fields_.size());
  }

  void Update() override {
    requireOpen("Update");
    if (!pending_) return;
    if (!insert_) prepareInsert();
    sqlite3_stmt* s = insert_.get();
    for (size_t i = 0; i < pending_->size(); ++i) {
      sqlite::bindStored(s, static_cast<int>(i) + 1, (*pending_)[i]);
    }
    const int rc = sqlite3_step(s);
    sqlite3_reset(s);
    sqlite3_clear_bindings(s);
    // A refused row is given up, so that the next AddNew starts afresh.
    pending_.reset();
    if (rc != SQLITE_DONE) raiseWriteFailure(*file_, table_);
  }

  void Close() override {
    requireOpen("Close");
    // A row still pending is given up, as CancelUpdate would.
    pending_.reset();
    insert_.reset();
    std::shared_ptr<DatabaseFile> file = std::move(file_);
    file_.reset();
    if (writing_) {
      writing_ = false;
      file->endWrites();
    }
  }

  std::shared_ptr<ado::Fields> Fields() override;

  // Field.Value: the value in its column's stored form, for the row being added.
  void setValue(size_t field, const Variant& value) {
    requireOpen("Field.Value");
    if (!pending_) raise(AdoError::kNoCurrentRecord);
    (*pending_)[field] = sqlite::toStored(fields_[field].kind, value);
  }

  // The field of a name (without regard to case) or an ordinal from 0.
  size_t fieldIndex(const Variant& index) const {
    if (index.isString()) {
      auto it = fieldOfName_.find(foldCase(index.stringValue()));
      if (it != fieldOfName_.end()) return it->second;
    } else if (index.isNumber()) {
      const int32_t i = CLng(index);
      if (i >= 0 && static_cast<size_t>(i) < fields_.size()) return static_cast<size_t>(i);
    }
    raise(AdoError::kItemNotFound, "field " + debugString(index));
  }

 private:
  void requireOpen(const char* what) const {
    if (!file_) raise(AdoError::kObjectClosed, what);
  }
  void requireClosed(const char* what) const {
    if (file_) raise(AdoError::kObjectOpen, what);
  }

  void prepareInsert() {
    std::string columns, values;
    for (size_t i = 0; i < origins_.size(); ++i) {
      if (i > 0) {
        columns += ", ";
        values += ", ";
      }
      columns += quoteIdentifier(origins_[i]);
      values += "?" + std::to_string(i + 1);
    }
    insert_ = file_->prepare("INSERT INTO " + quoteIdentifier(table_) + " (" + columns +
                             ") VALUES (" + values + ");");
  }

  std::shared_ptr<Connection> connection_;
  std::string source_;
  int32_t cursorType_ = 0;  // adOpenForwardOnly
  int32_t lockType_ = kLockReadOnly;

  std::shared_ptr<DatabaseFile> file_;  // set while open
  std::vector<FieldInfo> fields_;
  std::vector<std::string> origins_;                     // the table's column of each field
  std::unordered_map<std::string, size_t> fieldOfName_;  // folded name -> field
  std::string table_;
  bool updatable_ = false;
  bool writing_ = false;
  std::optional<std::vector<StoredValue>> pending_;
  Statement insert_;
};

class SqliteField : public Field {
 public:
  SqliteField(std::shared_ptr<SqliteRecordset> recordset, size_t index)
      : recordset_(std::move(recordset)), index_(index) {}
  void Value(const Variant& value) override { recordset_->setValue(index_, value); }

 private:
  std::shared_ptr<SqliteRecordset> recordset_;
  size_t index_;
};

class SqliteFields : public Fields {
 public:
  explicit SqliteFields(std::shared_ptr<SqliteRecordset> recordset)
      : recordset_(std::move(recordset)) {}
  std::shared_ptr<Field> Item(const Variant& index) override {
    return std::make_shared<SqliteField>(recordset_, recordset_->fieldIndex(index));
  }

 private:
  std::shared_ptr<SqliteRecordset> recordset_;
};

std::shared_ptr<ado::Fields> SqliteRecordset::Fields() {
  requireOpen("Fields");
  return std::make_shared<SqliteFields>(shared_from_this());
}

}  // namespace

std::shared_ptr<Recordset> makeSqliteRecordset() { return std::make_shared<SqliteRecordset>(); }

}  // namespace nvwm::ado
