// createMergeDatabaseAndQuery: the merge source of a run, one column per catalogue field and one
// row per record, written through the ADO/ADOX objects of the factories.
//
// The catalogue is built twice on one object, first for the company list and then for no list
// (-1) whatever the kind of the run: the first build's client rows survive the second, because
// IDList.initialize keeps the rows a list already holds (services/id_list.h). So the table has
// the company list's columns and then the firm's twice, the second time with " 1" behind their
// names. A column is a date or a 32-bit number by its FieldType "Date" or "Number"; every other
// field is text of at most 255 characters, which Update refuses beyond.
//
// Each value comes from the catalogue object: getDataField, or getDataDateField in the form
// "mmmm d, yyyy" for a date (a value that is no date leaves the cell Null). Values go through
// the catalogue's RTF conversion (isRTF True), as the product passes them.
#include <memory>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "engine/data_sets.h"
#include "host/references.h"
#include "host/routine.h"
#include "merge/cls_word_merge.h"
#include "merge/object_reference.h"
#include "practice/lookup_shape.h"
#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace nvwm {

using merge::required;
namespace {

constexpr const char* kTableName = "WordMergeTable";

// ADOX column types and properties of the merge table.
constexpr int32_t kAdDate = static_cast<int32_t>(ado::DataType::kDate);
constexpr int32_t kAdInteger = static_cast<int32_t>(ado::DataType::kInteger);
constexpr int32_t kAdVarWChar = static_cast<int32_t>(ado::DataType::kVarWChar);
constexpr int32_t kTextSize = 255;
constexpr int32_t kUseServer = 2;
constexpr int32_t kUseClient = 3;
constexpr int32_t kModeReadWrite = 3;
constexpr int32_t kOpenForwardOnly = 0;

// One column of the merge table, as fieldNameList ties it to its catalogue field.
struct MergeColumn {
  std::string name;         // column 1: the column's name in the table
  std::string type;         // column 2: the catalogue FieldType
  std::string displayName;  // column 3: the catalogue DisplayName
};

// The text of an ID list column for the validators: "" for a column the row doesn't have.
std::string idText(const Variant& cell) {
  return cell.isMissing() || cell.isEmpty() || cell.isNull() ? std::string() : CStr(cell);
}

void letPendingMessagesThrough() {
  if (MessagePump* pump = references().messagePump.get()) pump->processPendingMessages();
}

}  // namespace

