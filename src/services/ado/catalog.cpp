// The ADOX side: a table is described (name, parent catalog, columns and their properties) and
// then made in one CREATE TABLE by Tables.Append.
#include <sqlite3.h>

#include <string>
#include <vector>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/text.h"
#include "services/ado/ado_errors.h"
#include "services/ado/ado_objects.h"
#include "services/ado/sqlite_ado.h"

namespace nvwm::ado {
namespace {

constexpr int32_t kLongestVarWChar = 255;
constexpr std::string_view kNullable = "Nullable";
constexpr std::string_view kAllowZeroLength = "Jet OLEDB:Allow Zero Length";

struct ColumnDef {
  std::string name;
  DataType type;
  int32_t size;
  bool nullable = false;         // ADOX's default for a new column
  bool allowZeroLength = false;  // Jet's default for a new text column
};

struct TableState {
  std::string name;
  std::shared_ptr<Catalog> parent;
  std::vector<std::shared_ptr<ColumnDef>> columns;
  bool made = false;
};

void requireNotMade(const TableState& table, const char* what) {
  if (table.made) {
    raise(AdoError::kInvalidArgument,
          std::string(what) + ": the table \"" + table.name + "\" is made already");
  }
}

bool isText(DataType type) {
  return type == DataType::kVarWChar || type == DataType::kLongVarWChar;
}

DataType dataTypeOf(int32_t type) {
  switch (static_cast<DataType>(type)) {
    case DataType::kBoolean:
    case DataType::kDate:
    case DataType::kDouble:
    case DataType::kInteger:
    case DataType::kCurrency:
    case DataType::kVarWChar:
    case DataType::kLongVarWChar:
      return static_cast<DataType>(type);
  }
  raise(AdoError::kInvalidArgument, "column type " + std::to_string(type) + " is not supported");
}

std::string declaredType(const ColumnDef& c) {
  switch (c.type) {
    case DataType::kVarWChar:
      return "VARCHAR(" + std::to_string(c.size) + ")";
    case DataType::kLongVarWChar:
      return "LONGTEXT";
    case DataType::kInteger:
      return "INTEGER";
    case DataType::kDouble:
      return "DOUBLE";
    case DataType::kCurrency:
      return "CURRENCY";
    case DataType::kDate:
      return "DATETIME";
    case DataType::kBoolean:
      return "BOOLEAN";
  }
  return "";
}

std::string columnDefinition(const ColumnDef& c) {
  const std::string name = quoteIdentifier(c.name);
  std::string sql = name + " " + declaredType(c);
  if (!c.nullable) sql += " NOT NULL";
  if (c.type == DataType::kVarWChar) {
    sql += " CONSTRAINT " + quoteIdentifier(sizeConstraintName(c.name)) + " CHECK (length(" + name +
           ") <= " + std::to_string(c.size) + ")";
  }
  if (isText(c.type) && !c.allowZeroLength) {
    sql += " CONSTRAINT " + quoteIdentifier(zeroLengthConstraintName(c.name)) + " CHECK (" + name +
           " <> '')";
  }
  return sql;
}

class SqliteProperty : public Property {
 public:
  SqliteProperty(std::shared_ptr<TableState> table, std::shared_ptr<ColumnDef> column,
                 bool ColumnDef::*flag)
      : table_(std::move(table)), column_(std::move(column)), flag_(flag) {}
  void Value(const Variant& value) override {
    requireNotMade(*table_, "Property.Value");
    (*column_).*flag_ = CBool(value);
  }

 private:
  std::shared_ptr<TableState> table_;
  std::shared_ptr<ColumnDef> column_;
  bool ColumnDef::*flag_;
};

class SqliteProperties : public Properties {
 public:
  SqliteProperties(std::shared_ptr<TableState> table, std::shared_ptr<ColumnDef> column)
      : table_(std::move(table)), column_(std::move(column)) {}
  std::shared_ptr<Property> Item(const Variant& index) override {
    // A column's properties come from the provider, which the table reaches through its
    // parent catalog.
    if (table_->parent && index.isString()) {
      const std::string& name = index.stringValue();
      if (equalsIgnoringAsciiCase(name, kNullable)) {
        return std::make_shared<SqliteProperty>(table_, column_, &ColumnDef::nullable);
      }
      if (equalsIgnoringAsciiCase(name, kAllowZeroLength) && isText(column_->type)) {
        return std::make_shared<SqliteProperty>(table_, column_, &ColumnDef::allowZeroLength);
      }
    }
    raise(AdoError::kItemNotFound,
          "property " + debugString(index) + " of \"" + column_->name + "\"");
  }

 private:
  std::shared_ptr<TableState> table_;
  std::shared_ptr<ColumnDef> column_;
};

class SqliteColumn : public Column {
 public:
  SqliteColumn(std::shared_ptr<TableState> table, std::shared_ptr<ColumnDef> column)
      : table_(std::move(table)), column_(std::move(column)) {}
  std::shared_ptr<ado::Properties> Properties() override {
    return std::make_shared<SqliteProperties>(table_, column_);
  }

 private:
  std::shared_ptr<TableState> table_;
  std::shared_ptr<ColumnDef> column_;
};

class SqliteColumns : public Columns {
 public:
  explicit SqliteColumns(std::shared_ptr<TableState> table) : table_(std::move(table)) {}

