// clsInsertFieldsInRTB: the merge-field catalogue and template engine.
//
// The one object through which the library knows which merge fields exist. It owns the
// catalogue (an IDList of field records, see catalogue/field_record.h), the data sets the fields
// are read from, and fills a host's list boxes with the field names. Its member functions live
// in two folders: catalogue/ (this header's first half: the record, the class surface, the data
// sets, the field lists, the list interaction) and engine/ (template and value routines).
//
// Life cycle: make it, put errorClassRTB (and MsgboxClassRTB, MDIFormRTB where messages are
// shown), optionally MergeFieldListUse, ListBox, ListBox2, RTB, then call
// initializeDataRecordsets; the table is then filled and the value routines can be called. Each
// user makes its own instance. Destruction releases the table and closes the open data sets.
//
// Errors: no member raises to its caller. Every routine has the shape of host/routine.h, entered
// with its log tag on errorClassRTB while one is given; without one it runs all the same and an
// error ends the routine silently. The property accessors have no such shape.
//
// Reads the library-wide DatabaseReference (an empty reference counts as not connected) and
// LocaleReference (needed by every build: an empty one ends the build in its handler), and makes
// its IDList and RTBTextInserter through factories(). Not thread-safe: one thread, the host's.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "catalogue/field_record.h"
#include "host/controls.h"
#include "host/database_service.h"
#include "host/error_service.h"
#include "host/message_service.h"
#include "host/routine.h"
#include "host/utilities.h"
#include "runtime/variant.h"

namespace nvwm {

namespace catalogue {
struct FieldBlockSpec;
struct CustomBlockSpec;
}  // namespace catalogue
namespace engine {
struct DataSets;
}  // namespace engine
class FoldedText;

class clsInsertFieldsInRTB {
 public:
  // Class_Initialize: the values of the class's state table and a new, initialized IDList.
  // Raises 91 when no IDList can be made (no factory).
  clsInsertFieldsInRTB();
  // Class_Terminate: releases the IDList, then closes the data sets (errors passed over).
  ~clsInsertFieldsInRTB();
  clsInsertFieldsInRTB(const clsInsertFieldsInRTB&) = delete;
  clsInsertFieldsInRTB& operator=(const clsInsertFieldsInRTB&) = delete;

  // ---- Class surface -------------------------------------------------------------------

  // The catalogue. Shared with the caller; rebuilt in place by each build.
  std::shared_ptr<IDList> FieldListStructure() const { return FieldListStructure_; }

  void errorClassRTB(std::shared_ptr<ErrorService> errors);
  void MsgboxClassRTB(std::shared_ptr<MessageService> messages);
  void MDIFormRTB(std::shared_ptr<Object> form) { MDIFormRTB_ = std::move(form); }

  // 2 (the assignment list) also sets ShowListCategoryHeaders to False at once; any other value
  // leaves it alone. Only the comparison with 2 is ever made.
  void MergeFieldListUse(int32_t use);
  int32_t MergeFieldListUse() const { return MergeFieldListUse_; }

  void UseWordWrap(bool useWordWrap) { UseWordWrap_ = useWordWrap; }

  // The host's controls, late bound; empty by default. ListBox takes the client field list,
  // ListBox2 the firm's, RTB is the rich-text control the list interaction inserts into.
  void RTB(std::shared_ptr<LateBoundObject> control) { RTB_ = std::move(control); }
  std::shared_ptr<LateBoundObject> RTB() const { return RTB_; }
  void ListBox(std::shared_ptr<LateBoundObject> control) { ListBox_ = std::move(control); }
  std::shared_ptr<LateBoundObject> ListBox() const { return ListBox_; }
  void ListBox2(std::shared_ptr<LateBoundObject> control) { ListBox2_ = std::move(control); }
  std::shared_ptr<LateBoundObject> ListBox2() const { return ListBox2_; }

