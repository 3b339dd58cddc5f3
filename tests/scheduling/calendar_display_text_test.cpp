// The calendar texts of appointments, time entries and tasks from each user's templates.
#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "scheduling/calendar_text.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::SchedulingFixture;
using testing::storedDate;
using testing::storedTime;

// Task 30 carries entry 20 for Ann (7): "GST Return" for Maple Leaf Bakery Inc., 9:00 to 10:30.
// Appointment 40 and time entry 50 stand on the same day.
class CalendarDisplayTextTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f.addPractice();
    f.exec(
        "INSERT INTO Schedule (ScheduleID, ClientNum, ScheduleName) VALUES (20, 9, 'GST');"
        "INSERT INTO Tasks (TaskID, ScheduleIDNum, UserIDNum, CompanyIDNum, ContactIDNum, "
        "Subject, DateFrom, TimeFrom, TimeTo) VALUES (30, 20, 7, 5, 12, 'GST Return', '" +
        storedDate(2026, 11, 20) + "', '" + storedTime(9, 0) + "', '" + storedTime(10, 30) +
        "'), (31, 20, 7, 6, NULL, 'Payroll', '" + storedDate(2026, 11, 20) + "', '" +
        storedTime(13, 0) + "', '" + storedTime(14, 0) +
        "');"
        "INSERT INTO Appointments (AppointmentID, CompanyIDNum, Subject, TimeFrom, TimeTo) "
        "VALUES (40, 6, 'Year-end meeting', '" +
        storedTime(11, 0) + "', '" + storedTime(12, 0) +
        "');"
        "INSERT INTO Dockets (DocketID, CompanyIDNum, Subject, TimeFrom, TimeTo) VALUES (50, "
        "5, 'Bookkeeping', '" +
        storedTime(15, 0) + "', '" + storedTime(16, 15) + "');");
  }
  // A catalogue standing on the record, as createTextByID sets it up.
  std::unique_ptr<clsInsertFieldsInRTB> opened(int32_t listType, int32_t recordID, int32_t company,
                                               int32_t contact) {
    auto fields = std::make_unique<clsInsertFieldsInRTB>();
    fields->errorClassRTB(references().errorClass);
    fields->initializeDataRecordsets(listType, false, recordID, false, true, true, true, true,
                                     company, contact);
    return fields;
  }
  std::string display(clsInsertFieldsInRTB& fields, int32_t appointment, int32_t docket,
                      int32_t task, bool sample = false, int32_t company = 5,
                      int32_t contact = 12) {
    int32_t user = 7;
    bool rtf = false;
    bool useContact = true;
    return fields.createDisplayTextByID(user, company, contact, appointment, docket, task, sample,
                                        rtf, useContact);
  }
  std::string title(clsInsertFieldsInRTB& fields, int32_t task) {
    int32_t user = 7;
    bool rtf = false;
    bool useContact = true;
    return fields.createTitleBarTextByID(user, 5, 12, -1, -1, task, rtf, useContact);
  }
  void setTemplate(const char* column, const char* value) {
    f.exec(std::string("INSERT OR IGNORE INTO UserCalendarSettings (UserIDNum) VALUES (7);"
                       "UPDATE UserCalendarSettings SET ") +
           column + " = " + value + ";");
  }
  SchedulingFixture f;
};

TEST_F(CalendarDisplayTextTest, TheDefaultTemplateOfEachKind) {
  auto task = opened(8, 30, 5, 12);
  EXPECT_EQ(display(*task, -1, -1, 30),
            "GST Return for Maple Leaf Bakery Inc.\r\n9:00 am to 10:30 am")
      << f.describeErrors();
  auto appointment = opened(5, 40, 6, -1);
  EXPECT_EQ(display(*appointment, 40, -1, -1, false, 6, -1),
            "Year-end meeting for Cedar Books\r\n11:00 am to 12:00 pm");
  auto docket = opened(6, 50, 5, -1);
  EXPECT_EQ(display(*docket, -1, 50, -1, false, 5, -1),
            "3:00 pm to 4:15 pm\r\n  Maple Leaf Bakery Inc.\r\nBookkeeping");
  EXPECT_TRUE(f.errorNumbers().empty()) << f.describeErrors();
}

TEST_F(CalendarDisplayTextTest, AStoredTemplateIsUsedUnlessItStandsForNone) {
  const struct {
    const char* stored;
    const char* expected;
  } cases[] = {
      {"'«Task Subject» at «Task Start Time»'", "GST Return at 9:00 am"},
      {"'Call «Contact Display Name»'", "Call Sam Baker"},
      {"'0'", "GST Return for Maple Leaf Bakery Inc.\r\n9:00 am to 10:30 am"},
      {"'Text Constant'", "GST Return for Maple Leaf Bakery Inc.\r\n9:00 am to 10:30 am"},
      {"''", "GST Return for Maple Leaf Bakery Inc.\r\n9:00 am to 10:30 am"},
      {"NULL", "GST Return for Maple Leaf Bakery Inc.\r\n9:00 am to 10:30 am"},
      {"'text constant'", "text constant"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.stored);
    setTemplate("TemplateTask", c.stored);
    auto task = opened(8, 30, 5, 12);
    EXPECT_EQ(display(*task, -1, -1, 30), c.expected);
  }
  EXPECT_TRUE(f.errorNumbers().empty()) << f.describeErrors();
}

