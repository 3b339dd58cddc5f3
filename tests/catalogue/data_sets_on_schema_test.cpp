// Every SQL text of the catalogue and of the client list, run on the practice schema.
#include <gtest/gtest.h>

#include "catalogue_test_support.h"
#include "practice/client_list_sql.h"
#include "services/folder_locale.h"
#include "support/practice_db.h"

namespace nvwm::testing {
namespace {

class DataSetsOnSchemaTest : public ::testing::Test {
 protected:
  DataSetsOnSchemaTest() {
    // Untouched labels everywhere, then a few set by the firm.
    addUntouchedLabels(practice);
    practice.exec("UPDATE CustomAddressFields SET ContactLabel1 = 'Pet:', CompanyLabel1 = 'Logo';");
    practice.exec(
        "UPDATE CustomFields SET CustomName1 = 'Fiscal Agent:', CustomName3 = 'Custom 3:', "
        "CustomName4 = 'Bank', CustomName5 = 'Custom 2', ApptCustomName1 = 'Room', "
        "RemittanceLabel1 = 'Form', TaskCustomName1 = 'Step', DocketCustomName1 = 'Matter';");
    db = std::make_shared<RecordingDatabase>(practice.service());
    references().DatabaseReference = db;
  }

  CatalogueEnvironment env;
  PracticeDb practice;
  std::shared_ptr<RecordingDatabase> db;
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

TEST_F(DataSetsOnSchemaTest, EveryClientListTextRuns) {
  for (int32_t country : {1, 2}) {
    references().LocaleReference = std::make_shared<HostLocale>(country, 3);
    for (bool visible : {true, false}) {
      for (int32_t status : {1, 2, 3}) {
        SCOPED_TRACE(std::to_string(country) + " " + std::to_string(visible) + " " +
                     std::to_string(status));
        std::string sql = getMainBusinessSQLString(visible, status);
        ASSERT_FALSE(sql.empty());
        Handle h = practice.service()->openRecordset(sql, 1, 1, true, "", true);
        EXPECT_TRUE(practice.service()->isRecordsetOpen(h));
        practice.service()->closeRecordset(h);
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

TEST_F(DataSetsOnSchemaTest, EmptyCustomFieldsLeavesOutThoseBlocksOnly) {
  practice.exec("DELETE FROM CustomFields;");
  auto catalogue = env.makeCatalogue();
  catalogue->initializeDataRecordsets(5, false, -1, true, true, true, true, true, -1, -1);
  std::vector<DumpedRow> rows = dumpRows(*catalogue->FieldListStructure());
  for (const DumpedRow& row : rows) {
    EXPECT_NE(row.columns[0], "ClientCustom1");
    EXPECT_FALSE(row.columns[2] == "AppointInfo" && row.columns[0] == "Custom1");
  }
  ASSERT_GT(rows.size(), 6u);
  EXPECT_EQ(rows[6].columns[1], "Company Name");
  EXPECT_EQ(rows[6].key, 7);
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

}  // namespace
}  // namespace nvwm::testing
