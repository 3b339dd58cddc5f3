// The merge source database: the table made from the catalogue and its rows, the limits of its
// columns, and where the pending messages are let through.
#include "merge/cls_word_merge_internal.h"
#include "merge_test_support.h"

namespace nvwm::testing {
namespace {

class MergeSourceTest : public MergeTest {
 protected:
  MergeSourceTest() {
    loadPractice();
    merge = newMerge();
  }
  bool build() { return clsWordMergeInternal::createMergeDatabaseAndQuery(*merge); }
  std::vector<std::map<std::string, std::string>> rows() {
    return mergeTableRows(merge->MergeSourceDBLocation());
  }
  std::unique_ptr<clsWordMerge> merge;
};

TEST_F(MergeSourceTest, AnEmptyIDListGivesTheTableWithoutRows) {
  EXPECT_TRUE(build());
  EXPECT_FALSE(mergeTableColumns(merge->MergeSourceDBLocation()).empty());
  EXPECT_TRUE(rows().empty());
  EXPECT_TRUE(events.events.empty());
  EXPECT_EQ(clsWordMergeInternal::mergeConnectionText(*merge), "TABLE WordMergeTable");
  EXPECT_EQ(clsWordMergeInternal::fieldNameList(*merge), nullptr) << "released at the end";
}

TEST_F(MergeSourceTest, TheFirmsColumnsStandTwiceAfterTheClientColumns) {
  ASSERT_TRUE(build());
  const auto columns = mergeTableColumns(merge->MergeSourceDBLocation());
  std::vector<std::string> names;
  for (const TableColumn& c : columns) names.push_back(c.name);
  ASSERT_GT(names.size(), 2u);
  EXPECT_EQ(names.front(), "Company Name") << "the client rows survive the second build";
  size_t firm = 0, firmAgain = 0;
  for (const std::string& name : names) {
    if (name.rfind("Your ", 0) != 0) continue;
    ++firm;
    if (name.size() > 2 && name.compare(name.size() - 2, 2, " 1") == 0) ++firmAgain;
  }
  EXPECT_EQ(firm, 2 * firmAgain) << "each firm column twice, the second with \" 1\"";
  EXPECT_EQ(names.back().substr(0, 5), "Your ");
}

TEST_F(MergeSourceTest, TitlesThatCleanAlikeAreFilledEachFromItsOwnField) {
  practice.exec(
      "UPDATE CustomFields SET CustomName1 = 'Notes!', CustomName3 = 'Notes';"
      "UPDATE ClientData SET ClientCustom1 = 'first', ClientCustom3 = 'third' WHERE "
      "ClientDataID = 12;");
  merge->IDList(idList({{Variant(int32_t{2})}}));
  ASSERT_TRUE(build());
  const auto table = rows();
  ASSERT_EQ(table.size(), 1u);
  EXPECT_EQ(table[0].at("Notes"), "first");
  EXPECT_EQ(table[0].at("Notes 1"), "third");
}

TEST_F(MergeSourceTest, ATextLongerThanItsColumnEndsTheRowsAtUpdate) {
  const std::string tooLong(256, 'x');
  const std::string longest(255, 'x');
  practice.exec("UPDATE Companies SET CompanyName = '" + tooLong +
                "' WHERE CompanyID = 2;"
                "UPDATE Companies SET CompanyName = '" +
                longest + "' WHERE CompanyID = 3;");
  merge->IDList(idList({{Variant(int32_t{3})}, {Variant(int32_t{2})}, {Variant(int32_t{3})}}));
  EXPECT_FALSE(build());
  ASSERT_EQ(refs.errors->errors.size(), 1u);
  EXPECT_EQ(refs.errors->errors[0].number(), 3163) << refs.errors->errors[0].description();
  const auto table = rows();
  ASSERT_EQ(table.size(), 1u) << "the rows before stay";
  EXPECT_EQ(table[0].at("Company Name"), longest);
}

TEST_F(MergeSourceTest, ColumnsCountCharactersNotBytes) {
  std::string accented;
  for (int i = 0; i < 255; ++i) accented += "é";
  practice.exec("UPDATE Companies SET CompanyName = '" + accented + "' WHERE CompanyID = 2;");
  merge->IDList(idList({{Variant(int32_t{2})}}));
  EXPECT_TRUE(build());
  EXPECT_EQ(rows().at(0).at("Company Name"), accented);
}

TEST_F(MergeSourceTest, ARunWithoutTheFieldCatalogueMakesATableOfNoColumns) {
  merge->LocaleReference(nullptr);  // the catalogue can't be built without the firm's country
  merge->IDList(idList({{Variant(int32_t{2})}}));
  merge->ShowProgess(false);
  merge->performWordMerge();
  EXPECT_EQ(
      events.mergeFailed(),
      std::vector<std::string>{"Tallowbrook could not link to the client information properly."});
  const auto columns = mergeTableColumns(merge->MergeSourceDBLocation());
  ASSERT_EQ(columns.size(), 1u);
  EXPECT_EQ(columns[0].name, "rowid") << "SQLite's stand-in for a table without columns";
  EXPECT_TRUE(rows().empty());
}

TEST_F(MergeSourceTest, PendingMessagesGoThroughWhereTheProductLetsThem) {
  const struct {
    mergeInfo2 type;
    int rows;
    int processed;
  } cases[] = {
      {mergeInfo2::wordMergeCompanyInfo, 3, 6},      // twice after each row
      {mergeInfo2::wordMergeAppointmentInfo, 3, 1},  // once before the rows
      {mergeInfo2::wordMergeRemittanceInfo, 3, 0},
      {mergeInfo2::wordMergeCompanyContactInfo, 3, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.type));
    auto m = newMerge();
    m->ListType(c.type);
    m->IDList(idList({{Variant(int32_t{2})}, {Variant(int32_t{1})}, {Variant(int32_t{3})}}));
    const int before = pump->processedCount();
    EXPECT_TRUE(clsWordMergeInternal::createMergeDatabaseAndQuery(*m));
    EXPECT_EQ(pump->processedCount() - before, c.processed);
    EXPECT_EQ(mergeTableRows(m->MergeSourceDBLocation()).size(), static_cast<size_t>(c.rows));
  }
}

}  // namespace
}  // namespace nvwm::testing
