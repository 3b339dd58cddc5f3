#include "services/ado/ado_errors.h"
#include "services/ado/ado_objects.h"
#include "services/ado/sqlite_ado.h"

namespace nvwm::ado {

void SqliteConnection::CursorLocation(int32_t value) {
  if (file_) raise(AdoError::kObjectOpen, "CursorLocation");
  // adUseNone (1, obsolete), adUseServer (2), adUseClient (3).
  if (value < 1 || value > 3) raise(AdoError::kInvalidArgument, "CursorLocation");
  cursorLocation_ = value;
}

void SqliteConnection::Mode(int32_t value) {
  if (file_) raise(AdoError::kObjectOpen, "Mode");
  if (value < 0) raise(AdoError::kInvalidArgument, "Mode");
  mode_ = value;
}

void SqliteConnection::Open(const std::string& connectionString, const std::string& /*userId*/,
                            const std::string& /*password*/, int32_t /*options*/) {
  if (file_) raise(AdoError::kObjectOpen, "Open");
  ConnectionString parts = parseConnectionString(connectionString);
  // adModeRead (1) alone opens for reading; adModeWrite, adModeReadWrite and the share modes
  // read and write.
  const bool readOnly = (mode_ & 3) == 1;
  file_ = DatabaseFile::open(parts.dataSource, readOnly);
}

void SqliteConnection::Close() {
  if (!file_) raise(AdoError::kObjectClosed, "Close");
  file_.reset();
}

std::shared_ptr<DatabaseFile> SqliteConnection::file() const {
  if (!file_) raise(AdoError::kConnectionUnusable);
  return file_;
}

std::shared_ptr<SqliteConnection> SqliteConnection::openOn(std::shared_ptr<DatabaseFile> file) {
  auto connection = std::make_shared<SqliteConnection>();
  connection->file_ = std::move(file);
  return connection;
}

std::shared_ptr<DatabaseFile> fileOf(const std::shared_ptr<Connection>& connection) {
  auto own = std::dynamic_pointer_cast<SqliteConnection>(connection);
  if (!own) raise(AdoError::kConnectionUnusable, "not a connection to an SQLite file");
  return own->file();
}

std::shared_ptr<Connection> makeSqliteConnection() { return std::make_shared<SqliteConnection>(); }

}  // namespace nvwm::ado
