// Public: clsWordMerge, the class a host drives a merge with, its events and its enumerations.
//
// A host makes one instance, hands it its services, says what is merged and calls
// performWordMerge:
//
//   clsWordMerge merge(&myEvents);          // myEvents: a clsWordMergeEvents of the host's
//   merge.errorClass(errors);               // first: every routine needs it
//   merge.MsgboxClass(messages);
//   merge.WorkingFolderReference(folder);   // fixes the merge database's path at once
//   merge.LocaleReference(locale);
//   merge.DatabaseReference(practice);
//   merge.ListType(mergeInfo2::wordMergeCompanyInfo);  // before SQLFilter
//   merge.IDList(ids);                      // or SQLFilter("...") for the kinds with a time line
//   merge.DocName("/path/letter.docx");     // else a new blank document
//   merge.performWordMerge();               // always False; failures come as MergeFailed
//   merge.printDoc();                       // the commands work on the Word of the run
//
// A run writes the records into a new SQLite database under the working folder
// ("Temp/WordMergeSource<n>.db", one column per catalogue field, one row per record), starts
// the word processor (factories().createWordApplication), opens or adds the main document,
// links it to the table, runs the mail merge as openWordMethod says and shows the word
// processor. Nothing tells of success; each failure raises MergeFailed with errNum -1 and a
// message in the product's words. The database stays on disk (the main document is linked to
// it) until a later run through the progress dialog sweeps the folder.
//
// Errors: no member raises to the host except the property accessors noted below; a failure
// inside a routine goes to the error service (errorClass), as host/routine.h describes.
//
// Services: the class sets the library-wide references of host/references.h (per thread). A
// host holds its services; the class keeps shared references to them. Not thread-safe: one
// thread, the host's, and no call into an instance while a run is under way.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "host/database_service.h"
#include "host/error_service.h"
#include "host/folder_service.h"
#include "host/message_service.h"
#include "host/progress_dialog.h"
#include "host/utilities.h"
#include "host/word.h"
#include "runtime/variant.h"

namespace nvwm {

class clsInsertFieldsInRTB;
class Routine;
namespace ado {
class Recordset;
}

// The kind of record merged. DO NOT CHANGE THESE VALUES: hosts pass them, and they also select
// the rows of the field catalogue.
enum class mergeInfo2 : int32_t {
  wordMergeCompanyInfo = 1,
  wordMergeCompanyContactInfo = 2,
  wordMergeContactInfo = 3,
  wordMergeRemittanceInfo = 4,
  wordMergeAppointmentInfo = 5,
  wordMergeDocketinfo = 6,
  wordMergeNoMergeInfo = 7,
  wordMergeTaskInfo = 8,
};

// What is left open in the word processor. DO NOT CHANGE THESE VALUES: hosts pass them.
enum class openWordMergeType : int32_t {
  openTemplateOnly = 1,         // the main document with its data source; no merge is run
  openTemplateAndMergeDoc = 2,  // the merge is run; both documents stay open
  openMergeDocOnly = 3,         // the merge is run; the main document is closed unsaved
};

// The events of clsWordMerge. A host derives from this class and overrides what it wants; the
// others do nothing. The arguments are by reference, as the events hand them; errNum is always
// -1 where the class raises MergeFailed. Called on the host's thread, inside the call that
// raised them.
class clsWordMergeEvents {
 public:
  // Abstract: a host derives its own sink; it overrides only the events it wants.
  virtual ~clsWordMergeEvents() = 0;
  // Never raised; kept because hosts bind to it.
  virtual void ExitProgram() {}
  // Never raised: a host knows a run is over when performWordMerge returns.
  virtual void MergeComplete() {}
  // A run, a DatabaseReference put or a record selection failed; the text says why. Not a
  // stop: the run goes on where it can.
  virtual void MergeFailed(int16_t& /*errNum*/, std::string& /*msgWhy*/) {}
  // SaveDocAsAndClose saved and closed the document.
  virtual void DocumentSaved() {}
  // SaveDocAsAndClose failed; errNum and msgWhy are the run-time error's.
  virtual void DocumentNotSaved(int16_t& /*errNum*/, std::string& /*msgWhy*/) {}
  // Never raised.
  virtual void MessageSent() {}
  virtual void MessageNotSent(int16_t& /*errNum*/, std::string& /*msgWhy*/) {}
  virtual void UnknownError(int16_t& /*errNum*/, std::string& /*msgWhy*/) {}
};

inline clsWordMergeEvents::~clsWordMergeEvents() = default;

class clsWordMerge {
 public:
  // Class_Initialize: makes the library-wide file, value and date utilities and a default
  // working folder service (replacing those of an earlier instance on this thread), and a new
  // empty IDList. events may be null, and must outlive the instance or be replaced first.
  explicit clsWordMerge(clsWordMergeEvents* events = nullptr);
  // Class_Terminate: lets go of the word processor's objects without quitting it (a visible
  // word processor stays with the user), closes the recordsets of SQLFilter, releases IDList.
  ~clsWordMerge();
  clsWordMerge(const clsWordMerge&) = delete;
  clsWordMerge& operator=(const clsWordMerge&) = delete;

