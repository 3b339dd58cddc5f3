// getMergeDataField: one placeholder expression taken apart, with or without its delimiters.
#include <gtest/gtest.h>

#include "engine/values_test_support.h"

namespace nvwm::testing {
namespace {

class MergeDataFieldTest : public ValuesTest {
 protected:
  std::string value(clsInsertFieldsInRTB& rtb, const std::string& expression, RecordIDs ids,
                    bool sample = false, bool swap = false) {
    bool rtf = false;
    return rtb.getMergeDataField(expression, ids.companyID, ids.contactID, ids.scheduleID,
                                 ids.firmID, ids.appointmentID, ids.docketID, ids.taskID, sample,
                                 rtf, swap);
  }
  const RecordIDs ann{2, 101, -1, 1, -1, -1, -1};
};

TEST_F(MergeDataFieldTest, NamesAndFormattedExpressions) {
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  const struct {
    const char* expression;
    const char* expected;
  } cases[] = {
      {"", ""},
      {"«Contact First Name»", "Ann"},
      {"Contact First Name", "Ann"},
      {"\\'abContact First Name\\'bb", "Ann"},
      {"<<Contact Last Name>>", "Brown"},
      {"contact first name", "Ann"},
      // Any format may follow the comma, blanks around it trimmed.
      {"(Contact Birthday, yyyy)", "1985"},
      {"«(Contact Birthday,dd mmm)»", "18 Jun"},
      {"(  Contact Birthday ,  mmmm d, yyyy  )", "June 18, 1985"},
      // A bare date takes "mmm d yyyy", a bare "Todays Date" "mmmm d yyyy".
      {"Contact Birthday", "Jun 18 1985"},
      {"Todays Date", "March 15 2026"},
      {"«(Todays Date, d/m/yyyy)»", "15/3/2026"},
      {"Unknown Field", ""},
      {"(Unknown Field, d)", ""},
      // Brackets without a comma leave the name empty; one bracket is enough.
      {"(Contact Birthday)", ""},
      {"Contact Birthday)", ""},
      {"Company Name", "Maple Leaf Bakery Inc."},
      {"(Company Name, yyyy)", "Maple Leaf Bakery Inc."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.expression);
    EXPECT_EQ(value(*rtb, c.expression, ann), c.expected);
  }
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
}

TEST_F(MergeDataFieldTest, TypedFieldsAskWithoutAName) {
  auto rtb = openedCatalogue(list_type::kDocketInfo);
  const RecordIDs entry{2, 101, -1, -1, -1, 1, -1};
  EXPECT_EQ(value(*rtb, "Time Entry Name", entry), "Bookkeeping");
  EXPECT_EQ(value(*rtb, "(Time Entry Date, mmmm d)", entry), "March 2");
  // Times and dollars come back empty, formatted or not.
  EXPECT_EQ(value(*rtb, "Time Entry Start Time", entry), "");
  EXPECT_EQ(value(*rtb, "«Total Amount (Final)»", entry), "");
  EXPECT_EQ(value(*rtb, "(Time Entry Start Time, h:nn)", entry), "");
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
  // Yes/No raises the conversion error; the result is the expression as it then stood.
  EXPECT_EQ(value(*rtb, "«Time Entry Locked»", entry), "Time Entry Locked");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{13}) << errorLog();
}

TEST_F(MergeDataFieldTest, NamesWithRoundBracketsCountAsFormatted) {
  // The time entry totals carry brackets in their names: the brackets go, no comma is left,
  // and the name stays empty.
  auto rtb = openedCatalogue(list_type::kDocketInfo);
  EXPECT_EQ(value(*rtb, "Total Time (Actual)", {-1, -1, -1, -1, -1, 1, -1}), "");
  EXPECT_EQ(value(*rtb, "«Time From (Actual Time)»", {-1, -1, -1, -1, -1, 1, -1}), "");
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
}

TEST_F(MergeDataFieldTest, DurationTypeIsComparedInUpperCase) {
  // A duration row whose name has no brackets: "Time(hrs/min)" meets the duration line, whose
  // value is asked for without a name, and "" is no number.
  practice.exec("UPDATE Dockets SET TotalTimeFinal = 1.5 WHERE DocketID = 1;");
  auto rtb = openedCatalogue(list_type::kDocketInfo);
  rtb->FieldListStructure()->addRow(
      900, {"TotalTimeFinal", "Final Hours", "DocketInfo", "Time(hrs/min)", "1 hr 30 min"});
  EXPECT_EQ(value(*rtb, "Final Hours", {-1, -1, -1, -1, -1, 1, -1}), "Final Hours");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{13}) << errorLog();
}

TEST_F(MergeDataFieldTest, EmptyCatalogueIsBuiltOnlyForFormattedExpressions) {
  auto rtb = env.makeCatalogue();
  EXPECT_EQ(value(*rtb, "Company Name", ann), "");
  EXPECT_EQ(rtb->FieldListStructure()->getRowCount(), 0);
  // A formatted expression builds it from the IDs and then searches at once.
  EXPECT_EQ(value(*rtb, "(Contact Birthday, yyyy)", ann), "1985");
  EXPECT_GT(rtb->FieldListStructure()->getRowCount(), 0);
  EXPECT_EQ(value(*rtb, "Company Name", ann), "Maple Leaf Bakery Inc.");
}

TEST_F(MergeDataFieldTest, CompanyNameSwapNeedsTheDelimiters) {
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  const RecordIDs noCompany{0, 101, -1, -1, -1, -1, -1};
  EXPECT_EQ(value(*rtb, "«Company Name»", noCompany, false, true), "Ann Brown");
  EXPECT_EQ(value(*rtb, "Company Name", noCompany, false, true), "");
}

TEST_F(MergeDataFieldTest, SamplesAndNoConnection) {
  auto rtb = openedCatalogue(list_type::kTaskInfo);
  db->connected = false;
  EXPECT_EQ(value(*rtb, "Task Name", {}, true), "1st Quarterly GST Payment");
  EXPECT_EQ(value(*rtb, "(Task Due Date, yyyy-mm-dd)", {}, true), "2026-01-31");
  EXPECT_EQ(value(*rtb, "Task Name", {-1, -1, -1, -1, -1, -1, 1}), "");
  EXPECT_TRUE(db->queries.empty());
}

}  // namespace
}  // namespace nvwm::testing
