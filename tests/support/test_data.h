// The data files of the tests (golden outputs, SQL texts), for the tests of every layer.
#pragma once

#include <string>

namespace nvwm::testing {

// The whole text of a file of the source tree, by its path from the top
// ("tests/sqlite/data/library-sql.txt"). Fails the test when it can't be read.
std::string readTestData(const std::string& pathFromTop);

}  // namespace nvwm::testing
