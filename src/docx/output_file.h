// Internal: a file written whole or not at all: the bytes go to a temporary file in the
// target's folder, which replaces the target only at commit. The file gets the mode a new file
// gets under the process's umask (0644 under 022), not mkstemp's 0600.
#pragma once

#include <string>

namespace nvwm::docx {

class OutputFile {
 public:
  // Raises 76 when the folder does not exist, 70 when the temporary file can't be made.
  explicit OutputFile(std::string path);
  // Removes the temporary file unless committed.
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  int fd() const { return fd_; }
  // Closes the file and renames it over the target. Raises 70.
  void commit();
  // Raises 70 with the reason, after removing the temporary file.
  [[noreturn]] void fail(const std::string& why);

 private:
  std::string path_;
  std::string tempPath_;
  int fd_ = -1;
};

// The mode bits the process's umask clears (from /proc/self/status; read without changing it).
unsigned processUmask();

}  // namespace nvwm::docx