TEST_F(CalendarDisplayTextTest, TheRecordsFramingTextsStandAboveAndBelow) {
  setTemplate("TemplateTask", "'«Task Subject»'");
  const struct {
    const char* before;
    const char* after;
    const char* expected;
  } cases[] = {
      {"NULL", "NULL", "GST Return"},
      {"'Call first'", "NULL", "Call first\r\nGST Return"},
      {"NULL", "'Bring the binder'", "GST Return\r\nBring the binder"},
      {"'Call first'", "'Bring the binder'", "Call first\r\nGST Return\r\nBring the binder"},
      {"''", "''", "GST Return"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.before) + " " + c.after);
    f.exec(std::string("UPDATE Tasks SET BeforeAppointmentText = ") + c.before +
           ", AfterAppointmentText = " + c.after + " WHERE TaskID = 30;");
    auto task = opened(8, 30, 5, 12);
    EXPECT_EQ(display(*task, -1, -1, 30), c.expected);
  }
}

TEST_F(CalendarDisplayTextTest, WithSampleDataABrokenTemplateGivesTheDefaultWithSamples) {
  setTemplate("TemplateTask", "'«Task Subject'");
  auto task = opened(8, 30, 5, 12);
  EXPECT_EQ(display(*task, -1, -1, 30, true),
            "1st Quarterly GST Payment for ABC Consulting\r\n9:00 am to 9:30 am");
  // Without sample data the template is filled as it stands.
  EXPECT_EQ(display(*task, -1, -1, 30), "«Task Subject");
}

TEST_F(CalendarDisplayTextTest, AnotherRecordMovesTheDataSetOnceTheSameOneNever) {
  setTemplate("TemplateTask", "'«Task Subject»'");
  auto task = opened(8, 30, 5, 12);
  f.db().clear();
  EXPECT_EQ(display(*task, -1, -1, 30), "GST Return");
  const std::string reopen31 = "SELECT Tasks.* From Tasks WHERE Tasks.TaskID=31;";
  auto sent = f.db().sqlSent();
  EXPECT_EQ(std::count_if(sent.begin(), sent.end(),
                          [](const std::string& q) { return q.find("Tasks.* From") != q.npos; }),
            0);
  EXPECT_EQ(display(*task, -1, -1, 31, false, 6, -1), "Payroll");
  EXPECT_EQ(display(*task, -1, -1, 31, false, 6, -1), "Payroll");
  sent = f.db().sqlSent();
  EXPECT_EQ(std::count(sent.begin(), sent.end(), reopen31), 1);
  // An ID that names no task leaves the data set where it stood.
  EXPECT_EQ(display(*task, -1, -1, 99, false, 6, -1), "Payroll");
}

TEST_F(CalendarDisplayTextTest, AUserWithoutSettingsGainsARow) {
  auto task = opened(8, 30, 5, 12);
  EXPECT_EQ(f.count("UserCalendarSettings"), 0);
  display(*task, -1, -1, 30);
  EXPECT_EQ(f.stored("SELECT UserIDNum || '|' || coalesce(TemplateTask, 'N') FROM "
                     "UserCalendarSettings;"),
            "7|N");
  title(*task, 30);
  EXPECT_EQ(f.count("UserCalendarSettings"), 1);
}

TEST_F(CalendarDisplayTextTest, OtherListTypesHaveNoText) {
  auto company = opened(1, -1, 5, 12);
  EXPECT_EQ(display(*company, -1, -1, 30), "");
  EXPECT_EQ(title(*company, 30), "");
}

TEST_F(CalendarDisplayTextTest, WithoutAnErrorServiceNothingIsDone) {
  auto task = opened(8, 30, 5, 12);
  auto bare = std::make_unique<clsInsertFieldsInRTB>();
  EXPECT_EQ(display(*bare, -1, -1, 30), "");
  EXPECT_EQ(title(*bare, 30), "");
  EXPECT_EQ(f.count("UserCalendarSettings"), 0);
}

TEST_F(CalendarDisplayTextTest, TheTitleHasNoDefaultAndTakesABareFieldName) {
  auto task = opened(8, 30, 5, 12);
  EXPECT_EQ(title(*task, 30), "");  // a Null column
  const struct {
    const char* stored;
    const char* expected;
  } cases[] = {
      {"'Task Subject'", "GST Return"},
      {"'«Task Subject»'", "GST Return"},
      {"'«Task Subject» for «Company Name»'", "GST Return for Maple Leaf Bakery Inc."},
      // Only a missing bracket at either end is added.
      {"'Task Subject» (x)'", "GST Return (x)»"},
      {"''", ""},
      // "0" stands for nothing in the display template only; here it is a field name.
      {"'0'", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.stored);
    setTemplate("TitleBarTextTask", c.stored);
    // Framing texts are not part of a title.
    f.exec("UPDATE Tasks SET BeforeAppointmentText = 'Call first';");
    EXPECT_EQ(title(*opened(8, 30, 5, 12), 30), c.expected);
  }
  f.db().connected = false;
  EXPECT_EQ(title(*task, 30), "");
}

TEST_F(CalendarDisplayTextTest, CreateTextByIDUsesTheCompanysDefaultContact) {
  setTemplate("TemplateTask", "'«Task Subject» with «Contact Display Name»'");
  setTemplate("TemplateAppt", "'«Appointment Name» with «Contact Display Name»'");
  f.exec(
      "INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES (5, 12, 1), "
      "(6, 12, 1);"
      "UPDATE Tasks SET ContactIDNum = 77 WHERE TaskID = 30;");
  EXPECT_EQ(createTextByID(1, 30, 7), "GST Return with Sam Baker");
  EXPECT_EQ(createTextByID(0, 40, 7), "Year-end meeting with Sam Baker");
  EXPECT_EQ(createTextByID(3, 30, 7), "");
  EXPECT_TRUE(f.errorNumbers().empty()) << f.describeErrors();
  EXPECT_EQ(f.errors().entered.front(), "Tallowbrook.exe-modApptCtrl-createTextByID");
}

}  // namespace
}  // namespace nvwm
