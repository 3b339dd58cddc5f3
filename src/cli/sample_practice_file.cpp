#include "cli/sample_practice_file.h"

#include <random>

#include "services/sqlite/sample_practice.h"

namespace nvwm::cli {

SamplePracticeFile::SamplePracticeFile(const std::string& command) {
  std::random_device rd;
  path_ = std::filesystem::temp_directory_path() /
          ("nvwordmerge-" + command + "-" + std::to_string(rd()) + ".db");
  writeSamplePractice(path_.string());
}

SamplePracticeFile::~SamplePracticeFile() {
  std::error_code ec;
  std::filesystem::remove(path_, ec);
}

}  // namespace nvwm::cli
