// What a build puts into the host's list boxes: entries, headers, separators and ItemData.
#include <gtest/gtest.h>

#include "catalogue_test_support.h"
#include "expected_field_names.h"

namespace nvwm::testing {
namespace {

using namespace expected;
using Entry = ListEntry;

// Field entries carry the running key; headers and separators -1.
class ExpectedList {
 public:
  ExpectedList& header(const char* text, bool separator) {
    if (separator) entries.push_back({"", -1});
    entries.push_back({text, -1});
    return *this;
  }
  ExpectedList& fields(const Names& names) {
    for (const std::string& n : names) entries.push_back({n, ++key});
    return *this;
  }
  std::vector<Entry> entries;
  int32_t key = 0;
};

// The list entries of a calendar custom block: the regular fifth default, not the stored name.
Names listedCustom(const std::string& stem) { return numbered(stem); }

std::vector<Entry> clientTail(ExpectedList& e, bool ca = true) {
  e.header("[Default Contact Name]", true).fields(contactName());
  e.header("[Company Accounting Info]", true);
  Names accounting = ca ? kAccountingOntario : kAccountingUS;
  if (!ca) accounting[0] = "Federal Employer Identification  Number";  // the list's own text
  e.fields(accounting).fields(numbered("Custom Field "));
  e.header("[Company Software Info]", true).fields(kSoftware);
  e.header("[More Contact Info]", true).fields(contactDetail(ca));
  return e.entries;
}

std::vector<Entry> listBoxAfterBuild(CatalogueEnvironment& env, int32_t listType, int32_t use = 1) {
  auto catalogue = env.makeCatalogue();
  auto list = std::make_shared<TextListBox>();
  catalogue->MergeFieldListUse(use);
  catalogue->ListBox(list);
  bool noList = true;
  catalogue->createDefaultFieldListStructure(listType, noList, true);
  EXPECT_FALSE(noList);
  return entriesOf(*list);
}

TEST(ListBoxTest, EntriesAndItemDataByListType) {
  const struct {
    int32_t listType;
    int32_t country;
    std::vector<Entry> (*expected)(bool);
  } cases[] = {
      {1, 1,
       [](bool) {
         ExpectedList e;
         e.header("[Company Address Info]", false).fields(company(true));
         return clientTail(e);
       }},
      {1, 2,
       [](bool) {
         ExpectedList e;
         e.header("[Company Address Info]", false).fields(company(false));
         return clientTail(e, false);
       }},
      {3, 1,
       [](bool) {
         ExpectedList e;
         e.header("[Contact Name]", true).fields(contactName());
         e.header("[More Contact Info]", true).fields(contactDetail(true));
         e.header("[Company Info]", true).fields(company(true));
         return e.entries;
       }},
      {5, 1,
       [](bool) {
         ExpectedList e;
         e.header("[Appointment Info]", false).fields(kAppointment);
         e.fields(listedCustom("Custom Appt Field "));
         e.header("[Company Address Info]", true).fields(company(true));
         return clientTail(e);
       }},
      {6, 1,
       [](bool) {
         ExpectedList e;
         e.header("[Time Entry Info]", false).fields(kDocket);
         e.fields(listedCustom("Custom Time Entry Field "));
         e.header("[Company Address Info]", false).fields(company(true));
         return clientTail(e);
       }},
      {8, 1,
       [](bool) {
         ExpectedList e;
         e.header("[Task Info]", false).fields(kTaskSchedule);
         e.fields(listedCustom("Custom Task Field "));
         e.header("[Task Info]", true).fields(kTask).fields(listedCustom("Custom Task Field "));
         e.header("[Company Address Info]", true).fields(company(true));
         return clientTail(e);
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE("list type " + std::to_string(c.listType) + ", country " +
                 std::to_string(c.country));
    CatalogueEnvironment env;
    env.locale->setCountryCode(c.country);
    EXPECT_EQ(listBoxAfterBuild(env, c.listType), c.expected(true));
  }
}

TEST(ListBoxTest, AssignmentListStartsWithNotAssignedAndHasNoHeaders) {
  CatalogueEnvironment env;
  ExpectedList e;
  e.entries.push_back({"Not Assigned", -1});
  e.fields(company(true, true)).fields(contactName(true));
  e.fields(kAccountingOntario).fields(numbered("Custom Field ")).fields(kSoftware);
  e.fields(contactDetail(true, true));
  EXPECT_EQ(listBoxAfterBuild(env, 1, 2), e.entries);
}

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
  EXPECT_EQ(entriesOf(*list)[first + 2], (Entry{contactName()[0], 1}));
  // The old entry's ItemData now names the new table's row 1.
  EXPECT_EQ(catalogue->parseListItem(entriesOf(*list)[2].itemData, false), "Contact Display Name");
}

TEST(ListBoxTest, NoListBoxBuildsTheTableAndReportsNoList) {
  CatalogueEnvironment env;
  auto catalogue = env.makeCatalogue();
  bool noList = false;
  catalogue->createDefaultFieldListStructure(1, noList, true);
  EXPECT_TRUE(noList);
  EXPECT_EQ(displayNames(*catalogue->FieldListStructure()),
            join({company(true), contactName(), accountingAndSoftware(true), contactDetail(true),
                  firm(true)}));
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
  ExpectedList e;
  e.key = rowsBefore;
  e.entries.push_back({"Insert your Letterhead", -1});
  e.fields(firm(true));
  EXPECT_EQ(entriesOf(*list2), e.entries);
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
  EXPECT_EQ(displayNames(*catalogue->FieldListStructure()), firm(true));
}

}  // namespace
}  // namespace nvwm::testing
