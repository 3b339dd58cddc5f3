#include "services/folder_locale.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

#include "runtime/error.h"

namespace nvwm {
namespace {

constexpr const char* kProductFolder = "nvwordmerge6";

std::string homeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') return home;
  // No HOME (a service account, a bare container): ask the password database.
  long size = sysconf(_SC_GETPW_R_SIZE_MAX);
  std::vector<char> buffer(size > 0 ? static_cast<size_t>(size) : 16384);
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found &&
      found->pw_dir != nullptr && *found->pw_dir != '\0') {
    return found->pw_dir;
  }
  return {};
}

}  // namespace

std::string productDataFolder() {
  if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && data[0] == '/') {
    std::string folder = data;
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return (folder == "/" ? "" : folder) + "/" + kProductFolder;
  }
  std::string home = homeFolder();
  if (home.empty()) raise(ErrorNumber::kPathNotFound, "no home folder for the working folder");
  while (!home.empty() && home.back() == '/') home.pop_back();
  return home + "/.local/share/" + kProductFolder;
}

std::string XdgWorkingFolder::getWorkingFolder() {
  return folder_.empty() ? productDataFolder() : folder_;
}

}  // namespace nvwm
