// From a list entry's ItemData to template text, and insertion at the caret.
#include <gtest/gtest.h>

#include "catalogue_test_support.h"

namespace nvwm::testing {
namespace {

class ListInteractionTest : public ::testing::Test {
 protected:
  ListInteractionTest() {
    installRecordingInserter(log);
    catalogue = env.build(1);
    catalogue->RTB(rtb);
  }
  int32_t keyOf(const char* displayName) {
    return catalogue->FieldListStructure()->findRow(2, Variant(displayName));
  }

  CatalogueEnvironment env;
  std::shared_ptr<InsertionLog> log = std::make_shared<InsertionLog>();
  std::shared_ptr<CaretOnlyRTB> rtb = std::make_shared<CaretOnlyRTB>();
  std::unique_ptr<clsInsertFieldsInRTB> catalogue;
};

TEST_F(ListInteractionTest, TextOfAListEntry) {
  const struct {
    const char* displayName;
    const char* dbField;
    const char* bracketed;
    const char* plain;
  } cases[] = {
      {"Client ID", "ClientID", "«Client ID»", "Client ID"},
      {"Year End Date", "(Year End Date, mmmm d yyyy)", "«(Year End Date, mmmm d yyyy)»",
       "(Year End Date, mmmm d yyyy)"},
      // Holds a date but is a "Text" row: no format.
      {"Spouse Birthday", "SpouseBirthday", "«Spouse Birthday»", "Spouse Birthday"},
      {"Contact Marital Status", "MaritialStatus", "«Contact Marital Status»",
       "Contact Marital Status"},
      {"Contact Birthday", "(Contact Birthday, mmmm d yyyy)", "«(Contact Birthday, mmmm d yyyy)»",
       "(Contact Birthday, mmmm d yyyy)"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.displayName);
    int32_t key = keyOf(c.displayName);
    ASSERT_GT(key, 0);
    EXPECT_EQ(catalogue->getDBFieldFromListItem(key), c.dbField);
    EXPECT_EQ(catalogue->parseListItem(key, true), c.bracketed);
    EXPECT_EQ(catalogue->parseListItem(key, false), c.plain);
  }
}

TEST_F(ListInteractionTest, NegativeItemDataGivesNothing) {
  EXPECT_EQ(catalogue->getDBFieldFromListItem(-1), "");
  EXPECT_EQ(catalogue->parseListItem(-1, true), "");
  EXPECT_TRUE(catalogue->onListClick(-1).isEmpty());
  EXPECT_TRUE(log->insertions.empty());
  EXPECT_EQ(log->inserterCount, 0);
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

TEST_F(ListInteractionTest, UnknownKeyReadsTheRowThatStandsCurrent) {
  int32_t key = keyOf("Client ID");
  EXPECT_EQ(catalogue->parseListItem(key, true), "«Client ID»");
  EXPECT_EQ(catalogue->parseListItem(99999, true), "«Client ID»");
  EXPECT_EQ(catalogue->getDBFieldFromListItem(99999), "ClientID");
}

TEST_F(ListInteractionTest, LowerCaseDateTypeCountsAsDate) {
  IDList& list = *catalogue->FieldListStructure();
  list.addRow(9000, {Variant("Due"), Variant("Due Day"), Variant("TaskInfo"), Variant("date")});
  EXPECT_EQ(catalogue->parseListItem(9000, true), "«(Due Day, mmmm d yyyy)»");
  EXPECT_EQ(catalogue->getDBFieldFromListItem(9000), "(Due Day, mmmm d yyyy)");
}

TEST_F(ListInteractionTest, ClickInsertsAtTheCaret) {
  const struct {
    Variant selStart;
    int32_t position;
  } cases[] = {
      {Variant(int32_t{17}), 17},
      {Variant(int32_t{0}), 0},  // the very start of the text is a number too
      {Variant("12"), 12},
      {Variant::null(), 1},
      {Variant("abc"), 1},
      {Variant(), 0},  // Empty reads as the number 0
  };
  int32_t key = keyOf("Client ID");
  for (const auto& c : cases) {
    SCOPED_TRACE(debugString(c.selStart));
    log->insertions.clear();
    rtb->selStart = c.selStart;
    EXPECT_TRUE(catalogue->onListClick(key).isEmpty());
    ASSERT_EQ(log->insertions.size(), 1u);
    EXPECT_EQ(log->insertions[0].text, "«Client ID»");
    EXPECT_EQ(log->insertions[0].position, c.position);
  }
}

TEST_F(ListInteractionTest, ClickOnADateInsertsItsFormat) {
  rtb->selStart = Variant(int32_t{4});
  catalogue->onListClick(keyOf("Year End Date"));
  ASSERT_EQ(log->insertions.size(), 1u);
  EXPECT_EQ(log->insertions[0].text, "«(Year End Date, mmmm d yyyy)»");
}

TEST_F(ListInteractionTest, ClickWithoutRichTextControlEndsInTheHandler) {
  catalogue->RTB(nullptr);
  catalogue->onListClick(keyOf("Client ID"));
  EXPECT_TRUE(log->insertions.empty());
  ASSERT_EQ(env.refs.errors->errors.size(), 1u);
  EXPECT_EQ(env.refs.errors->errors[0].number(), 91);
  EXPECT_EQ(env.refs.errors->shownWithStack[0].back(),
            "Tallowbrook.exe-clsInsertFieldsInRTB-onListClick");
}

TEST_F(ListInteractionTest, CurrentDateField) {
  const struct {
    int32_t dateFormat;
    const char* field;
  } cases[] = {
      {1, "(Todays Date, dddd, mmmm d yyyy)"},
      {2, "(Todays Date, dddd mmmm d yyyy)"},
      {3, "(Todays Date, mmmm d, yyyy)"},
      {4, "(Todays Date, mmmm d yyyy)"},
      {5, "(Todays Date, mmm d yyyy)"},
      {6, "(Todays Date, dd/mm/yy)"},
      {7, "(Todays Date, mm/dd/yy)"},
      {8, "(Todays Date, d)"},
      {9, "(Todays Date, dddd)"},
      {10, "(Todays Date, mmmm)"},
      {11, "(Todays Date, mmm)"},
      {12, "(Todays Date, yyyy)"},
      {13, "(Todays Date, mmmm yyyy)"},
      {14, "(Todays Date, mmmm d)"},
      {0, "(Todays Date, )"},
      {15, "(Todays Date, )"},
      {-1, "(Todays Date, )"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.dateFormat);
    EXPECT_EQ(catalogue->insertCurrentDateMergeField(c.dateFormat, false), c.field);
    EXPECT_EQ(catalogue->insertCurrentDateMergeField(c.dateFormat, true),
              std::string("«") + c.field + "»");
  }
}

TEST_F(ListInteractionTest, InsertCurrentDateAlwaysBracketsAndInsertsEvenWithoutFormat) {
  rtb->selStart = Variant(int32_t{8});
  EXPECT_TRUE(catalogue->InsertCurrentDate(3).isEmpty());
  rtb->selStart = Variant::null();
  catalogue->InsertCurrentDate(15);
  ASSERT_EQ(log->insertions.size(), 2u);
  EXPECT_EQ(log->insertions[0].text, "«(Todays Date, mmmm d, yyyy)»");
  EXPECT_EQ(log->insertions[0].position, 8);
  EXPECT_EQ(log->insertions[1].text, "«(Todays Date, )»");
  EXPECT_EQ(log->insertions[1].position, 1);
  EXPECT_EQ(log->inserterCount, 2);
}

}  // namespace
}  // namespace nvwm::testing

namespace nvwm::testing {
namespace {

TEST(ListInteractionOnTextBoxTest, ClickAndDateGoIntoTheTextAtTheCaret) {
  CatalogueEnvironment env;  // the default RTBTextInserter
  auto catalogue = env.build(1);
  auto box = std::make_shared<TextRichTextBox>("Dear , today");
  box->put("SelStart", {}, Variant(int32_t{5}));
  catalogue->RTB(box);
  catalogue->onListClick(catalogue->FieldListStructure()->findRow(2, Variant("Client ID")));
  EXPECT_EQ(box->text(), "Dear «Client ID», today");
  box->put("SelStart", {}, Variant(int32_t{0}));
  catalogue->InsertCurrentDate(12);
  EXPECT_EQ(box->text(), "«(Todays Date, yyyy)»Dear «Client ID», today");
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

}  // namespace
}  // namespace nvwm::testing
