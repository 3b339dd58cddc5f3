// A temporary folder per test, for the tests of every layer.
#pragma once

#include <filesystem>
#include <string>

namespace nvwm::testing {

// A folder under the system's temporary folder, removed with everything in it at the end.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  const std::filesystem::path& path() const { return path_; }
  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace nvwm::testing
