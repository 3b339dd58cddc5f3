// Assertions on the runtime's errors, for the tests of every layer.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "runtime/error.h"

namespace nvwm::testing {

// Whether running `statement` raised a RuntimeError with that number and, when `description`
// is given, that description. `text` is the statement as written, for the failure message.
template <class Statement>
::testing::AssertionResult raisesRuntimeError(Statement&& statement, const char* text,
                                              int32_t number,
                                              const std::string* description = nullptr) {
  try {
    statement();
  } catch (const RuntimeError& e) {
    if (e.number() == number && (description == nullptr || e.description() == *description)) {
      return ::testing::AssertionSuccess();
    }
    auto failure = ::testing::AssertionFailure();
    failure << text << " raised error " << e.number() << " \"" << e.description()
            << "\"; expected error " << number;
    if (description != nullptr) failure << " \"" << *description << "\"";
    return failure;
  }
  return ::testing::AssertionFailure() << text << " raised nothing; expected error " << number;
}

}  // namespace nvwm::testing

// Asserts that a statement raises a RuntimeError with the given number.
#define EXPECT_RUNTIME_ERROR(statement, expectedNumber)                                     \
  do {                                                                                      \
    EXPECT_TRUE(::nvwm::testing::raisesRuntimeError([&] { statement; }, #statement,         \
                                                    static_cast<int32_t>(expectedNumber))); \
  } while (0)

// Asserts that a statement raises a RuntimeError with the given number and description, for
// the errors whose text users read.
#define EXPECT_RUNTIME_ERROR_MSG(statement, expectedNumber, expectedDescription)          \
  do {                                                                                    \
    const std::string expectedDescription_(expectedDescription);                          \
    EXPECT_TRUE(::nvwm::testing::raisesRuntimeError([&] { statement; }, #statement,       \
                                                    static_cast<int32_t>(expectedNumber), \
                                                    &expectedDescription_));              \
  } while (0)
