// Which records a run merges: the IDs of IDList, or for the kinds with a time line a filtered
// recordset on their whole table (the "remittance recordset", after its first use).
#include "engine/data_sets.h"
#include "host/routine.h"
#include "merge/cls_word_merge.h"
#include "practice/lookup_shape.h"
#include "runtime/error.h"

namespace nvwm {
namespace {

using engine::databaseConnected;
using practice::database;
using practice::variantUtility;

// The table of a kind that can be filtered; nullptr for the others.
const char* filterableSql(mergeInfo2 type) {
  switch (type) {
    case mergeInfo2::wordMergeRemittanceInfo:
      return "SELECT ClientData.ClientDataID, ClientData.ShowThisClient, Companies.CompanyName, "
             "Companies.OfficeNumber, Companies.FaxNumber, Companies.Email, "
             "Companies.DefaultContactName, Companies.DefaultContactPhoneNumber, "
             "Companies.DefaultContactFaxNumber, Companies.DefaultContactEmail, Schedule.* "
             "FROM (ClientData INNER JOIN Companies ON ClientData.CompanyIDNum = "
             "Companies.CompanyID) INNER JOIN Schedule ON ClientData.ClientDataID = "
             "Schedule.ClientNum WHERE ClientData.ShowThisClient = True;";
    case mergeInfo2::wordMergeAppointmentInfo:
      return "SELECT Appointments.* FROM Appointments ORDER BY Appointments.DateFrom, "
             "Appointments.TimeFrom;";
    case mergeInfo2::wordMergeDocketinfo:
      return "SELECT Dockets.* FROM Dockets ORDER BY Dockets.DateFrom, Dockets.TimeFrom;";
    default:
      return nullptr;
  }
}

}  // namespace

bool clsWordMerge::useIDListValues() {
  bool result = false;
  Routine r("TallowbrookPad.exe-clsWordmerge-useIDListValues");
  r.step([&] {
    switch (ListType_) {
      case mergeInfo2::wordMergeCompanyInfo:
      case mergeInfo2::wordMergeCompanyContactInfo:
      case mergeInfo2::wordMergeContactInfo:
        result = true;
        break;
      case mergeInfo2::wordMergeRemittanceInfo:
      case mergeInfo2::wordMergeAppointmentInfo:
        if (!IDList_) raise(ErrorNumber::kObjectVariableNotSet, "IDList");
        if (!IDList_->isEmpty()) {
          result = true;
        } else {
          // The product asks whether a filter stands; either answer leads to the filter.
          variantUtility().isNullValue(Variant(SQLFilter_));
          result = false;
        }
        break;
      default:
        // Dockets too: a docket list given by ID is ignored.
        result = false;
    }
  });
  return result;
}

bool clsWordMerge::connectToRemittRST() {
  bool result = false;
  Routine r("TallowbrookPad.exe-frmDocument-connectToRemittRST");
  if (!r.step([&] {
        if (!databaseConnected()) r.exit();
      }))
    return result;
  r.step([&] {
    if (filteredRecordsetHandle_ > kNoHandle) {
      if (database().isRecordsetOpen(filteredRecordsetHandle_)) {
        database().closeRecordset(filteredRecordsetHandle_);
      }
      if (database().isRecordsetOpen(baseRecordsetHandle_)) {
        database().closeRecordset(baseRecordsetHandle_);
      }
    }
  });
  r.step([&] {
    const char* sql = filterableSql(ListType_);
    // Other kinds open nothing, and the handles keep their old numbers.
    if (!sql) return;
    if (variantUtility().isNullValue(Variant(SQLFilter_))) {
      filteredRecordsetHandle_ = kNoHandle;
      return;
    }
    baseRecordsetHandle_ = database().openRecordset(sql, kCursorKeyset, kLockReadOnly);
    filteredRecordsetHandle_ = database().filterRecordset(baseRecordsetHandle_, SQLFilter_);
  });
  r.step([&] { result = filteredRecordsetHandle_ >= 0; });
  return result;
}

bool clsWordMerge::isRemittRSTConnected(bool& showMessage) {
  bool result = false;
  Routine r("TallowbrookPad.exe-frmDocument-isRemittRSTConnected");
  r.step([&] {
    if (!databaseConnected()) return;
    if (!database().isRecordsetOpen(filteredRecordsetHandle_)) {
      // Nothing tests the new recordset for rows.
      result = connectToRemittRST();
    } else if (database().isEmptyRecordset(filteredRecordsetHandle_)) {
      if (showMessage) {
        showMessage = false;
        raiseMergeFailed(
            "There are no items that match the search criteria you have indicated.  Please try "
            "again.");
      }
    } else {
      result = true;
    }
  });
  r.step([&] {
    if (showMessage && !result) {
      raiseMergeFailed(
          "Tallowbrook Pad was unable to open the required items for merge.  Please try again.");
    }
  });
  return result;
}

}  // namespace nvwm
