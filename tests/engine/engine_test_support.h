// Helpers of the engine tests: the environment of a catalogue object, a catalogue built on a
// test practice database, and the tables of expected results kept as tab-separated files.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "catalogue/catalogue_test_support.h"
#include "catalogue/cls_insert_fields_in_rtb.h"
#include "support/practice_db.h"

namespace nvwm::testing {

// One line of a table file: its number in the file (from 1) and its cells.
struct TableRow {
  int line = 0;
  std::vector<std::string> cells;
};

// The rows of tests/engine/data/<name>: tab-separated cells taken as they stand (no escapes,
// a backslash is a backslash), empty lines and lines starting with "#" left out. A row with
// another number of cells than `columns` fails the test, and so does a missing file.
std::vector<TableRow> readTable(const std::string& name, size_t columns);

// A date in the form YYYY-MM-DD, for table cells.
Date isoDate(const std::string& text);

// The environment of an engine test, and one catalogue object on it. The object's catalogue is
// built for the task list without a database (the default labels), so it has rows.
class EngineTest : public ::testing::Test {
 protected:
  EngineTest();

  // The numbers of the errors the error service was told, in order.
  std::vector<int32_t> errorNumbers() const;

  CatalogueEnvironment env;
  std::unique_ptr<clsInsertFieldsInRTB> rtb;
};

// A catalogue built by initializeDataRecordsets on a test practice database whose firm has
// labelled its first custom task fields ("Form" on the schedule, "Step" on the task) and left
// the other labels untouched.
class PracticeCatalogue {
 public:
  explicit PracticeCatalogue(CatalogueEnvironment& env, int32_t listType);
  PracticeDb practice;
  std::unique_ptr<clsInsertFieldsInRTB> rtb;
};

}  // namespace nvwm::testing
