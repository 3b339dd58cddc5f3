#include "docx/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <mutex>

#include "runtime/error.h"

namespace nvwm::docx {

namespace fs = std::filesystem;

unsigned processUmask() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.rfind("Umask:", 0) == 0)
      return static_cast<unsigned>(std::stoul(line.substr(6), nullptr, 8));
  }
  // Older kernels: set and restore, under a lock against our own threads.
  static std::mutex lock;
  std::lock_guard<std::mutex> guard(lock);
  mode_t mask = ::umask(022);
  ::umask(mask);
  return mask;
}

OutputFile::OutputFile(std::string path) : path_(std::move(path)) {
  fs::path target(path_);
  fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  std::error_code ec;
  if (!fs::is_directory(folder, ec)) {
    raise(ErrorNumber::kPathNotFound, "cannot save '" + path_ + "': the folder does not exist");
  }
  tempPath_ = (folder / ("." + target.filename().string() + ".XXXXXX")).string();
  fd_ = ::mkstemp(tempPath_.data());
  if (fd_ < 0) {
    raise(ErrorNumber::kPermissionDenied, "cannot save '" + path_ + "': " + std::strerror(errno));
  }
  if (::fchmod(fd_, 0666 & ~processUmask()) != 0) fail(std::strerror(errno));
}

OutputFile::~OutputFile() {
  if (fd_ >= 0) {
    ::close(fd_);
    ::unlink(tempPath_.c_str());
  }
}

void OutputFile::fail(const std::string& why) {
  if (fd_ >= 0) {
    ::close(fd_);
    fd_ = -1;
    ::unlink(tempPath_.c_str());
  }
  raise(ErrorNumber::kPermissionDenied, "cannot save '" + path_ + "': " + why);
}

void OutputFile::commit() {
  int fd = fd_;
  fd_ = -1;
  if (::close(fd) != 0) {
    ::unlink(tempPath_.c_str());
    raise(ErrorNumber::kPermissionDenied, "cannot save '" + path_ + "': " + std::strerror(errno));
  }
  if (::rename(tempPath_.c_str(), path_.c_str()) != 0) {
    int error = errno;
    ::unlink(tempPath_.c_str());
    raise(ErrorNumber::kPermissionDenied, "cannot save '" + path_ + "': " + std::strerror(error));
  }
}

}  // namespace nvwm::docx
