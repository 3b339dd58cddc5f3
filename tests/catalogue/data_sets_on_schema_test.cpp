// Every data set of the catalogue opened on the practice schema, and labels read from it.
#include <gtest/gtest.h>

#include "catalogue_test_support.h"

namespace nvwm::testing {
namespace {

class DataSetsOnSchemaTest : public ::testing::Test {
 protected:
  DataSetsOnSchemaTest() {
    // Untouched labels everywhere, then a few set by the firm.
    labels.practice.exec(
        "UPDATE CustomAddressFields SET ContactLabel1 = 'Pet:', CompanyLabel1 = 'Logo';");
    labels.practice.exec(
        "UPDATE CustomFields SET CustomName1 = 'Fiscal Agent:', CustomName3 = 'Custom 3:', "
        "CustomName4 = 'Bank', CustomName5 = 'Custom 2', ApptCustomName1 = 'Room', "
        "RemittanceLabel1 = 'Form', TaskCustomName1 = 'Step', DocketCustomName1 = 'Matter';");
    references().DatabaseReference = db;
  }

  CatalogueEnvironment env;
  LabelDatabase labels;
  std::shared_ptr<RecordingDatabase> db = labels.db;
};

TEST_F(DataSetsOnSchemaTest, EveryDataSetOpensForEveryListTypeAndCountry) {
  for (int32_t country : {1, 2}) {
    for (int32_t listType = 1; listType <= 8; ++listType) {
      for (bool openAll : {true, false}) {
        for (int32_t id : {-1, 0, 3}) {
          SCOPED_TRACE("country " + std::to_string(country) + ", list type " +
                       std::to_string(listType) + (openAll ? ", all" : ", by flag") + ", ID " +
                       std::to_string(id));
          env.locale->setCountryCode(country);
          db->clear();
          auto catalogue = env.makeCatalogue();
          catalogue->initializeDataRecordsets(listType, openAll, id, true, true, true, true, true,
                                              id, id);
          EXPECT_TRUE(env.refs.errors->errors.empty())
              << env.refs.errors->errors.front().description();
          env.refs.errors->errors.clear();
          EXPECT_GE(db->queries.size(), 7u);
          for (Handle h : db->opened) EXPECT_GE(h, 0);
        }
      }
    }
  }
}

TEST_F(DataSetsOnSchemaTest, LabelsComeFromTheDatabase) {
  auto catalogue = env.makeCatalogue();
  catalogue->initializeDataRecordsets(8, false, -1, false, false, false, false, false, -1, -1);
  std::vector<std::string> names = displayNames(*catalogue->FieldListStructure());
  auto has = [&](const char* name) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  for (const char* name : {"Fiscal Agent", "Custom Field 2", "Custom Field 3", "Bank", "Custom 2",
                           "Form", "Step", "Pet", "Logo", "Your Logo", "Custom Task Field 2"}) {
    EXPECT_TRUE(has(name)) << name;
  }
  EXPECT_FALSE(has("Custom Remmit Field 5"));
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

}  // namespace
}  // namespace nvwm::testing
