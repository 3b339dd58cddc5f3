// Assertions on the runtime's errors, for the tests of every layer.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "runtime/error.h"

// Asserts that a statement raises a RuntimeError with the given number.
#define EXPECT_RUNTIME_ERROR(statement, expectedNumber)                                    \
  do {                                                                                     \
    try {                                                                                  \
      statement;                                                                           \
      ADD_FAILURE() << #statement " raised nothing; expected error " << (expectedNumber);  \
    } catch (const ::nvwm::RuntimeError& e_) {                                             \
      EXPECT_EQ(e_.number(), static_cast<int32_t>(expectedNumber)) << e_.description();    \
    }                                                                                      \
  } while (0)

// Asserts that a statement raises a RuntimeError with the given number and description, for
// the errors whose text users read.
#define EXPECT_RUNTIME_ERROR_MSG(statement, expectedNumber, expectedDescription)            \
  do {                                                                                     \
    try {                                                                                  \
      statement;                                                                           \
      ADD_FAILURE() << #statement " raised nothing; expected error " << (expectedNumber);  \
    } catch (const ::nvwm::RuntimeError& e_) {                                             \
      EXPECT_EQ(e_.number(), static_cast<int32_t>(expectedNumber)) << e_.description();    \
      EXPECT_EQ(e_.description(), std::string(expectedDescription));                       \
    }                                                                                      \
  } while (0)
