// The data sets of the value routines live between calls: a record's fields cost one filtered
// open, the remembered IDs are shared, rejected IDs change nothing, and the whole data sets
// are opened once and searched.
#include <gtest/gtest.h>

#include "engine/values_test_support.h"

namespace nvwm::testing {
namespace {

class DataSetReuseTest : public ValuesTest {
 protected:
  std::unique_ptr<clsInsertFieldsInRTB> rtb = closedCatalogue(list_type::kTaskInfo);
};

using Texts = std::vector<std::string>;

TEST_F(DataSetReuseTest, ContactFieldsOfOneRecordOpenItOnce) {
  const RecordIDs ann{-1, 101, -1, -1, -1, -1, -1};
  EXPECT_EQ(field(*rtb, "Contact First Name", ann), "Ann");
  EXPECT_EQ(db->sqlSent(), (Texts{
                               "SELECT Contacts.ContactID FROM Contacts WHERE ContactID = 101;",
                               "SELECT Contacts.* From Contacts WHERE Contacts.ContactID=101;",
                           }));
  db->clear();
  EXPECT_EQ(field(*rtb, "Contact Last Name", ann), "Brown");
  EXPECT_EQ(dateField(*rtb, "Contact Birthday", "yyyy", ann), "1985");
  EXPECT_EQ(field(*rtb, "Contact & Spouse Name", ann), "Ann & Samuel Brown");
  EXPECT_TRUE(db->queries.empty());
}

TEST_F(DataSetReuseTest, AnotherContactRefiltersTheDataSet) {
  EXPECT_EQ(field(*rtb, "Contact First Name", {-1, 101, -1, -1, -1, -1, -1}), "Ann");
  const Handle first = db->opened.back();
  db->clear();
  EXPECT_EQ(field(*rtb, "Contact First Name", {-1, 102, -1, -1, -1, -1, -1}), "Robert");
  EXPECT_EQ(db->events, (Texts{
                            "open SELECT Contacts.ContactID FROM Contacts WHERE ContactID = 102;",
                            "close " + std::to_string(db->opened.front()),
                            "close " + std::to_string(first),
                            "open SELECT Contacts.* From Contacts WHERE Contacts.ContactID=102;",
                        }));
}

TEST_F(DataSetReuseTest, RejectedIDKeepsTheOldFilter) {
  EXPECT_EQ(field(*rtb, "Contact First Name", {-1, 101, -1, -1, -1, -1, -1}), "Ann");
  db->clear();
  // 999 is no contact: the data set stays filtered on 101, where 999 isn't found.
  EXPECT_EQ(field(*rtb, "Contact First Name", {-1, 999, -1, -1, -1, -1, -1}), "");
  EXPECT_EQ(db->sqlSent(), Texts{"SELECT Contacts.ContactID FROM Contacts WHERE ContactID = 999;"});
  // 101 is still remembered: no refilter.
  db->clear();
  EXPECT_EQ(field(*rtb, "Contact First Name", {-1, 101, -1, -1, -1, -1, -1}), "Ann");
  EXPECT_TRUE(db->queries.empty());
}

TEST_F(DataSetReuseTest, NegativeIDAsksNothing) {
  EXPECT_EQ(field(*rtb, "Contact First Name", {2, -1, -1, -1, -1, -1, -1}), "");
  EXPECT_EQ(field(*rtb, "Company Name", {-1, 101, -1, -1, -1, -1, -1}), "");
  EXPECT_EQ(field(*rtb, "Appointment Name", {2, 101, -1, -1, -1, -1, -1}), "");
  EXPECT_TRUE(db->queries.empty());
}

TEST_F(DataSetReuseTest, SoftwareSharesTheCompanyRemembered) {
  const RecordIDs bakery{2, -1, -1, -1, -1, -1, -1};
  EXPECT_EQ(field(*rtb, "Company Name", bakery), "Maple Leaf Bakery Inc.");
  db->clear();
  // The company is remembered already: the software isn't filtered, but opened whole.
  EXPECT_EQ(field(*rtb, "Software Name", bakery), "Simply Accounting");
  EXPECT_EQ(
      db->sqlSent(),
      Texts{"SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True;"});
}

TEST_F(DataSetReuseTest, SoftwareFirstFiltersOnTheCompany) {
  EXPECT_EQ(field(*rtb, "Software Name", {2, -1, -1, -1, -1, -1, -1}), "Simply Accounting");
  EXPECT_EQ(
      db->sqlSent(),
      (Texts{"SELECT Companies.CompanyID FROM Companies WHERE CompanyID = 2;",
             "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True "
             "AND SoftwareInfo.CompanyIDNum=2;"}));
  // The company data set now skips its filter for company 2 and opens whole.
  db->clear();
  EXPECT_EQ(field(*rtb, "Company Name", {2, -1, -1, -1, -1, -1, -1}), "Maple Leaf Bakery Inc.");
  EXPECT_EQ(db->sqlSent(), Texts{"SELECT Companies.* From Companies;"});
}

TEST_F(DataSetReuseTest, WholeDataSetsAreOpenedOnceAndSearched) {
  EXPECT_EQ(field(*rtb, "Your Company Name", {-1, -1, -1, 1, -1, -1, -1}), "Bellwood Lane CPA");
  EXPECT_EQ(field(*rtb, "Task Name", {-1, -1, -1, -1, -1, -1, 1}), "Q1 GST filing");
  EXPECT_EQ(field(*rtb, "Business Number", {2, -1, -1, -1, -1, -1, -1}), "123456789RT0001");
  const size_t opened = db->queries.size();
  EXPECT_EQ(opened, 3u);
  EXPECT_EQ(field(*rtb, "Your City", {-1, -1, -1, 1, -1, -1, -1}), "Kingston");
  EXPECT_EQ(field(*rtb, "Employee Assigned", {-1, -1, 1, -1, -1, -1, -1}), "Ms. Accountant");
  EXPECT_EQ(field(*rtb, "RC59 Form Status", {3, -1, -1, -1, -1, -1, -1}), "");
  EXPECT_EQ(db->queries.size(), opened);
}

TEST_F(DataSetReuseTest, TaskOutsideTheJoinIsCheckedAndSearchedAgain) {
  EXPECT_EQ(field(*rtb, "Task Name", {-1, -1, -1, -1, -1, -1, 1}), "Q1 GST filing");
  db->clear();
  // Task 2 has no schedule entry: the association check runs and makes one, then the data set
  // is opened again and searched again, and finds the task in the join.
  EXPECT_EQ(field(*rtb, "Task Name", {-1, -1, -1, -1, -1, -1, 2}), "Loose task");
  const Texts sent = db->sqlSent();
  ASSERT_GE(sent.size(), 3u);
  EXPECT_EQ(sent.front(), "SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=2;");
  EXPECT_EQ(sent.back().rfind("SELECT Schedule.*, Tasks.TaskID", 0), 0u);
  EXPECT_EQ(practice.stored("SELECT COUNT(*) FROM Schedule;"), "3");

  // A schedule entry without a task: its check makes the task, then the data set again.
  db->clear();
  EXPECT_EQ(field(*rtb, "Employee Assigned", {-1, -1, 2, -1, -1, -1, -1}), "Ms. Accountant");
  EXPECT_EQ(db->sqlSent().at(1), "SELECT Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=2;");
  EXPECT_EQ(practice.stored("SELECT COUNT(*) FROM Tasks;"), "3");
  // Read again, nothing more is made.
  EXPECT_EQ(field(*rtb, "Task Name", {-1, -1, -1, -1, -1, -1, 2}), "Loose task");
  EXPECT_EQ(field(*rtb, "Employee Assigned", {-1, -1, 2, -1, -1, -1, -1}), "Ms. Accountant");
  EXPECT_EQ(practice.stored("SELECT COUNT(*) FROM Schedule;") +
                practice.stored("SELECT COUNT(*) FROM Tasks;"),
            "33");
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
}

TEST_F(DataSetReuseTest, AppointmentsRememberTheRecordID) {
  EXPECT_EQ(field(*rtb, "Appointment Name", {-1, -1, -1, -1, 1, -1, -1}), "");
  // The task list has no appointment rows; the appointment list has.
  auto appointments = closedCatalogue(list_type::kAppointmentInfo);
  EXPECT_EQ(field(*appointments, "Appointment Name", {-1, -1, -1, -1, 1, -1, -1}),
            "Year-end review");
  EXPECT_EQ(db->sqlSent().back(),
            "SELECT Appointments.* From Appointments WHERE Appointments.appointmentid=1;");
  db->clear();
  EXPECT_EQ(dateField(*appointments, "Appointment Date", "d", {-1, -1, -1, -1, 1, -1, -1}), "2");
  EXPECT_TRUE(db->queries.empty());
}

}  // namespace
}  // namespace nvwm::testing
