// The custom blocks: labels from the database, their clean-up, and the default rows without a
// connection (with the gap of the first row and the stored name of the fifth calendar row).
#include <gtest/gtest.h>

#include "catalogue_test_support.h"
#include "runtime/convert.h"

namespace nvwm::testing {
namespace {

constexpr const char* kCustomFields = "CustomFields";
constexpr const char* kCustomAddressFields = "CustomAddressFields";

std::vector<DumpedRow> rowsOf(clsInsertFieldsInRTB& catalogue, const std::string& category,
                              const std::string& databaseFieldPrefix) {
  std::vector<DumpedRow> rows;
  for (const DumpedRow& row : dumpRows(*catalogue.FieldListStructure())) {
    if (row.columns[2] == category && row.columns[0].rfind(databaseFieldPrefix, 0) == 0) {
      rows.push_back(row);
    }
  }
  return rows;
}

std::vector<std::string> names(const std::vector<DumpedRow>& rows) {
  std::vector<std::string> n;
  for (const DumpedRow& r : rows) n.push_back(r.columns[1]);
  return n;
}

class CustomLabelsTest : public ::testing::Test {
 protected:
  CustomLabelsTest() { references().DatabaseReference = db; }
  void setLabel(const char* table, const std::string& column, const Variant& value) {
    labels.setLabel(table, column, value);
  }

