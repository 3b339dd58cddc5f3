// Internal: the connection the other ADO objects over SQLite reach their file through.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/ado.h"
#include "services/ado/database_file.h"

namespace nvwm::ado {

class SqliteConnection : public Connection {
 public:
  void CursorLocation(int32_t value) override;
  void Mode(int32_t value) override;
  void Open(const std::string& connectionString, const std::string& userId,
            const std::string& password, int32_t options) override;
  void Close() override;

  // The open file. Raises 3709 when the connection isn't open.
  std::shared_ptr<DatabaseFile> file() const;
  // A connection already open on a file (what Catalog.Create leaves behind).
  static std::shared_ptr<SqliteConnection> openOn(std::shared_ptr<DatabaseFile> file);

 private:
  int32_t cursorLocation_ = 2;  // adUseServer
  int32_t mode_ = 0;            // adModeUnknown: read and write
  std::shared_ptr<DatabaseFile> file_;
};

// The limits of a column are constraints of its table, named so that a failing row can be told
// apart: "size of <column>" (CHECK on the length), "zero length in <column>" (CHECK against "").
std::string sizeConstraintName(std::string_view column);
std::string zeroLengthConstraintName(std::string_view column);

// The file of a connection handed to a catalog or a recordset: it must be one of these and
// open (3709 otherwise).
std::shared_ptr<DatabaseFile> fileOf(const std::shared_ptr<Connection>& connection);

}  // namespace nvwm::ado
