// Helpers of the value tests: a practice database built from data/values_practice.sql, reached
// through a recording DatabaseReference, and catalogue objects on it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "catalogue/catalogue_test_support.h"
#include "catalogue/cls_insert_fields_in_rtb.h"
#include "engine/data_sets.h"
#include "support/practice_db.h"
#include "support/recording_database.h"

namespace nvwm::testing {

using engine::RecordIDs;

// Record IDs from a table's cells, in the order company, contact, schedule, firm, appointment,
// docket, task.
RecordIDs idsFrom(const std::vector<std::string>& cells, size_t first);

class ValuesTest : public ::testing::Test {
 protected:
  // Today is 15 March 2026; an Ontario firm; the values practice behind a recording database.
  ValuesTest();

  // A catalogue of the list type whose data sets are opened as a merge opens them (the client
  // sets and the firm's, unfiltered, and the list type's calendar set).
  std::unique_ptr<clsInsertFieldsInRTB> openedCatalogue(int32_t listType);
  // A catalogue of the list type with no data set open.
  std::unique_ptr<clsInsertFieldsInRTB> closedCatalogue(int32_t listType);

  std::string field(clsInsertFieldsInRTB& rtb, std::string name, RecordIDs ids, bool sample = false,
                    bool rtf = false);
  std::string dateField(clsInsertFieldsInRTB& rtb, const std::string& name,
                        const std::string& format, RecordIDs ids, bool sample = false,
                        bool rtf = false);

  // The numbers of the errors the error service was told, in order.
  std::vector<int32_t> errorNumbers() const;
  // Their descriptions, one a line, for failure messages.
  std::string errorLog() const;

  CatalogueEnvironment env;
  PracticeDb practice;
  std::shared_ptr<RecordingDatabase> db;
};

}  // namespace nvwm::testing
