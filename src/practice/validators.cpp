// The existence tests of modDatabaseFunctions: does this ID name a row?
//
// The ID arrives as text. It is checked (connection, not Null, numeric, not negative as a
// 32-bit number) before anything is sent, and then, except for appointments, the caller's text
// goes into the SQL as it stands: "1e3" passes the numeric test and is sent as "1e3", which
// the database reads as 1000.
#include "practice/lookup_shape.h"
#include "practice/lookups.h"

namespace nvwm {

using practice::LookupRoutine;

namespace {

struct ExistenceTest {
  std::string_view routine;
  std::string_view sqlPrefix;
  // Puts the converted number, not the caller's text, into the SQL.
  bool sendsConvertedNumber = false;
};

bool rowExists(const ExistenceTest& test, const std::string& id) {
  LookupRoutine r(test.routine);
  bool result = false;
  if (!r.connected()) return result;
  bool usable = false;
  int32_t number = 0;
  r.step([&] {
    const Variant text{id};
    if (practice::variantUtility().isNullValue(text) || !IsNumeric(text)) return;
    number = CLng(text);  // 6 when the text is too large for 32 bits
    usable = number >= 0;
  });
  if (!usable || !r.running()) return result;
  const std::string sql =
      std::string(test.sqlPrefix) + (test.sendsConvertedNumber ? std::to_string(number) : id) + ";";
  const Handle h = r.open(sql);
  result = r.hasRows(h);
  r.close(h);
  return result;
}

// clang-format off
constexpr ExistenceTest kAppointment{"validAppointmentID",
    "SELECT Appointments.AppointmentID FROM Appointments WHERE AppointmentID = ", true};
constexpr ExistenceTest kDocket{"validDocketID",
    "SELECT Dockets.DocketID FROM Dockets WHERE DocketID = "};
constexpr ExistenceTest kSchedule{"validScheduleID",
    "SELECT Schedule.ScheduleID FROM Schedule WHERE ScheduleID = "};
constexpr ExistenceTest kTask{"validTaskID",
    "SELECT Tasks.TaskID FROM Tasks WHERE TaskID = "};
constexpr ExistenceTest kClient{"validClientID",
    "SELECT ClientData.ClientDataID FROM ClientData WHERE ClientDataID = "};
constexpr ExistenceTest kCompany{"validCompanyID",
    "SELECT Companies.CompanyID FROM Companies WHERE CompanyID = "};
constexpr ExistenceTest kContact{"validContactID",
    "SELECT Contacts.ContactID FROM Contacts WHERE ContactID = "};
constexpr ExistenceTest kFirm{"validFirmID",
    "SELECT AccountantFirmInfo.CompanyID FROM AccountantFirmInfo WHERE CompanyID = "};
constexpr ExistenceTest kEmployee{"validEmployeeID",
    "SELECT AccountantEmployeeInfo.ContactID FROM AccountantEmployeeInfo WHERE ContactID = "};
// clang-format on

}  // namespace

bool validAppointmentID(const std::string& appointmentID) {
  return rowExists(kAppointment, appointmentID);
}
bool validDocketID(const std::string& docketID) { return rowExists(kDocket, docketID); }
bool validScheduleID(const std::string& scheduleID) { return rowExists(kSchedule, scheduleID); }
bool validTaskID(const std::string& taskID) { return rowExists(kTask, taskID); }
bool validClientID(const std::string& clientID) { return rowExists(kClient, clientID); }
bool validCompanyID(const std::string& companyID) { return rowExists(kCompany, companyID); }
bool validContactID(const std::string& contactID) { return rowExists(kContact, contactID); }
bool validFirmID(const std::string& firmID) { return rowExists(kFirm, firmID); }
bool validEmployeeID(const std::string& employeeID) { return rowExists(kEmployee, employeeID); }

}  // namespace nvwm