  // Kept for the host; the catalogue doesn't use it.
  void SQLStr(std::string sql) { SQLStr_ = std::move(sql); }
  const std::string& SQLStr() const { return SQLStr_; }

  // Whether headers and separators are added to ListBox. True by default.
  void ShowListCategoryHeaders(bool show) { ShowListCategoryHeaders_ = show; }
  bool ShowListCategoryHeaders() const { return ShowListCategoryHeaders_; }

  // Opens the data sets the flags ask for (closing the earlier ones first) and builds the
  // catalogue for listType (ListBox filled if given). Without a connection nothing is opened and
  // the handles stay as they were; the catalogue is built all the same. A negative ID means all
  // rows; 0 is a real ID. Log tag "Tallowbrook.exe-clsInsertFieldsInRTB-initializeDataRecordsets".
  void initializeDataRecordsets(int32_t listType, bool openAll, int32_t recordID,
                                bool openMainClient, bool openCompanies, bool openContacts,
                                bool openAccountantFirm, bool openAccountantEmployee,
                                int32_t companyID, int32_t contactID);

  // Rebuilds the whole catalogue for listType (a mergeInfo2 value; any other number selects
  // only the firm's rows) and fills ListBox when one is given. noList's incoming value is
  // ignored: it comes back True when ListBox is absent. clearList clears ListBox first.
  void createDefaultFieldListStructure(int32_t listType, bool& noList, bool clearList);
  // Adds the firm's rows to what stands (neither the table nor FieldCounter is reset) and, unless
  // noList, fills ListBox2 (cleared first when clearList). An absent ListBox2 sets noList True.
  void createAccountantFieldListStructure(bool& noList, bool clearList);

  // The text that belongs in a template for a list entry's ItemData: the DatabaseField, or for a
  // "Date" row "(DisplayName, mmmm d yyyy)". A negative listItem gives "".
  std::string getDBFieldFromListItem(int32_t listItem);
  // The merge field of a list entry: DisplayName, or "(DisplayName, mmmm d yyyy)" for a date,
  // between « and » when addBrackets. A negative listItem gives "".
  std::string parseListItem(int32_t listItem, bool addBrackets);
  // Inserts the bracketed merge field of the entry into RTB at its caret ("SelStart"; 1 when
  // that isn't a number). The result stays empty.
  Variant onListClick(int32_t listItem);

  // "(Todays Date, <format>)", between « and » when addBrackets. dateFormat 1..14 picks the
  // format text; any other number leaves it "".
  std::string insertCurrentDateMergeField(int32_t dateFormat, bool addBrackets);
  // Inserts «(Todays Date, <format>)» into RTB at its caret. The result stays empty.
  Variant InsertCurrentDate(int32_t dateFormat);

  // ---- Open to the library's own code ----------------------------------------------------
  bool hasErrorClassRTB() const { return HasErrorClassRTB_; }
  bool hasMsgboxClassRTB() const { return HasMsgboxClassRTB_; }
  const std::shared_ptr<Object>& mdiFormRTB() const { return MDIFormRTB_; }

  // ---- Template and value routines (engine/) ---------------------------------------------
  // Arguments by reference where the original passes them so; the IDs always travel in the
  // order company, contact, schedule, firm, appointment, docket, task (below 0: no record).

