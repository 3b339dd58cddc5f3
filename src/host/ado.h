// Public: the ADO and ADOX objects the library drives to make the merge source database.
// Only the members the library calls. Every member may raise RuntimeError.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "runtime/variant.h"

namespace nvwm::ado {

inline const Variant kMissing = Variant::missing();

// ADOX column type codes used for the merge table. DO NOT CHANGE THESE VALUES: ADO's own.
enum class DataType : int32_t {
  kBoolean = 11,
  kDate = 7,
  kDouble = 5,
  kInteger = 3,
  kCurrency = 6,
  kVarWChar = 202,
  kLongVarWChar = 203,
};

class Connection : public Object {
 public:
  virtual void CursorLocation(int32_t value) = 0;
  virtual void Mode(int32_t value) = 0;
  virtual void Open(const std::string& connectionString, const std::string& userId = "",
                    const std::string& password = "", int32_t options = -1) = 0;
  virtual void Close() = 0;
};

class Field : public Object {
 public:
  virtual void Value(const Variant& value) = 0;
};

class Fields : public Object {
 public:
  virtual std::shared_ptr<Field> Item(const Variant& index) = 0;
};

class Recordset : public Object {
 public:
  virtual void ActiveConnection(std::shared_ptr<Connection> connection) = 0;
  virtual void Source(const std::string& sql) = 0;
  virtual void CursorType(int32_t value) = 0;
  virtual void LockType(int32_t value) = 0;
  virtual void Open(const Variant& Source = kMissing, const Variant& ActiveConnection = kMissing,
                    int32_t cursorType = -1, int32_t lockType = -1, int32_t options = -1) = 0;
  virtual void AddNew() = 0;
  virtual void Update() = 0;
  virtual void Close() = 0;
  virtual std::shared_ptr<ado::Fields> Fields() = 0;
};

class Property : public Object {
 public:
  virtual void Value(const Variant& value) = 0;
};

class Properties : public Object {
 public:
  virtual std::shared_ptr<Property> Item(const Variant& index) = 0;
};

class Column : public Object {
 public:
  virtual std::shared_ptr<ado::Properties> Properties() = 0;
};

class Columns : public Object {
 public:
  virtual void Append(const std::string& name, int32_t type, int32_t definedSize) = 0;
  virtual std::shared_ptr<Column> Item(const Variant& index) = 0;
};

class Catalog;

class Table : public Object {
 public:
  virtual void Name(const std::string& value) = 0;
  virtual void ParentCatalog(std::shared_ptr<Catalog> catalog) = 0;
  virtual std::shared_ptr<ado::Columns> Columns() = 0;
};

class Tables : public Object {
 public:
  virtual void Append(std::shared_ptr<Table> table) = 0;
  virtual void Refresh() = 0;
};

class Catalog : public Object {
 public:
  // Creates a new database file from a connection string; raises when the file exists.
  virtual void Create(const std::string& connectionString) = 0;
  virtual void ActiveConnection(std::shared_ptr<Connection> connection) = 0;
  virtual std::shared_ptr<ado::Tables> Tables() = 0;
};

}  // namespace nvwm::ado
