#include "services/file_utility.h"

#include <filesystem>
#include <system_error>
#include <unordered_set>

#include "runtime/error.h"
#include "services/text_fold.h"

namespace nvwm {
namespace {

namespace fs = std::filesystem;

// The path without trailing separators, keeping a lone root "/".
std::string_view trimTrailingSeparators(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  return path;
}

// Splits a file name into title and extension (with its dot). A leading dot is no extension.
std::pair<std::string, std::string> splitExtension(std::string_view name) {
  const size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return {std::string(name), std::string()};
  return {std::string(name.substr(0, dot)), std::string(name.substr(dot))};
}

}  // namespace

bool PosixFileUtility::folderExists(const std::string& folder) {
  if (folder.empty()) return false;
  std::error_code ec;
  return fs::is_directory(folder, ec);
}

bool PosixFileUtility::fileExists(const std::string& path) {
  if (path.empty()) return false;
  std::error_code ec;
  return fs::exists(fs::symlink_status(path, ec));
}

std::string PosixFileUtility::getFileTitle(const std::string& fileName) {
  // "x.db-journal" has the title "x" by the last-dot rule, so a journal shares its
  // database's title.
  std::string name = getFileNameOfPath(fileName);
  return splitExtension(name).first;
}

std::string PosixFileUtility::getFileNameOfPath(const std::string& path) {
  std::string_view p = trimTrailingSeparators(path);
  if (p == "/") return {};
  const size_t slash = p.rfind('/');
  return std::string(slash == std::string_view::npos ? p : p.substr(slash + 1));
}

std::string PosixFileUtility::getFolderOfPath(const std::string& path) {
  std::string_view p = trimTrailingSeparators(path);
  const size_t slash = p.rfind('/');
  if (slash == std::string_view::npos || p == "/") return {};
  if (slash == 0) return "/";
  return std::string(trimTrailingSeparators(p.substr(0, slash)));
}

std::string PosixFileUtility::makeUniqueFilePath(const std::string& path) {
  const std::string folder = getFolderOfPath(path);
  const auto [title, extension] = splitExtension(getFileNameOfPath(path));

  // Titles in use, folded; one pass over the folder instead of one probe per number.
  std::unordered_set<std::string> taken;
  std::error_code ec;
  for (fs::directory_iterator it(folder.empty() ? fs::path(".") : fs::path(folder), ec), end;
       !ec && it != end; it.increment(ec)) {
    taken.insert(services::foldCase(getFileTitle(it->path().filename().string())));
  }
  const std::string prefix = folder.empty() ? std::string() : withTrailingSeparator(folder);
  for (unsigned long n = 1;; ++n) {
    std::string candidateTitle = title + std::to_string(n);
    std::string candidate = prefix + candidateTitle + extension;
    if (!taken.contains(services::foldCase(candidateTitle)) && !fileExists(candidate)) {
      return candidate;
    }
  }
}

void PosixFileUtility::ensureFolderExists(const std::string& folder) {
  if (folder.empty()) return;
  std::error_code ec;
  fs::create_directories(folder, ec);
  if (ec || !fs::is_directory(folder, ec)) {
    raise(ErrorNumber::kPathNotFound, folder + (ec ? ": " + ec.message() : std::string()));
  }
}

std::string PosixFileUtility::withTrailingSeparator(const std::string& folder) {
  if (folder.empty()) return {};
  std::string_view p = trimTrailingSeparators(folder);
  if (p == "/") return "/";
  return std::string(p) + "/";
}

}  // namespace nvwm
