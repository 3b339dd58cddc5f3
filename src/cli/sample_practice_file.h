// The built-in sample practice in a file of its own for the length of one run, for the commands
// that work on it when no --db is given.
#pragma once

#include <filesystem>
#include <string>

namespace nvwm::cli {

class SamplePracticeFile {
 public:
  // Writes a fresh sample practice under the system's temporary folder, named after the
  // command. Raises RuntimeError when it can't be written.
  explicit SamplePracticeFile(const std::string& command);
  // Removes the file (errors passed over).
  ~SamplePracticeFile();
  SamplePracticeFile(const SamplePracticeFile&) = delete;
  SamplePracticeFile& operator=(const SamplePracticeFile&) = delete;

  std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace nvwm::cli
