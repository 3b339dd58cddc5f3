// clsInsertFieldsInRTB: life cycle, properties, and the data sets behind the fields.
//
// The data sets are read-only keyset recordsets held by DatabaseReference behind handles. A
// handle keeps its number after closeDataRecordsets; the next open replaces it. A handle is
// stored only once the service has returned it, so a failed open leaves the earlier number.
#include "catalogue/cls_insert_fields_in_rtb.h"

#include <string>

#include "host/references.h"
#include "host/routine.h"
#include "practice/client_list_sql.h"
#include "runtime/error.h"

namespace nvwm {
namespace {

constexpr const char* kScheduleTasksQuery =
    "SELECT Schedule.*, Tasks.TaskID, Tasks.EstimatedTime, Tasks.Subject, Tasks.DateFrom, "
    "Tasks.TimeFrom, Tasks.TimeTo, Tasks.AppointmentText, Tasks.TextBody, Tasks.Custom1 AS "
    "TaskCustom1, Tasks.Custom2 AS TaskCustom2, Tasks.Custom3 AS TaskCustom3, Tasks.Custom4 AS "
    "TaskCustom4, Tasks.Custom5 AS TaskCustom5 FROM Schedule INNER JOIN Tasks ON "
    "Schedule.ScheduleID = Tasks.ScheduleIDNum";

// "SELECT T.* From T;" for all rows, or "... WHERE T.<key>=<id>;" for a non-negative ID.
std::string tableQuery(const std::string& table, const char* key, int32_t id) {
  std::string sql = "SELECT " + table + ".* From " + table;
  if (id >= 0) sql += " WHERE " + table + "." + key + "=" + std::to_string(id);
  return sql + ";";
}

DatabaseService& database() {
  return requireReference(references().DatabaseReference, "DatabaseReference");
}

// An empty DatabaseReference counts as a database that is not connected.
bool databaseConnected() {
  DatabaseService* db = references().DatabaseReference.get();
  return db != nullptr && db->isConnected();
}

Handle openReadOnly(const std::string& sql) {
  return database().openRecordset(sql, kCursorKeyset, kLockReadOnly, true, "", true);
}

}  // namespace

clsInsertFieldsInRTB::clsInsertFieldsInRTB() {
  auto& create = factories().createIDList;
  if (create) FieldListStructure_ = create();
  if (FieldListStructure_ == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "IDList");
  FieldListStructure_->initialize();
}

clsInsertFieldsInRTB::~clsInsertFieldsInRTB() {
  FieldListStructure_.reset();
  try {
    closeDataRecordsets();
  } catch (...) {
    // Class_Terminate reports nothing.
  }
}

void clsInsertFieldsInRTB::errorClassRTB(std::shared_ptr<ErrorService> errors) {
  errorClassRTB_ = std::move(errors);
  HasErrorClassRTB_ = true;
}

void clsInsertFieldsInRTB::MsgboxClassRTB(std::shared_ptr<MessageService> messages) {
  MsgboxClassRTB_ = std::move(messages);
  HasMsgboxClassRTB_ = true;
}

void clsInsertFieldsInRTB::MergeFieldListUse(int32_t use) {
  MergeFieldListUse_ = use;
  // Forced only at the moment of setting: headers may be switched back on afterwards.
  if (use == kListUseAssignment) ShowListCategoryHeaders_ = false;
}

void clsInsertFieldsInRTB::initializeDataRecordsets(int32_t listType, bool openAll,
                                                    int32_t recordID, bool openMainClient,
                                                    bool openCompanies, bool openContacts,
                                                    bool openAccountantFirm,
                                                    bool openAccountantEmployee, int32_t companyID,
                                                    int32_t contactID) {
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-initializeDataRecordsets", errorService());
  r.step([&] {
    ListType_ = listType;
    RecordID_ = recordID;
    CompanyID_ = companyID;
    ContactID_ = contactID;
  });
  r.step([&] { closeDataRecordsets(); });
  bool connected = false;
  r.step([&] { connected = databaseConnected(); });
  if (connected) {
    r.step([&] {
      if (openMainClient || openAll)
        MainClientRST_ = openReadOnly(getMainBusinessSQLString(false, 3));
    });
    r.step([&] {
      if (openCompanies || openAll) {
        CompaniesRST_ = openReadOnly(tableQuery("Companies", "companyID", CompanyID_));
      }
    });
    r.step([&] {
      if (openContacts || openAll) {
        ContactsRST_ = openReadOnly(tableQuery("Contacts", "ContactID", ContactID_));
      }
    });
    r.step([&] {
      if (!(openMainClient || openCompanies || openContacts || openAll)) return;
      std::string sql =
          "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True";
      if (CompanyID_ >= 0) {
        sql += " AND SoftwareInfo.CompanyIDNum=" + std::to_string(CompanyID_);
      } else if (ContactID_ >= 0) {
        sql += " AND SoftwareInfo.ContactIDNum=" + std::to_string(ContactID_);
      }
      SoftwareInfoRST_ = openReadOnly(sql + ";");
    });
    r.step([&] {
      if (openAccountantFirm || openAll) {
        AccountantFirmRST_ = openReadOnly("SELECT AccountantFirmInfo.* From AccountantFirmInfo;");
      }
    });
    r.step([&] {
      if (openAccountantEmployee || openAll) {
        AccountantEmployeeRST_ =
            openReadOnly("SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo;");
      }
    });
    if (openAll) {
      // Every calendar set, unfiltered: RecordID is ignored here.
      r.step([&] { AppointmentsRST_ = openReadOnly(tableQuery("Appointments", "", -1)); });
      r.step([&] { DocketsRST_ = openReadOnly(tableQuery("Dockets", "", -1)); });
      r.step([&] { ScheduleTasksRST_ = openReadOnly(std::string(kScheduleTasksQuery) + ";"); });
    } else {
      r.step([&] {
        switch (listType) {
          case list_type::kAppointmentInfo:
            AppointmentsRST_ = openReadOnly(tableQuery("Appointments", "AppointmentID", RecordID_));
            break;
          case list_type::kDocketInfo:
            DocketsRST_ = openReadOnly(tableQuery("Dockets", "DocketID", RecordID_));
            break;
          case list_type::kTaskInfo: {
            std::string sql = kScheduleTasksQuery;
            if (RecordID_ >= 0) sql += " WHERE Tasks.TaskID=" + std::to_string(RecordID_);
            ScheduleTasksRST_ = openReadOnly(sql + ";");
            break;
          }
          default:
            break;
        }
      });
    }
  }
  r.step([&] {
    bool noList = true;  // recomputed inside
    createDefaultFieldListStructure(ListType_, noList, true);
  });
}

void clsInsertFieldsInRTB::closeDataRecordsets() {
  if (!databaseConnected()) return;
  DatabaseService& db = database();
  for (Handle h : {CompaniesRST_, ContactsRST_, MainClientRST_, SoftwareInfoRST_, AppointmentsRST_,
                   DocketsRST_, ScheduleTasksRST_, AccountantFirmRST_, AccountantEmployeeRST_}) {
    if (db.isRecordsetOpen(h)) db.closeRecordset(h);
  }
}

}  // namespace nvwm
