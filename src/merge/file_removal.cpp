#include "merge/file_removal.h"

#include <filesystem>

#include "runtime/error.h"

namespace nvwm::merge {

void deleteFile(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code ec;
  const fs::file_status status = fs::symlink_status(path, ec);
  if (ec || !fs::exists(status) || fs::is_directory(status)) {
    raise(ErrorNumber::kFileNotFound, path);
  }
  if (!fs::remove(path, ec) || ec) {
    raise(ErrorNumber::kPermissionDenied, path + (ec ? ": " + ec.message() : std::string()));
  }
}

}  // namespace nvwm::merge