  // Template test pass (engine/template_test_pass.cpp). True when a fault was found.
  bool testRTBComment(std::string templateText, bool& isRTF, bool& showMessages,
                      bool& skipFieldNameCheck);
  // Template parse pass (engine/template_parse_pass.cpp): the finished text.
  std::string parseRTBComment(std::string templateText, int32_t& companyID, int32_t& contactID,
                              int32_t& scheduleID, int32_t& firmID, int32_t& appointmentID,
                              int32_t& docketID, int32_t& taskID, bool& useSampleData, bool& isRTF,
                              bool& useContactForMissingCompany);
  // Text clean-up passes (engine/text_cleanup.cpp). The bools are True when an error occurred.
  bool replaceText(std::string& workText, std::string placeholder, std::string value, bool& isRTF);
  bool replaceUnfoundMergeFieldsWithBlanks(std::string& workText);
  std::string convertToRTF(std::string value);
  std::string removeBlankLinesFromRTFText(std::string& text);
  // Field name translation (engine/field_names.cpp).
  std::string convertFieldName(std::string text);
  bool testStr(std::string& name);
  std::string getDBFieldFromEnglishField(std::string& displayName);
  std::string getEnglishFieldFromDBField(std::string& databaseField);
  // Merge data lookup (engine/merge_data_field.cpp).
  std::string getMergeDataField(std::string expression, int32_t companyID, int32_t contactID,
                                int32_t scheduleID, int32_t firmID, int32_t appointmentID,
                                int32_t docketID, int32_t taskID, bool& useSampleData, bool& isRTF,
                                bool& useContactForMissingCompany);
  // Data field value (engine/data_field.cpp).
  std::string getDataField(std::string& displayName, int32_t& companyID, int32_t& contactID,
                           int32_t& scheduleID, int32_t& firmID, int32_t& appointmentID,
                           int32_t& docketID, int32_t& taskID, bool& useSampleData, bool& isRTF);
  // Date field value (engine/date_field.cpp).
  std::string getDataDateField(std::string displayName, std::string format, int32_t& companyID,
                               int32_t& contactID, int32_t& scheduleID, int32_t& firmID,
                               int32_t& appointmentID, int32_t& docketID, int32_t& taskID,
                               bool& useSampleData, bool& isRTF);
  std::string getTimeDurationFieldValue(Variant& from, Variant& to);
  // Contact and spouse name (engine/contact_spouse_name.cpp).
  std::string getContactAndSpouseName(int32_t& contactID, bool& lastNameFirst);
  // Province handling (engine/provinces.cpp).
  std::string convertProvinceFields(std::string text);
  std::string getAbbreviatedProvince(std::string& province);
  std::string getFullProvinceString(std::string& province);

  // ---- Calendar texts (scheduling/calendar_display_text.cpp) -----------------------------
  // The text that stands for an appointment (ListType 5), time entry (6) or task (8) on the
  // calendar: the user's template from UserCalendarSettings (a default for a Null, "0" or
  // "Text Constant" column, or with useSampleData a template that fails the test pass),
  // filled by parseRTBComment, between the record's BeforeAppointmentText and
  // AfterAppointmentText. Any other ListType gives "". A user without a settings row gains
  // one. Call initializeDataRecordsets first. Without errorClassRTB nothing is done ("").
  std::string createDisplayTextByID(int32_t& userID, int32_t companyID, int32_t contactID,
                                    int32_t appointmentID, int32_t docketID, int32_t taskID,
                                    bool& useSampleData, bool& isRTF,
                                    bool& useContactForMissingCompany);
  // The title-bar text: the user's TitleBarText template, put between « and » where it lacks
  // them (a bare field name works), filled; "" when the column is Null (there is no default)
  // and without a connection.
  std::string createTitleBarTextByID(int32_t& userID, int32_t companyID, int32_t contactID,
                                     int32_t appointmentID, int32_t docketID, int32_t taskID,
                                     bool& isRTF, bool& useContactForMissingCompany);

 private:
  // replaceText on a text folded once for a whole pass, so that a replacement doesn't fold it
  // again (engine/text_cleanup.cpp).
  bool replaceFoldedText(FoldedText& workText, const std::string& placeholder,
                         const std::string& value, bool isRTF);

  // Where a build adds its list entries: the control, or nothing when noList.
  struct ListTarget {
    LateBoundObject* control;
    bool noList;
  };

  void closeDataRecordsets();
  void createCompanyInfoFieldListStructure(bool& noList);
  void createAppointmentInfoFieldListStructure(bool& noList);
  void createTaskInfoFieldListStructure(bool& noList);
  void createDocketInfoFieldListStructure(bool& noList);