  // Where the events go (null: nowhere). Borrowed, not owned.
  void events(clsWordMergeEvents* events) { events_ = events; }

  // ---- Services ------------------------------------------------------------------------

  // The error service of every routine of the library; also handed to the value and date
  // utilities.
  void errorClass(std::shared_ptr<ErrorService> errors);
  void MsgboxClass(std::shared_ptr<MessageService> messages);
  // The host's main window, parent of the progress dialog.
  void MDIForm(std::shared_ptr<Object> form) { MDIForm_ = std::move(form); }
  // Replaces the working folder service. When one is given, the merge database's path is
  // worked out at once: "<working folder>/Temp/WordMergeSource<n>.db", the first n not in use,
  // with the Temp folder made. Any failure on that way leaves the path as far as it got.
  void WorkingFolderReference(std::shared_ptr<WorkingFolderService> folder);
  void LocaleReference(std::shared_ptr<LocaleService> locale);
  // An empty reference raises MergeFailed ("The outlook synchronization was not able to access
  // the companies database and needs to close.") and sets FailedToInitializeFlag.
  void DatabaseReference(std::shared_ptr<DatabaseService> database);
  // True when DatabaseReference was put empty. Read by no code of the library.
  bool FailedToInitializeFlag() const { return FailedToInitializeFlag_; }

  // ---- Options ---------------------------------------------------------------------------

  // The word processor is made visible at the end of a run. True by default.
  bool ShowWordWindow() const { return ShowWordWindow_; }
  void ShowWordWindow(bool show) { ShowWordWindow_ = show; }
  // The run goes through the progress dialog, and only then are old databases swept.
  // True by default. (The name is the product's.)
  bool ShowProgess() const { return ShowProgess_; }
  void ShowProgess(bool show) { ShowProgess_ = show; }
  // Merge into a new blank document instead of DocName. True by default; DocName sets it.
  bool NewDocument() const { return NewDocument_; }
  void NewDocument(bool value) { NewDocument_ = value; }
  // Plain field: set it before SQLFilter, which is applied to the kind set at that moment.
  mergeInfo2 ListType() const { return ListType_; }
  void ListType(mergeInfo2 type) { ListType_ = type; }
  openWordMergeType openWordMethod() const { return openWordMethod_; }
  void openWordMethod(openWordMergeType method) { openWordMethod_ = method; }
  // The path of this instance's merge database; "" until WorkingFolderReference is put.
  const std::string& MergeSourceDBLocation() const { return MergeSourceDBLocation_; }
  // The main document. An existing file becomes DocName with NewDocument False; a path of no
  // file gives "" with NewDocument True, silently (the run then merges into a blank document).
  const std::string& DocName() const { return DocName_; }
  void DocName(const std::string& path);

  // ---- Records ---------------------------------------------------------------------------

  // An ADO filter on the remittance, appointment or docket table (as ListType is now); the
  // filtered recordset is opened at once (see connectToRemittRST).
  const std::string& SQLFilter() const { return SQLFilter_; }
  void SQLFilter(const std::string& filter);
  // Adds one row per element, keys from 0, column 1 the element as a 16-bit integer; the list
  // is not cleared first. Raises 6 for an ID above 32767 and 13 for an element that isn't a
  // number (rows before it stay); use IDList for larger IDs.
  void IDListArray(std::span<const Variant> ids);
  // Not an array: a number (or numeric text) adds one row, key 0; Missing and anything else
  // change nothing. Raises 6 above 32767.
  void IDListArray(const Variant& id);
  // Copies the host's list (keys, columns, order) into the instance's; the host's list is not
  // shared. Column 1 holds the main ID, column 2 a contact where the kind has one.
  void IDList(const std::shared_ptr<nvwm::IDList>& ids);
  // The list can't be read back: always raises 91 (object variable not set), as the product
  // always has.
  std::shared_ptr<nvwm::IDList> IDList() const;