bool clsWordMerge::createMergeDatabaseAndQuery() {
  bool result = true;
  Routine r("Tallowbrook.exe-clsWordmerge-createMergeDatabaseAndQuery",
            [&](const RuntimeError&) { result = false; });
  ServiceFactories& make = factories();
  const std::string connectionString = "PROVIDER=Microsoft.Jet.OLEDB.4.0;" +
                                       std::string("Data Source=") + MergeSourceDBLocation_ + ";";
  std::shared_ptr<ado::Catalog> catalog;
  std::shared_ptr<ado::Connection> connection;
  std::shared_ptr<ado::Table> table;
  std::shared_ptr<ado::Recordset> recordset;
  std::unique_ptr<clsInsertFieldsInRTB> catalogue;

  // 1. The list that ties columns to catalogue fields, for the length of this routine.
  r.step([&] { fieldNameList_ = make.createIDList(); });
  r.step([&] { required(fieldNameList_, "fieldNameList").initialize(); });

  // 2. The database file; a path that exists already fails here.
  r.step([&] { catalog = make.createCatalog(); });
  r.step([&] {
    required(catalog, "Catalog")
        .Create("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + MergeSourceDBLocation_ +
                ";Jet OLEDB:Database Password=;Jet OLEDB:Engine Type=5;");
  });
  r.step([&] { catalog.reset(); });

  // 3-5. The catalogue: the company list's rows, then the firm's.
  r.step([&] { catalogue = std::make_unique<clsInsertFieldsInRTB>(); });
  r.step(
      [&] { required(catalogue, "clsInsertFieldsInRTB").errorClassRTB(references().errorClass); });
  r.step([&] { required(catalogue, "clsInsertFieldsInRTB").MsgboxClassRTB(MsgboxClass()); });
  r.step([&] { required(catalogue, "clsInsertFieldsInRTB").MDIFormRTB(MDIForm()); });
  r.step([&] {
    required(catalogue, "clsInsertFieldsInRTB")
        .initializeDataRecordsets(1, false, -1, true, true, true, true, true, -1, -1);
  });
  r.step([&] {
    bool noList = false;
    required(catalogue, "clsInsertFieldsInRTB").createDefaultFieldListStructure(-1, noList, true);
  });

  // 6-7. A connection, a catalog on it and the table's description.
  r.step([&] { connection = make.createConnection(); });
  r.step([&] { required(connection, "Connection").CursorLocation(kUseServer); });
  r.step([&] { required(connection, "Connection").Mode(kModeReadWrite); });
  r.step([&] { required(connection, "Connection").Open(connectionString, "", "", -1); });
  r.step([&] { catalog = make.createCatalog(); });
  r.step([&] { required(catalog, "Catalog").ActiveConnection(connection); });
  r.step([&] { table = make.createTable(); });
  r.step([&] { required(table, "Table").ParentCatalog(catalog); });
  r.step([&] { required(table, "Table").Name(kTableName); });

  // 8. One column per catalogue row, in the catalogue's order.
  std::shared_ptr<nvwm::IDList> fields;
  r.step([&] {
    if (catalogue) fields = catalogue->FieldListStructure();
    if (!fields || fields->isEmpty()) {
      result = false;
      fields.reset();
    }
  });
  if (fields) {
    bool more = false;
    r.step([&] {
      fields->moveFirst();
      more = !fields->isAtEnd();
    });
    while (r && more) {
      std::string type, displayName, name;
      r.step([&] { type = CStr(fields->getColumn(4)); });
      r.step([&] { displayName = CStr(fields->getColumn(2)); });
      r.step([&] { fields->getColumn(3); });  // read and not used
      r.step([&] { name = getValidFieldName(displayName, type); });
      const bool isDate = type == "Date";
      const bool isNumber = type == "Number";
      r.step([&] {
        const int32_t adType = isDate ? kAdDate : isNumber ? kAdInteger : kAdVarWChar;
        required(table, "Table")
            .Columns()
            ->Append(name, adType, isDate || isNumber ? 0 : kTextSize);
      });
      r.step([&] {
        auto properties = required(table, "Table").Columns()->Item(Variant(name))->Properties();
        properties->Item(Variant("Nullable"))->Value(Variant(true));
        if (!isDate && !isNumber) {
          properties->Item(Variant("Jet OLEDB:Allow Zero Length"))->Value(Variant(true));
        }
      });
      more = false;
      r.step([&] {
        fields->moveNext();
        more = !fields->isAtEnd();
      });
    }
  }

  // 9-10. The table is made; Word will be given it by name.
  r.step([&] { required(catalog, "Catalog").Tables()->Append(table); });
  r.step([&] { required(catalog, "Catalog").Tables()->Refresh(); });
  r.step([&] { table.reset(); });
  r.step([&] { connection.reset(); });
  r.step([&] { catalog.reset(); });
  r.step([&] { mergeConnectionText_ = std::string("TABLE ") + kTableName; });

  // 11. A second connection and the recordset the rows are added through.
  r.step([&] { connection = make.createConnection(); });
  r.step([&] { required(connection, "Connection").CursorLocation(kUseClient); });
  r.step([&] { required(connection, "Connection").Open(connectionString, "", "", -1); });
  r.step([&] { recordset = make.createRecordset(); });
  r.step([&] { required(recordset, "Recordset").ActiveConnection(connection); });
  r.step([&] {
    required(recordset, "Recordset").Source("SELECT WordMergeTable.* FROM WordMergeTable;");
  });
  r.step([&] { required(recordset, "Recordset").CursorType(kOpenForwardOnly); });
  r.step([&] { required(recordset, "Recordset").LockType(kLockOptimistic); });
  r.step([&] { required(recordset, "Recordset").Open(ado::kMissing, ado::kMissing, -1, -1, -1); });

  // 12. The rows.
  if (r && result && catalogue && recordset) writeMergeRows(r, *catalogue, *recordset);

  // 13. Closed and let go, unless the handler has gone to the exit (then the locals go).
  r.step([&] { required(recordset, "Recordset").Close(); });
  r.step([&] { recordset.reset(); });
  r.step([&] { required(connection, "Connection").Close(); });
  r.step([&] { connection.reset(); });
  r.step([&] { catalogue.reset(); });
  r.step([&] { fieldNameList_.reset(); });
  return result;
}

