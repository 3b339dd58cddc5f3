// getValidFieldName: the column names of the merge table, with the product's numbering of
// repeated names.
#include "merge/cls_word_merge_internal.h"
#include "merge_test_support.h"

namespace nvwm::testing {
namespace {

class ValidFieldNameTest : public MergeTest {
 protected:
  ValidFieldNameTest() {
    list = factories().createIDList();
    list->initialize();
    clsWordMergeInternal::fieldNameList(merge, list);
  }
  clsWordMerge merge;
  std::shared_ptr<IDList> list;
};

TEST_F(ValidFieldNameTest, RepeatedNamesAreNumberedAsTheProductNumbersThem) {
  // The n-th time a title is given, and the name it gets.
  const struct {
    int occurrence;
    const char* expected;
  } cases[] =
      {
          {1, "Name"},         {2, "Name 1"},   {3, "Name 2"},   {4, "Name 3"},
          {11, "Name 10"},     {12, "Name 11"}, {13, "Name 12"}, {101, "Name 100"},
          {102, "Name  101"},   // the cut of three leaves a blank of "100" behind
          {103, "Name   102"},  // and one more each time the walk passes a taken name
      };
  std::vector<std::string> names;
  for (int i = 1; i <= 103; ++i) names.push_back(merge.getValidFieldName("Name", "Text"));
  for (const auto& c : cases) {
    SCOPED_TRACE(c.occurrence);
    EXPECT_EQ(names[c.occurrence - 1], c.expected);
  }
  EXPECT_TRUE(refs.errors->errors.empty());
}

TEST_F(ValidFieldNameTest, EachNameIsRecordedWithItsTypeAndTitle) {
  EXPECT_EQ(merge.getValidFieldName("Federal Corp. Tax Number", "Text"), "Federal Corp Tax Number");
  EXPECT_EQ(merge.getValidFieldName("Year End Date", "Date"), "Year End Date");
  EXPECT_EQ(merge.getValidFieldName("Federal Corp Tax Number", "Text"),
            "Federal Corp Tax Number 1");
  ASSERT_EQ(list->getRowCount(), 3);
  const struct {
    int32_t key;
    const char* name;
    const char* type;
    const char* title;
  } rows[] = {
      {0, "Federal Corp Tax Number", "Text", "Federal Corp. Tax Number"},
      {1, "Year End Date", "Date", "Year End Date"},
      {2, "Federal Corp Tax Number 1", "Text", "Federal Corp Tax Number"},
  };
  list->moveFirst();
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(list->currentKey(), row.key);
    EXPECT_EQ(list->getColumn(1), Variant(row.name));
    EXPECT_EQ(list->getColumn(2), Variant(row.type));
    EXPECT_EQ(list->getColumn(3), Variant(row.title));
    list->moveNext();
  }
}

TEST_F(ValidFieldNameTest, NamesDifferingOnlyInCaseAreRepeats) {
  EXPECT_EQ(merge.getValidFieldName("Company Name", "Text"), "Company Name");
  EXPECT_EQ(merge.getValidFieldName("company name", "Text"), "company name 1");
}

TEST_F(ValidFieldNameTest, OutsideARunThereIsNoListAndTheResultIsEmpty) {
  clsWordMergeInternal::fieldNameList(merge, nullptr);
  EXPECT_EQ(merge.getValidFieldName("Company Name", "Text"), "");
  ASSERT_EQ(refs.errors->errors.size(), 1u);
  EXPECT_EQ(refs.errors->errors[0].number(), 91);
  EXPECT_EQ(refs.errors->entered.back(), "TallowbrookPad.exe-clsWordmerge-useIDListValues");
}

}  // namespace
}  // namespace nvwm::testing
