// getDataDateField: dates and times of the practice printed with a format; "Todays Date";
// samples; getTimeDurationFieldValue.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"
#include "engine/values_test_support.h"
#include "runtime/convert.h"

namespace nvwm::testing {
namespace {

class DateFieldTest : public ValuesTest {};

TEST_F(DateFieldTest, DatesAndTimesFromThePractice) {
  const struct {
    int32_t listType;
    const char* name;
    const char* format;
    RecordIDs ids;
    const char* expected;
  } cases[] = {
      {1, "Contact Birthday", "mmmm d, yyyy", {2, 101, -1, -1, -1, -1, -1}, "June 18, 1985"},
      {1,
       "Contact Birthday",
       "dddd mmmm d yyyy",
       {2, 101, -1, -1, -1, -1, -1},
       "Tuesday June 18 1985"},
      // A "Text" row whose column holds a date prints as a date.
      {1, "Spouse Birthday", "mmm d yyyy", {2, 101, -1, -1, -1, -1, -1}, "Oct 27 1997"},
      {1, "Year End Date", "dd/mmm/yy", {2, -1, -1, -1, -1, -1, -1}, "31/Mar/26"},
      {1, "Year End Date", "mm/dd/yy", {2, -1, -1, -1, -1, -1, -1}, "03/31/26"},
      {1, "Contact Anniversary", "mmmm d yyyy", {2, 101, -1, -1, -1, -1, -1}, ""},
      // A column that holds no date gives nothing, without an error.
      {1, "Contact First Name", "mmmm d yyyy", {2, 101, -1, -1, -1, -1, -1}, ""},
      {1, "No Such Field", "mmmm d yyyy", {2, 101, -1, -1, -1, -1, -1}, ""},
      {1, "Contact Birthday", "mmmm d yyyy", {2, -1, -1, -1, -1, -1, -1}, ""},
      {5, "Appointment Date", "dddd", {-1, -1, -1, -1, 1, -1, -1}, "Thursday"},
      {5, "Appointment Start Time", "h:Nn am/pm", {-1, -1, -1, -1, 1, -1, -1}, "9:00 am"},
      {5, "Appointment End Time", "h:Nn am/pm", {-1, -1, -1, -1, 2, -1, -1}, "1:00 am"},
      {6, "Time Entry End Time", "h:Nn am/pm", {-1, -1, -1, -1, -1, 1, -1}, "1:31 pm"},
      {6, "Time Entry Start Time", "h:Nn am/pm", {-1, -1, -1, -1, -1, 2, -1}, ""},
      {8, "Task Due Date", "mmmm d yyyy", {-1, -1, -1, -1, -1, -1, 1}, "April 30 2026"},
      {8, "Task in-House Due Date", "mmmm d", {-1, -1, 1, -1, -1, -1, -1}, "April 23"},
      // Two rows are called "Task Calendar Date": the schedule entry's, added first, is found.
      {8, "Task Calendar Date", "mmmm d yyyy", {-1, -1, -1, -1, -1, -1, 1}, "April 27 2026"},
      {8, "Task Start Time", "h:Nn am/pm", {-1, -1, -1, -1, -1, -1, 1}, "2:00 pm"},
      // Schedule entry 2 gets its task on the way.
      {8, "Task Due Date", "yyyy", {-1, -1, 2, -1, -1, -1, -1}, "2026"},
      {8, "Task Due Date", "yyyy", {-1, -1, -1, -1, -1, -1, -1}, ""},
      // The pseudo field prints today with a connection, whatever the IDs.
      {1,
       "Todays Date",
       "dddd, mmmm d yyyy",
       {-1, -1, -1, -1, -1, -1, -1},
       "Sunday, March 15 2026"},
      {1, "TODAYS DATE", "dd/mm/yy", {-1, -1, -1, -1, -1, -1, -1}, "15/03/26"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.name) + ", " + c.format);
    auto rtb = openedCatalogue(c.listType);
    EXPECT_EQ(dateField(*rtb, c.name, c.format, c.ids), c.expected);
  }
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{}) << errorLog();
}

TEST_F(DateFieldTest, SamplesAreConvertedToDates) {
  auto rtb = closedCatalogue(list_type::kTaskInfo);
  db->connected = false;
  const RecordIDs none;
  EXPECT_EQ(dateField(*rtb, "Task Due Date", "mmmm d, yyyy", none, true), "January 31, 2026");
  EXPECT_EQ(dateField(*rtb, "Task Start Time", "h:Nn am/pm", none, true), "9:00 am");
  EXPECT_EQ(dateField(*rtb, "Todays Date", "mmm d yyyy", none, true), "Mar 15 2026");
  EXPECT_EQ(dateField(*rtb, "No Such Field", "mmm d yyyy", none, true), "");
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
  // A sample that isn't a date raises the conversion error, where the database path is silent.
  EXPECT_EQ(dateField(*rtb, "Task Name", "mmm d yyyy", none, true), "");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{13}) << errorLog();
  EXPECT_TRUE(db->queries.empty());
}

TEST_F(DateFieldTest, TodaysDateWithoutConnectionIsEmpty) {
  auto rtb = closedCatalogue(list_type::kCompanyInfo);
  db->connected = false;
  EXPECT_EQ(dateField(*rtb, "Todays Date", "mmmm d yyyy", {}), "");
  EXPECT_EQ(dateField(*rtb, "Todays Date", "mmmm d yyyy", {}, true), "March 15 2026");
}

TEST_F(DateFieldTest, RtfValueGoesThroughConvertToRtf) {
  auto rtb = closedCatalogue(list_type::kCompanyInfo);
  // A format may itself hold a line break; the value then gets the RTF paragraph mark.
  EXPECT_EQ(dateField(*rtb, "Todays Date", "mmmm\r\nyyyy", {}, false, true), "March\\par \r\n2026");
  EXPECT_EQ(dateField(*rtb, "Todays Date", "mmmm\r\nyyyy", {}, false, false), "March\r\n2026");
}

TEST_F(DateFieldTest, DurationCountsMinuteBoundariesEitherWay) {
  auto rtb = closedCatalogue(list_type::kCompanyInfo);
  const struct {
    const char* from;
    const char* to;
    const char* expected;
  } cases[] = {
      {"9:00", "10:30", "1 hr 30 min"},
      {"10:30", "9:00", "1 hr 30 min"},
      {"9:00", "9:00", "0 min"},
      {"9:00", "9:31", "31 min"},
      // Day-less times are counted as stored: 23:00 back to 1:00 is 22 hours.
      {"23:00", "1:00", "22 hrs"},
      {"9:59:59", "10:00:00", "1 min"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.from) + " to " + c.to);
    Variant from(CDate(Variant(c.from))), to(CDate(Variant(c.to)));
    EXPECT_EQ(rtb->getTimeDurationFieldValue(from, to), c.expected);
  }
  Variant from = Variant::null(), to(CDate(Variant("9:00")));
  EXPECT_EQ(rtb->getTimeDurationFieldValue(from, to), "");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{94}) << errorLog();
}

}  // namespace
}  // namespace nvwm::testing
