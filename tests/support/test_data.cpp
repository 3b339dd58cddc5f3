#include "support/test_data.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace nvwm::testing {

std::string readTestData(const std::string& pathFromTop) {
  std::string path = std::string(NVWM_SOURCE_DIR) + "/" + pathFromTop;
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << "can't read " << path;
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace nvwm::testing