  // The shared ways of adding, each statement a step of the calling routine r.
  // A field row: next FieldCounter, addRow, and unless noList an entry with ItemData = the key.
  void addFieldRow(Routine& r, const ListTarget& list, const IDList::Row& columns,
                   const std::string& listText);
  // One entry of a list control: "AddItem" the text, then ItemData of "NewIndex".
  static void addListEntry(LateBoundObject& list, const std::string& text, int32_t itemData);
  // A header (after a blank separator when asked), only with a list and headers shown.
  void addHeader(Routine& r, const ListTarget& list, const char* header, bool withSeparator);
  // Every row of a block that the country, province, list use and date call for.
  void addRows(Routine& r, const ListTarget& list, const catalogue::FieldBlockSpec& block);
  // Five custom rows labelled from the database, or the defaults without a connection.
  void addCustomBlock(Routine& r, const ListTarget& list, const catalogue::CustomBlockSpec& block);
  // Refresh on the control, then let pending messages through twice.
  void refreshList(Routine& r, LateBoundObject& control);
  // Reads "SelStart" of RTB: 1 when it is Null or not numeric.
  int32_t caretPosition();
  // Hands the text and position to a new RTBTextInserter.
  void insertIntoRTB(const std::string& text, int32_t position);
  // The data-set handles and remembered IDs, lent to the value routines (engine/data_sets.cpp).
  engine::DataSets dataSets();
  // The user's calendar template column "<columnPrefix><word of ListType>" into templateText,
  // the settings row added first when the user has none. True when the column held text.
  bool readUserCalendarTemplate(Routine& r, int32_t userID, const char* columnPrefix,
                                std::string& templateText);
  // Reopens the data set of ListType on the ID of its kind when that ID is new and valid,
  // builds the catalogue if it is empty, and fills the template.
  std::string fillCalendarTemplate(Routine& r, const std::string& templateText, int32_t userID,
                                   int32_t companyID, int32_t contactID, int32_t appointmentID,
                                   int32_t docketID, int32_t taskID, bool useSampleData,
                                   bool& isRTF, bool& useContactForMissingCompany);
  // errorClassRTB as the routines' error service.
  Routine::OwnErrorService errorService() const { return {errorClassRTB_.get()}; }

  // State, in the order of the original's declarations.
  std::shared_ptr<IDList> FieldListStructure_;
  int32_t FieldCounter_ = 0;
  int32_t MergeFieldListUse_ = 1;
  Handle CompaniesRST_ = kNoHandle;
  Handle ContactsRST_ = kNoHandle;
  Handle AccountantFirmRST_ = kNoHandle;
  Handle AccountantEmployeeRST_ = kNoHandle;
  Handle MainClientRST_ = kNoHandle;
  Handle SoftwareInfoRST_ = kNoHandle;
  Handle AppointmentsRST_ = kNoHandle;
  Handle ScheduleTasksRST_ = kNoHandle;
  Handle DocketsRST_ = kNoHandle;
  int32_t ListType_ = 0;
  int32_t RecordID_ = -1;
  int32_t CompanyID_ = -1;
  int32_t ContactID_ = -1;
  std::string SQLStr_;
  std::shared_ptr<LateBoundObject> ListBox_;
  std::shared_ptr<LateBoundObject> ListBox2_;
  std::shared_ptr<LateBoundObject> RTB_;
  std::shared_ptr<Object> MDIFormRTB_;
  bool UseWordWrap_ = true;
  bool ShowListCategoryHeaders_ = true;
  // Read by the text clean-up passes and never assigned.
  std::string ParagraphSourceText_;
  int32_t ParagraphSourcePosition_ = 0;
  std::shared_ptr<ErrorService> errorClassRTB_;
  bool HasErrorClassRTB_ = false;
  std::shared_ptr<MessageService> MsgboxClassRTB_;
  bool HasMsgboxClassRTB_ = false;
};

}  // namespace nvwm