  void Append(const std::string& name, int32_t type, int32_t definedSize) override {
    requireNotMade(*table_, "Columns.Append");
    if (name.empty()) raise(AdoError::kInvalidArgument, "a column needs a name");
    if (find(name)) raise(AdoError::kFieldDefinedTwice, "\"" + name + "\"");
    auto column = std::make_shared<ColumnDef>();
    column->name = name;
    column->type = dataTypeOf(type);
    column->size = definedSize;
    if (column->type == DataType::kVarWChar) {
      // Size 0 is ADOX's default and means the longest.
      if (definedSize == 0) column->size = kLongestVarWChar;
      if (column->size < 1 || column->size > kLongestVarWChar) {
        raise(AdoError::kInvalidArgument,
              "defined size " + std::to_string(definedSize) + " of \"" + name + "\"");
      }
    }
    table_->columns.push_back(std::move(column));
  }

  std::shared_ptr<Column> Item(const Variant& index) override {
    std::shared_ptr<ColumnDef> column;
    if (index.isString()) {
      column = find(index.stringValue());
    } else if (index.isNumber()) {
      const int32_t i = CLng(index);
      if (i >= 0 && i < static_cast<int32_t>(table_->columns.size())) column = table_->columns[i];
    }
    if (!column) raise(AdoError::kItemNotFound, "column " + debugString(index));
    return std::make_shared<SqliteColumn>(table_, column);
  }

 private:
  std::shared_ptr<ColumnDef> find(const std::string& name) const {
    const std::string folded = foldCase(name);
    for (const auto& c : table_->columns) {
      if (foldCase(c->name) == folded) return c;
    }
    return nullptr;
  }

  std::shared_ptr<TableState> table_;
};

class SqliteTable : public Table {
 public:
  void Name(const std::string& value) override {
    requireNotMade(*state_, "Table.Name");
    state_->name = value;
  }
  void ParentCatalog(std::shared_ptr<Catalog> catalog) override { state_->parent = catalog; }
  std::shared_ptr<ado::Columns> Columns() override {
    return std::make_shared<SqliteColumns>(state_);
  }

  const std::shared_ptr<TableState>& state() const { return state_; }

 private:
  std::shared_ptr<TableState> state_ = std::make_shared<TableState>();
};

class SqliteCatalog;

class SqliteTables : public Tables {
 public:
  explicit SqliteTables(std::shared_ptr<DatabaseFile> file) : file_(std::move(file)) {}

  void Append(std::shared_ptr<Table> table) override {
    auto own = std::dynamic_pointer_cast<SqliteTable>(table);
    if (!own) raise(AdoError::kInvalidArgument, "not a table of this catalog");
    TableState& state = *own->state();
    if (state.name.empty()) raise(AdoError::kInvalidArgument, "a table needs a name");
    requireNotMade(state, "Tables.Append");
    if (exists(state.name)) raise(AdoError::kTableExists, "\"" + state.name + "\"");
    std::string sql = "CREATE TABLE " + quoteIdentifier(state.name) + " (";
    if (state.columns.empty()) {
      sql += "rowid INTEGER PRIMARY KEY";
    } else {
      for (size_t i = 0; i < state.columns.size(); ++i) {
        if (i > 0) sql += ", ";
        sql += columnDefinition(*state.columns[i]);
      }
    }
    sql += ");";
    file_->execute(sql);
    state.made = true;
  }

  // The tables are read from the file at each Append: nothing is kept to refresh.
  void Refresh() override {}

 private:
  bool exists(const std::string& name) {
    Statement s = file_->prepare(
        "SELECT 1 FROM sqlite_master WHERE type IN ('table', 'view') AND name = ?1 COLLATE "
        "NOCASE;");
    sqlite3_bind_text(s.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_TRANSIENT);
    return sqlite3_step(s.get()) == SQLITE_ROW;
  }

  std::shared_ptr<DatabaseFile> file_;
};

class SqliteCatalog : public Catalog {
 public:
  void Create(const std::string& connectionString) override {
    ConnectionString parts = parseConnectionString(connectionString);
    if (!parts.databasePassword.empty()) {
      raise(AdoError::kNotValidPassword, "an SQLite merge source keeps no password");
    }
    DatabaseFile::create(parts.dataSource);
    // ADOX leaves the catalog connected to the new database.
    file_ = DatabaseFile::open(parts.dataSource, false);
  }

  void ActiveConnection(std::shared_ptr<Connection> connection) override {
    file_ = fileOf(connection);
  }

  std::shared_ptr<ado::Tables> Tables() override {
    if (!file_) raise(AdoError::kConnectionUnusable, "the catalog has no active connection");
    return std::make_shared<SqliteTables>(file_);
  }

 private:
  std::shared_ptr<DatabaseFile> file_;
};

}  // namespace

std::string sizeConstraintName(std::string_view column) { return "size of " + std::string(column); }

std::string zeroLengthConstraintName(std::string_view column) {
  return "zero length in " + std::string(column);
}

std::shared_ptr<Catalog> makeSqliteCatalog() { return std::make_shared<SqliteCatalog>(); }
std::shared_ptr<Table> makeSqliteTable() { return std::make_shared<SqliteTable>(); }

}  // namespace nvwm::ado