  CatalogueEnvironment env;
  LabelDatabase labels;
  std::shared_ptr<RecordingDatabase> db = labels.db;
};

TEST_F(CustomLabelsTest, LabelsLoseATrailingColonAndUntouchedOnesFallBack) {
  const struct {
    Variant label;
    const char* display;
  } cases[] = {
      {Variant("Fiscal Agent:"), "Fiscal Agent"},
      {Variant("Fiscal Agent"), "Fiscal Agent"},
      {Variant("Custom 1"), "Custom Field 1"},
      {Variant("Custom 1:"), "Custom Field 1"},
      {Variant("custom 1"), "custom 1"},         // exact test only
      {Variant("Custom 2"), "Custom 2"},         // untouched only as its own row's label
      {Variant("Ratio: a:b::"), "Ratio: a:b:"},  // only the last colon goes
      {Variant(":"), ""},
      {Variant(""), ""},
      {Variant("Société:"), "Société"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(debugString(c.label));
    setLabel(kCustomFields, "CustomName1", c.label);
    auto catalogue = env.build(1);
    std::vector<DumpedRow> rows = rowsOf(*catalogue, "ClientInfo", "ClientCustom");
    ASSERT_EQ(rows.size(), 5u);
    EXPECT_EQ(rows[0].columns[1], c.display);
    EXPECT_EQ(rows[0].columns[4], "Custom Info 1");
    EXPECT_EQ(rows[0].columns[5], "255");
    EXPECT_EQ(names(rows)[4], "Custom Field 5");
  }
}

TEST_F(CustomLabelsTest, EveryBlockReadsItsOwnLabelColumns) {
  const struct {
    int32_t listType;
    const char* sql;
    const char* column;
    const char* category;
    const char* field;
    const char* display;
    const char* sample;
  } cases[] = {
      {1, kCustomFields, "CustomName3", "ClientInfo", "ClientCustom3", "Bank", "Custom Info 3"},
      {1, kCustomAddressFields, "ContactLabel3", "ContactInfo", "Custom3", "Pet",
       "Contact Custom Info 3"},
      {1, kCustomAddressFields, "CompanyLabel3", "CompanyInfo", "Custom3", "Pet",
       "Company Custom Info 3"},
      {1, kCustomAddressFields, "CompanyLabel3", "FirmInfo", "Custom3", "Your Pet",
       "Company Custom Info 3"},
      {5, kCustomFields, "ApptCustomName3", "AppointInfo", "Custom3", "Room", "Custom Appt Info 3"},
      {8, kCustomFields, "RemittanceLabel3", "TaskInfo", "Custom3", "Room", "Custom Task Info 3"},
      {8, kCustomFields, "TaskCustomName3", "TaskInfo", "TaskCustom3", "Room",
       "Custom Task Info 3"},
      {6, kCustomFields, "DocketCustomName3", "DocketInfo", "Custom3", "Room",
       "Custom Time Entry Info 3"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.column);
    labels.resetLabels();
    setLabel(c.sql, c.column,
             Variant(std::string(c.display).substr(std::string(c.category) == "FirmInfo" ? 5 : 0)));
    auto catalogue = env.build(c.listType);
    bool found = false;
    for (const DumpedRow& row : dumpRows(*catalogue->FieldListStructure())) {
      if (row.columns[2] == c.category && row.columns[0] == c.field) {
        EXPECT_EQ(row.columns[1], c.display);
        EXPECT_EQ(row.columns[4], c.sample);
        found = true;
      }
    }
    EXPECT_TRUE(found);
  }
}

TEST_F(CustomLabelsTest, UntouchedFirmLabelsReadAsYourCompanyCustomField) {
  auto catalogue = env.build(3);
  EXPECT_EQ(names(rowsOf(*catalogue, "FirmInfo", "Custom")),
            (std::vector<std::string>{"Your Company Custom Field 1", "Your Company Custom Field 2",
                                      "Your Company Custom Field 3", "Your Company Custom Field 4",
                                      "Your Company Custom Field 5"}));
}

TEST_F(CustomLabelsTest, EmptyCustomFieldsTableGivesNoCustomRowAtAll) {
  labels.practice.exec("DELETE FROM CustomFields;");
  auto withoutLabels = env.build(5);
  labels.resetLabels();
  auto withLabels = env.build(5);
  std::vector<DumpedRow> without = dumpRows(*withoutLabels->FieldListStructure());
  std::vector<DumpedRow> with = dumpRows(*withLabels->FieldListStructure());
  EXPECT_TRUE(rowsOf(*withoutLabels, "ClientInfo", "ClientCustom").empty());
  EXPECT_TRUE(rowsOf(*withoutLabels, "AppointInfo", "Custom").empty());
  EXPECT_EQ(rowsOf(*withoutLabels, "ContactInfo", "Custom").size(), 5u);  // no hasRecords test
  ASSERT_EQ(with.size(), without.size() + 10);
  // The first row after the appointment block's custom rows: five keys lower without them.
  EXPECT_EQ(with[11].columns[1], "Company Name");
  EXPECT_EQ(without[6].columns[1], "Company Name");
  EXPECT_EQ(with[11].key - without[6].key, 5);
}

TEST_F(CustomLabelsTest, LabelQueriesAreClosedAfterReading) {
  auto catalogue = env.build(1);
  std::vector<Handle> labelHandles;
  for (size_t i = 0; i < db->queries.size(); ++i) labelHandles.push_back(db->opened[i]);
  EXPECT_EQ(db->queries.size(), 4u);  // client, company, contact, firm blocks
  EXPECT_EQ(db->closed, labelHandles);
}

TEST_F(CustomLabelsTest, WithoutConnectionTheDefaultRowsStandIn) {
  db->connected = false;
  auto catalogue = env.build(1);
  std::vector<DumpedRow> rows = rowsOf(*catalogue, "ClientInfo", "ClientCustom");
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_EQ(names(rows),
            (std::vector<std::string>{"Custom Field 1", "Custom Field 2", "Custom Field 3",
                                      "Custom Field 4", "Custom Field 5"}));
  // The first default row has a gap: no sample in column 5, the sample in 6, the size in 7.
  EXPECT_EQ(rows[0].columns,
            (std::vector<std::string>{"ClientCustom1", "Custom Field 1", "ClientInfo", "Text",
                                      "<missing>", "Custom Info 1", "255"}));
  EXPECT_EQ(rows[1].columns,
            (std::vector<std::string>{"ClientCustom2", "Custom Field 2", "ClientInfo", "Text",
                                      "Custom Info 2", "255", "<missing>"}));
  EXPECT_TRUE(db->queries.empty());
}

TEST_F(CustomLabelsTest, FifthDefaultCalendarRowIsStoredUnderAnotherName) {
  db->connected = false;
  const struct {
    int32_t listType;
    const char* category;
    const char* listed;
  } cases[] = {
      {5, "AppointInfo", "Custom Appt Field 5"},
      {8, "TaskInfo", "Custom Task Field 5"},
      {6, "DocketInfo", "Custom Time Entry Field 5"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.listType);
    auto catalogue = env.makeCatalogue();
    auto list = std::make_shared<TextListBox>();
    catalogue->ListBox(list);
    bool noList = false;
    catalogue->createDefaultFieldListStructure(c.listType, noList, true);
    IDList& table = *catalogue->FieldListStructure();
    int32_t key = table.findRow(2, Variant("Custom Remmit Field 5"));
    ASSERT_GT(key, 0);
    table.moveToKey(key);
    EXPECT_EQ(CStr(table.getColumn(3)), c.category);
    // The list shows the regular default, and a click inserts the stored name.
    bool listed = false;
    for (const TextListBox::Entry& e : list->entries()) {
      if (e.itemData == key) {
        EXPECT_EQ(e.text, c.listed);
        listed = true;
      }
    }
    EXPECT_TRUE(listed);
    EXPECT_EQ(catalogue->parseListItem(key, true), "«Custom Remmit Field 5»");
    EXPECT_LT(table.findRow(2, Variant(c.listed)), 0);
  }
}

TEST_F(CustomLabelsTest, NullLabelEndsTheBuildInItsHandler) {
  setLabel(kCustomFields, "CustomName2", Variant::null());
  auto catalogue = env.build(1);
  ASSERT_FALSE(env.refs.errors->errors.empty());
  EXPECT_EQ(env.refs.errors->errors[0].number(), 94);
  EXPECT_EQ(env.refs.errors->shownWithStack[0].back(),
            "Tallowbrook.exe-clsInsertFieldsInRTB-createDefaultFieldListStructure");
}

}  // namespace
}  // namespace nvwm::testing
