// parseRTBComment: the two sweeps over the catalogue, the grammar of placeholders, the typed
// fields, the company-name swap, the first-call rule and errors.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"
#include "engine/values_test_support.h"

namespace nvwm::testing {
namespace {

class ParsePassTest : public ValuesTest {
 protected:
  std::string fill(clsInsertFieldsInRTB& rtb, const std::string& text, RecordIDs ids,
                   bool sample = false, bool rtf = false, bool swap = false) {
    return rtb.parseRTBComment(text, ids.companyID, ids.contactID, ids.scheduleID, ids.firmID,
                               ids.appointmentID, ids.docketID, ids.taskID, sample, rtf, swap);
  }
  const RecordIDs ann{2, 101, -1, 1, -1, -1, -1};
};

TEST_F(ParsePassTest, FillsTemplates) {
  for (const TableRow& row : readTable("parse_pass_fills.tsv", 11)) {
    SCOPED_TRACE("parse_pass_fills.tsv:" + std::to_string(row.line) + " " + row.cells[9]);
    auto rtb = openedCatalogue(std::stoi(row.cells[0]));
    EXPECT_EQ(fill(*rtb, row.cells[9], idsFrom(row.cells, 1), row.cells[8] == "1"), row.cells[10]);
  }
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
}

TEST_F(ParsePassTest, RtfValuesKeepOffControlWordsAndBreakLines) {
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"{\\rtf1 Dear \\'abContact First Name\\'bb,\\par}", "{\\rtf1 Dear Ann,\\par}"},
      {"{\\rtf1 \\b\\'abContact First Name\\'bb\\b0}", "{\\rtf1 \\b Ann\\b0}"},
      {"{\\rtf1 (\\'abContact First Name\\'bb)}", "{\\rtf1 ( Ann)}"},
      {"{\\rtf1 \\'abContact Home Address\\'bb}", "{\\rtf1 113 Elm Grove\\par \r\nApt 4}"},
      {"{\\rtf1 Today: «(Todays Date, mmmm d yyyy)»}", "{\\rtf1 Today: March 15 2026}"},
      // Leftovers are blanked; an escaped one leaves "'bb" behind.
      {"{\\rtf1 x \\'abNo Such Field\\'bb y}", "{\\rtf1 x 'bb y}"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(fill(*rtb, c.text, ann, false, true), c.expected);
  }
}

TEST_F(ParsePassTest, FirstCallBuildsTheCatalogueAndFillsNothing) {
  auto rtb = env.makeCatalogue();
  ASSERT_EQ(rtb->FieldListStructure()->getRowCount(), 0);
  const RecordIDs task{2, 101, -1, -1, -1, -1, 1};
  // The text comes back normalised, neither filled nor blanked.
  EXPECT_EQ(fill(*rtb, "<<Task Name>> «Nothing»", task), "«Task Name» «Nothing»");
  // A negative appointment ID is refused without a query; the task ID is the first asked.
  ASSERT_FALSE(db->sqlSent().empty());
  EXPECT_EQ(db->sqlSent().front(), "SELECT Tasks.TaskID FROM Tasks WHERE TaskID = 1;");
  // The task ID decided: the task rows are there, and the second call fills.
  EXPECT_GT(rtb->FieldListStructure()->findRow(2, Variant("Task Name")), 0);
  EXPECT_EQ(fill(*rtb, "<<Task Name>> «Nothing»", task), "Q1 GST filing ");
}

TEST_F(ParsePassTest, FirstCallListTypeFollowsTheIDs) {
  const struct {
    RecordIDs ids;
    const char* rowOfTheList;  // a row only that list type has
    const char* rowNotThere;
  } cases[] = {
      {{2, 101, 1, -1, 1, 1, 1}, "Appointment Name", "Task Name"},
      {{2, 101, 1, -1, 7, 1, 1}, "Task Name", "Time Entry Name"},
      {{2, 101, -1, -1, -1, 1, -1}, "Time Entry Name", "Task Name"},
      {{2, 101, 1, -1, -1, -1, -1}, "Task Name", "Time Entry Name"},
      {{-1, 101, -1, -1, -1, -1, -1}, "Company Name", "Task Name"},
      // Nothing valid: only the firm's rows.
      {{-1, -1, -1, -1, -1, -1, -1}, "Your Company Name", "Company Name"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.rowOfTheList);
    auto rtb = env.makeCatalogue();
    fill(*rtb, "x", c.ids);
    IDList& list = *rtb->FieldListStructure();
    EXPECT_GE(list.findRow(2, Variant(c.rowOfTheList)), 0);
    EXPECT_LT(list.findRow(2, Variant(c.rowNotThere)), 0);
  }
}

TEST_F(ParsePassTest, CompanyNameSwapForAContactWithoutCompany) {
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  const RecordIDs noCompany{0, 101, -1, -1, -1, -1, -1};
  EXPECT_EQ(fill(*rtb, "To «Company Name»", noCompany, false, false, true), "To Ann Brown");
  EXPECT_EQ(fill(*rtb, "To \\'abCompany Name\\'bb", noCompany, false, false, true), "To Ann Brown");
  // The text names the contact already: nothing is swapped, and company 0 isn't found.
  EXPECT_EQ(fill(*rtb, "«Company Name» / «Contact Display Name»", noCompany, false, false, true),
            " / Ann Brown");
  // Not asked for, or a company given, or no contact: no swap.
  EXPECT_EQ(fill(*rtb, "To «Company Name»", noCompany), "To ");
  EXPECT_EQ(fill(*rtb, "To «Company Name»", ann, false, false, true), "To Maple Leaf Bakery Inc.");
  EXPECT_EQ(fill(*rtb, "To «Company Name»", {-1, 0, -1, -1, -1, -1, -1}, false, false, true),
            "To ");
}

TEST_F(ParsePassTest, LaterRowsSeeEarlierValues) {
  // A value holding the placeholder of a later row is filled in turn; one of an earlier row is
  // left for the blanking.
  practice.exec(
      "UPDATE Companies SET CompanyName = 'Bakery of «Contact First Name»' WHERE CompanyID = 2;"
      "UPDATE Contacts SET Custom1 = 'See «Company Name»' WHERE ContactID = 101;");
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  EXPECT_EQ(fill(*rtb, "«Company Name» | «Contact Custom Field 1»", ann), "Bakery of Ann | See ");
}

TEST_F(ParsePassTest, DurationFormatOnlyForTheTypeWithCapitalM) {
  // The catalogue's "Time(hrs/min)" rows print the stored hours (see the fills table); a row
  // typed "Time(hrs/Min)" prints minutes as a duration text, rounded half to even.
  practice.exec(
      "UPDATE Dockets SET TotalTimeFinal = 1.5, TotalTimeReal = 0.025 WHERE DocketID = 1;");
  auto rtb = openedCatalogue(list_type::kDocketInfo);
  IDList& list = *rtb->FieldListStructure();
  const int32_t next = list.getRowCount() + 1;
  list.addRow(next, {"TotalTimeFinal", "Final Hours", "DocketInfo", "Time(hrs/Min)", "1 hr"});
  list.addRow(next + 1, {"TotalTimeReal", "Real Hours", "DocketInfo", "Time(hrs/Min)", "1 hr"});
  EXPECT_EQ(fill(*rtb, "«Final Hours» | «Real Hours» | «Total Time (Final)»",
                 {-1, -1, -1, -1, -1, 1, -1}),
            "1 hr 30 min | 2 min | 1.5");
}

TEST_F(ParsePassTest, UnusedFieldsReadNothing) {
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  EXPECT_EQ(fill(*rtb, "Nothing to fill «here».", ann), "Nothing to fill .");
  EXPECT_TRUE(db->queries.empty());
}

TEST_F(ParsePassTest, YesNoThatIsNoTruthValueStopsThePass) {
  // Time entry 2 has no "locked" value: "" is no truth value, the conversion error goes to the
  // error service, and the pass leaves with its text as it stands, unblanked.
  auto rtb = openedCatalogue(list_type::kDocketInfo);
  EXPECT_EQ(
      fill(*rtb, "«Time Entry Name» «Time Entry Locked» «Unknown»", {2, 101, -1, -1, -1, 2, -1}),
      "Unlocked entry «Time Entry Locked» «Unknown»");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{13}) << errorLog();
  EXPECT_EQ(env.refs.errors->shownWithStack.back().back(),
            "Tallowbrook.exe-clsInsertFieldsInRTB-parseRTBComment");
}

TEST_F(ParsePassTest, PreviewOfAYesNoFieldEndsInTheConversionError) {
  // The samples of the Yes/No rows are "Yes" and "No", which the truth-value conversion refuses.
  auto rtb = closedCatalogue(list_type::kDocketInfo);
  EXPECT_EQ(fill(*rtb, "Invoiced: «Is Invoiced»", {}, true), "Invoiced: «Is Invoiced»");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{13}) << errorLog();
}

TEST_F(ParsePassTest, ResumeNextGoesOnWithTheFill) {
  env.refs.errors->action = 1;
  auto rtb = openedCatalogue(list_type::kDocketInfo);
  EXPECT_EQ(
      fill(*rtb, "«Time Entry Locked» «Time Entry Name» «Unknown»", {2, 101, -1, -1, -1, 2, -1}),
      " Unlocked entry ");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{13}) << errorLog();
}

TEST_F(ParsePassTest, WithoutConnectionPlaceholdersAreBlanked) {
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  db->connected = false;
  EXPECT_EQ(fill(*rtb, "Dear «Contact First Name», «(Todays Date, d)»", ann), "Dear , ");
  EXPECT_TRUE(db->queries.empty());
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
}

}  // namespace
}  // namespace nvwm::testing
