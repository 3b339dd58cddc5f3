// What a build puts into the host's list boxes beyond the entries of each list type (those are
// golden files, data/listbox-*.tsv): clearing, refreshing, headers switched on and off, and the
// accountant's list in the second list box.
#include <gtest/gtest.h>

#include "catalogue_test_support.h"

namespace nvwm::testing {
namespace {

using Entry = ListEntry;

TEST(ListBoxTest, HeadersComeBackWhenSwitchedOnAfterTheAssignmentUse) {
  CatalogueEnvironment env;
  auto catalogue = env.makeCatalogue();
  catalogue->MergeFieldListUse(2);
  EXPECT_FALSE(catalogue->ShowListCategoryHeaders());
  catalogue->ShowListCategoryHeaders(true);
  catalogue->MergeFieldListUse(3);  // only 2 forces the value
  EXPECT_TRUE(catalogue->ShowListCategoryHeaders());
  auto list = std::make_shared<TextListBox>();
  catalogue->ListBox(list);
  bool noList = false;
  catalogue->createDefaultFieldListStructure(3, noList, true);
  ASSERT_GE(entriesOf(*list).size(), 2u);
  EXPECT_EQ(entriesOf(*list)[1], (Entry{"[Contact Name]", -1}));
}

TEST(ListBoxTest, WithoutHeadersTheTwoTaskGroupsRunTogether) {
  CatalogueEnvironment env;
  auto catalogue = env.makeCatalogue();
  catalogue->ShowListCategoryHeaders(false);
  auto list = std::make_shared<TextListBox>();
  catalogue->ListBox(list);
  bool noList = false;
  catalogue->createDefaultFieldListStructure(8, noList, true);
  for (const Entry& entry : entriesOf(*list)) EXPECT_GT(entry.itemData, 0) << entry.text;
  ASSERT_GT(entriesOf(*list).size(), 15u);
  EXPECT_EQ(entriesOf(*list)[13].text, "Custom Task Field 5");
  EXPECT_EQ(entriesOf(*list)[14].text, "Task Subject");
}

TEST(ListBoxTest, ClearsFirstAndRefreshesOnce) {
  CatalogueEnvironment env;
  auto catalogue = env.makeCatalogue();
  auto list = std::make_shared<TextListBox>();
  const Variant old[] = {Variant("left over")};
  list->invoke("AddItem", old);
  catalogue->ListBox(list);
  bool noList = false;
  catalogue->createDefaultFieldListStructure(1, noList, true);
  ASSERT_FALSE(list->entries().empty());
  EXPECT_EQ(list->entries().front().text, "[Company Address Info]");
  EXPECT_EQ(list->refreshCount(), 1);
}

TEST(ListBoxTest, WithoutClearNewEntriesFollowTheOldOnesAndKeysStartAgain) {
  CatalogueEnvironment env;
  auto catalogue = env.makeCatalogue();
  auto list = std::make_shared<TextListBox>();
  catalogue->ListBox(list);
  bool noList = false;
  catalogue->createDefaultFieldListStructure(3, noList, true);
  size_t first = entriesOf(*list).size();
  catalogue->createDefaultFieldListStructure(3, noList, false);
  ASSERT_EQ(entriesOf(*list).size(), 2 * first);
  EXPECT_EQ(entriesOf(*list)[first + 2], (Entry{"Contact Display Name", 1}));
  // The old entry's ItemData now names the new table's row 1.
  EXPECT_EQ(catalogue->parseListItem(entriesOf(*list)[2].itemData, false), "Contact Display Name");
}

TEST(ListBoxTest, NoListBoxBuildsTheTableAndReportsNoList) {
  CatalogueEnvironment env;
  auto catalogue = env.makeCatalogue();
  bool noList = false;
  catalogue->createDefaultFieldListStructure(1, noList, true);
  EXPECT_TRUE(noList);
  EXPECT_EQ(displayNames(*catalogue->FieldListStructure()), goldenDisplayNames("fields-1-canada"));
}

TEST(ListBoxTest, DefaultBuildNeverTouchesListBox2) {
  CatalogueEnvironment env;
  auto catalogue = env.makeCatalogue();
  auto list2 = std::make_shared<TextListBox>();
  catalogue->ListBox2(list2);
  bool noList = false;
  catalogue->createDefaultFieldListStructure(1, noList, true);
  EXPECT_TRUE(list2->entries().empty());
  EXPECT_EQ(list2->refreshCount(), 0);
}

TEST(ListBoxTest, AccountantListFillsListBox2WithNewKeys) {
  CatalogueEnvironment env;
  auto catalogue = env.makeCatalogue();
  bool noList = false;
  catalogue->createDefaultFieldListStructure(3, noList, true);
  int32_t rowsBefore = catalogue->FieldListStructure()->getRowCount();
  auto list2 = std::make_shared<TextListBox>();
  catalogue->ListBox2(list2);
  bool firmNoList = false;
  catalogue->createAccountantFieldListStructure(firmNoList, true);
  std::vector<Entry> expected = {{"Insert your Letterhead", -1}};
  int32_t key = rowsBefore;
  for (const std::string& name : goldenDisplayNames("fields-4-canada"))
    expected.push_back({name, ++key});
  EXPECT_EQ(entriesOf(*list2), expected);
  EXPECT_EQ(list2->refreshCount(), 1);
  EXPECT_FALSE(firmNoList);
  // The first set of firm rows is the one found by name.
  IDList& table = *catalogue->FieldListStructure();
  EXPECT_LT(table.findRow(2, Variant("Your Company Name")), rowsBefore);
}

TEST(ListBoxTest, AccountantListWithoutListBox2AddsRowsAndSetsNoList) {
  CatalogueEnvironment env;
  auto catalogue = env.makeCatalogue();
  auto list = std::make_shared<TextListBox>();
  catalogue->ListBox(list);
  bool noList = false;
  catalogue->createAccountantFieldListStructure(noList, true);
  EXPECT_TRUE(noList);
  EXPECT_TRUE(list->entries().empty());
  EXPECT_EQ(list->refreshCount(), 0);
  EXPECT_EQ(displayNames(*catalogue->FieldListStructure()), goldenDisplayNames("fields-4-canada"));
}

}  // namespace
}  // namespace nvwm::testing