  // ---- Methods ---------------------------------------------------------------------------

  // Runs a merge (see the top of this file). Always returns False.
  bool performWordMerge();
  // The column name of a catalogue title, made fit by cleanFieldName and unique in the run's
  // column list by a blank and a number ("Name", "Name 1", "Name 2"...), and recorded there.
  // Only meaningful during a run: outside one it gives "".
  std::string getValidFieldName(const std::string& originFieldStr, const std::string& fieldType);
  // Commands on the word processor of the last run; each does nothing unless a run got a
  // usable word processor (nothing happens and no event comes).
  // A further blank document, which becomes the one the commands work on.
  void OpenNewDoc();
  // Prints the main document (the last document of OpenNewDoc) with the defaults.
  void printDoc();
  // Saves the document as Path + StrToSaveAs + ".doc" (Path ends in a separator) and closes
  // it; DocumentSaved, or DocumentNotSaved with the error. A Path that doesn't exist: nothing.
  void SaveDocAsAndClose(std::string& Path, std::string& StrToSaveAs);
  // Deletes a file (not a folder); a path of no file: nothing.
  void DeleteDoc(std::string& PathAndDocName);
  // Today's date at the cursor, as text: "Monday, November 23, 2026".
  void InsertCurrentDate();

 private:
  friend class clsWordMergeInternal;

  // Inside the library only.
  const std::shared_ptr<MessageService>& MsgboxClass() const;
  const std::shared_ptr<Object>& MDIForm() const { return MDIForm_; }
  void FailedToInitializeFlag(bool value) { FailedToInitializeFlag_ = value; }
  const std::shared_ptr<ProgressDialog>& wordMergeDialog() const { return wordMergeDialog_; }
  void wordMergeDialog(std::shared_ptr<ProgressDialog> dialog);

  // The run (merge_run.cpp).
  void wordMergeDialog_StartProgress();
  bool startWordMerge();
  // The merge source database (merge_source_database.cpp).
  bool createMergeDatabaseAndQuery();
  // The rows, from the IDs or the filtered recordset, as steps of the routine r.
  void writeMergeRows(Routine& r, clsInsertFieldsInRTB& catalogue, ado::Recordset& recordset);
  // Record selection (record_selection.cpp).
  bool useIDListValues();
  bool isRemittRSTConnected(bool& showMessage);
  bool connectToRemittRST();
  // Clean-up of earlier runs' databases (old_merge_databases.cpp).
  void deleteOldMergeDatabases();

  void raiseMergeFailed(const std::string& why);
  void raiseDocumentNotSaved(int32_t number, const std::string& why);

  clsWordMergeEvents* events_;

  // The record of the class, in the product's order.
  bool databaseIsSet_ = false;
  bool FailedToInitializeFlag_ = false;
  std::string MergeSourceDBLocation_;
  std::shared_ptr<nvwm::IDList> fieldNameList_;
  openWordMergeType openWordMethod_ = openWordMergeType::openTemplateAndMergeDoc;
  mergeInfo2 ListType_ = mergeInfo2::wordMergeCompanyInfo;
  std::shared_ptr<nvwm::IDList> IDList_;
  std::string SQLFilter_;
  Handle baseRecordsetHandle_ = kNoHandle;
  Handle filteredRecordsetHandle_ = kNoHandle;
  bool ShowWordWindow_ = true;
  std::shared_ptr<Object> MDIForm_;
  bool ShowProgess_ = true;
  std::shared_ptr<word::Application> wordApplication_;
  std::shared_ptr<word::Document> wordDocument_;
  std::shared_ptr<word::Selection> wordSelection_;
  bool NewDocument_ = true;
  std::string DocName_;
  bool wordIsOpen_ = false;
  std::string mergeConnectionText_;
  std::shared_ptr<ProgressDialog> wordMergeDialog_;
};

}  // namespace nvwm