void clsWordMerge::writeMergeRows(Routine& r, clsInsertFieldsInRTB& catalogue,
                                  ado::Recordset& recordset) {
  // The columns, as fieldNameList ties them to the catalogue. Nothing changes the list while the
  // rows are written, so it is read once rather than once per row.
  std::vector<MergeColumn> columns;
  r.step([&] {
    nvwm::IDList& list = required(fieldNameList_, "fieldNameList");
    for (list.moveFirst(); !list.isAtEnd(); list.moveNext()) {
      columns.push_back(
          {CStr(list.getColumn(1)), CStr(list.getColumn(2)), CStr(list.getColumn(3))});
    }
  });

  // The recordset's field of each column, looked up once: a field stands for its column in
  // every row.
  std::vector<std::shared_ptr<ado::Field>> fields(columns.size());
  auto field = [&](size_t i) -> ado::Field& {
    if (!fields[i]) fields[i] = recordset.Fields()->Item(Variant(columns[i].name));
    return *fields[i];
  };

  // One record: each column's value from the catalogue for the record's IDs.
  auto writeRecord = [&](engine::RecordIDs& ids) {
    if (columns.empty()) return;
    r.step([&] { recordset.AddNew(); });
    // Only the contact's own record for a contact list, even where the row names a company.
    int32_t companyID = ListType_ == mergeInfo2::wordMergeContactInfo ? -1 : ids.companyID;
    int32_t firmID = -1;
    int32_t taskID = -1;
    bool useSampleData = false;
    bool isRTF = true;
    for (size_t i = 0; i < columns.size(); ++i) {
      if (!r) return;
      MergeColumn& column = columns[i];
      if (column.type != "Date") {
        r.step([&] {
          std::string value = catalogue.getDataField(column.displayName, companyID, ids.contactID,
                                                     ids.scheduleID, firmID, ids.appointmentID,
                                                     ids.docketID, taskID, useSampleData, isRTF);
          field(i).Value(Variant(std::move(value)));
        });
      } else {
        r.step([&] {
          std::string value = catalogue.getDataDateField(
              column.displayName, "mmmm d, yyyy", companyID, ids.contactID, ids.scheduleID, firmID,
              ids.appointmentID, ids.docketID, taskID, useSampleData, isRTF);
          const Variant text(std::move(value));
          if (!practice::variantUtility().isNullValue(text) && IsDate(text)) field(i).Value(text);
        });
      }
    }
    r.step([&] { recordset.Update(); });
  };

  bool useIDs = false;
  r.step([&] { useIDs = useIDListValues(); });
  if (useIDs) {
    nvwm::IDList& ids = required(IDList_, "IDList");
    bool more = false;
    r.step([&] { more = !ids.isEmpty(); });
    if (!more) return;
    if (ListType_ == mergeInfo2::wordMergeAppointmentInfo ||
        ListType_ == mergeInfo2::wordMergeDocketinfo) {
      r.step([&] { letPendingMessagesThrough(); });
    }
    r.step([&] {
      ids.moveFirst();
      more = !ids.isAtEnd();
    });
    while (r && more) {
      engine::RecordIDs record;
      bool known = true;
      r.step([&] {
        switch (ListType_) {
          case mergeInfo2::wordMergeCompanyInfo:
            record.companyID = CLng(ids.getColumn(1));
            record.contactID = validContactID(idText(ids.getColumn(2)))
                                   ? CLng(ids.getColumn(2))
                                   : getDefaultContactIDFromCompanyID(record.companyID);
            break;
          case mergeInfo2::wordMergeCompanyContactInfo:
          case mergeInfo2::wordMergeContactInfo:
            if (validCompanyID(idText(ids.getColumn(1)))) {
              record.companyID = CLng(ids.getRowValues().at(0));
            }
            record.contactID = validContactID(idText(ids.getColumn(2)))
                                   ? CLng(ids.getColumn(2))
                                   : getDefaultContactIDFromCompanyID(record.companyID);
            break;
          case mergeInfo2::wordMergeRemittanceInfo:
            record.scheduleID = CLng(ids.getColumn(1));
            record.companyID = getCompanyIDFromScheduleID(record.scheduleID);
            record.contactID = getDefaultContactIDFromCompanyID(record.companyID);
            break;
          case mergeInfo2::wordMergeAppointmentInfo:
            record.appointmentID = CLng(ids.getColumn(1));
            record.companyID = getCompanyIDFromAppointmentID(record.appointmentID);
            record.contactID = getDefaultContactIDFromCompanyID(record.companyID);
            break;
          case mergeInfo2::wordMergeDocketinfo:
            // Never reached: dockets are always selected by filter.
            record.docketID = CLng(ids.getColumn(1));
            record.companyID = getCompanyIDFromDocketID(record.docketID);
            record.contactID = getDefaultContactIDFromCompanyID(record.companyID);
            break;
          default:
            known = false;
        }
      });
      if (known) writeRecord(record);
      if (ListType_ == mergeInfo2::wordMergeCompanyInfo) {
        r.step([&] { letPendingMessagesThrough(); });
        r.step([&] { letPendingMessagesThrough(); });
      }
      more = false;
      r.step([&] {
        ids.moveNext();
        more = !ids.isAtEnd();
      });
    }
    return;
  }

  // The filtered recordset, for the kinds with a time line.
  const bool filterable = ListType_ == mergeInfo2::wordMergeRemittanceInfo ||
                          ListType_ == mergeInfo2::wordMergeAppointmentInfo ||
                          ListType_ == mergeInfo2::wordMergeDocketinfo;
  if (!filterable) return;
  bool connected = false;
  r.step([&] {
    bool showMessage = true;
    connected = isRemittRSTConnected(showMessage);
  });
  if (!connected) return;
  DatabaseService& db = practice::database();
  const Handle rows = filteredRecordsetHandle_;
  bool more = false;
  r.step([&] { db.hasRecords(rows); });
  r.step([&] { more = !db.isEOF(rows); });
  while (r && more) {
    engine::RecordIDs record;
    r.step([&] {
      switch (ListType_) {
        case mergeInfo2::wordMergeRemittanceInfo:
          record.scheduleID = CLng(db.getField(rows, Variant("ScheduleID")));
          record.companyID =
              getCompanyIDFromClientDataID(CLng(db.getField(rows, Variant("ClientNum"))));
          break;
        case mergeInfo2::wordMergeAppointmentInfo:
          record.appointmentID = CLng(db.getField(rows, Variant("AppointmentID")));
          record.companyID = getCompanyIDFromAppointmentID(record.appointmentID);
          break;
        default:
          record.docketID = CLng(db.getField(rows, Variant("DocketID")));
          record.companyID = getCompanyIDFromDocketID(record.docketID);
      }
      record.contactID = getDefaultContactIDFromCompanyID(record.companyID);
    });
    writeRecord(record);
    more = false;
    r.step([&] {
      db.moveNext(rows);
      more = !db.isEOF(rows);
    });
  }
}

}  // namespace nvwm
