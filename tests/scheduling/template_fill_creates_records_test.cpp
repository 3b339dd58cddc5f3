// A template that reads task or schedule data of a record with no other half makes that half,
// through the template engine's own path, once.
#include <gtest/gtest.h>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::SchedulingFixture;
using testing::storedDate;

class TemplateFillCreatesRecordsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f.addPractice();
    // Item 20 has no task; task 30 has no schedule entry.
    f.exec(
        "INSERT INTO Schedule (ScheduleID, ClientNum, ScheduleName, EmployeeAssigned, "
        "DueDate, inHouseDueDate, totalNum, scheduleNum, CompanyProjectStepIDNum, "
        "ScheduleNotes) VALUES (20, 9, 'GST Return', 'Ann Ledger', '" +
        storedDate(2026, 11, 23) + "', '" + storedDate(2026, 11, 20) +
        "', 101, 0, -1, 'Call first');"
        "INSERT INTO Tasks (TaskID, UserIDNum, CompanyIDNum, Subject, DateFrom, hideInTasks, "
        "CompanyProjectStepIDNum, notifyType) VALUES (30, 7, 6, 'Review books', '" +
        storedDate(2026, 11, 27) + "', 0, -1, 0);");
    fields.errorClassRTB(references().errorClass);
    fields.initializeDataRecordsets(8, false, -1, false, true, true, true, true, -1, -1);
  }
  std::string fill(const std::string& text, int32_t scheduleID, int32_t taskID) {
    int32_t company = -1, contact = -1, firm = -1, appointment = -1, docket = -1;
    bool sample = false, rtf = false, useContact = false;
    return fields.parseRTBComment(text, company, contact, scheduleID, firm, appointment, docket,
                                  taskID, sample, rtf, useContact);
  }
  SchedulingFixture f;
  clsInsertFieldsInRTB fields;
};

TEST_F(TemplateFillCreatesRecordsTest, ReadingTheTaskOfAnItemWithoutOneMakesIt) {
  EXPECT_EQ(fill("«Task Subject» at «Task Start Time»", 20, -1), "GST Return at 9:00 am")
      << f.describeErrors();
  EXPECT_EQ(f.stored("SELECT count(*) || '|' || DateFrom FROM Tasks WHERE ScheduleIDNum = 20;"),
            "1|" + storedDate(2026, 11, 20));
  EXPECT_EQ(fill("«Task Subject» at «Task Start Time»", 20, -1), "GST Return at 9:00 am");
  EXPECT_EQ(f.stored("SELECT count(*) FROM Tasks WHERE ScheduleIDNum = 20;"), "1");
  EXPECT_TRUE(f.errorNumbers().empty()) << f.describeErrors();
}

TEST_F(TemplateFillCreatesRecordsTest, ReadingTheEntryOfATaskWithoutOneMakesIt) {
  EXPECT_EQ(fill("«Task Name», due «(Task Due Date, mmmm d yyyy)»", -1, 30),
            "Review books, due November 27 2026")
      << f.describeErrors();
  EXPECT_EQ(f.count("Schedule"), 2);
  EXPECT_EQ(f.stored("SELECT ScheduleName FROM Schedule WHERE ScheduleID = (SELECT "
                     "ScheduleIDNum FROM Tasks WHERE TaskID = 30);"),
            "Review books");
  fill("«Task Name»", -1, 30);
  EXPECT_EQ(f.count("Schedule"), 2);
  EXPECT_TRUE(f.errorNumbers().empty()) << f.describeErrors();
}

TEST_F(TemplateFillCreatesRecordsTest, AFillOfOtherFieldsMakesNothing) {
  EXPECT_EQ(fill("«Company Name»", 20, 30), "");
  EXPECT_EQ(f.count("Schedule"), 1);
  EXPECT_EQ(f.count("Tasks"), 1);
}

}  // namespace
}  // namespace nvwm
