// clsWordMerge: life cycle, services and properties.
#include "merge/cls_word_merge.h"

#include "host/references.h"
#include "host/routine.h"
#include "merge/object_reference.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace nvwm {

using merge::required;
namespace {

// The merge database's name before makeUniqueFilePath numbers it.
constexpr const char* kMergeSourceName = "Temp/WordMergeSource.db";

// The property puts that skip their errors: each statement is passed over when it fails.
template <class Statement>
void skippingErrors(Statement&& statement) {
  try {
    statement();
  } catch (const std::exception&) {
  }
}

}  // namespace

clsWordMerge::clsWordMerge(clsWordMergeEvents* events) : events_(events) {
  // Reports to an error service an earlier instance left on this thread; without one an error
  // ends the initialisation silently.
  Routine r("TallowbrookPad.exe-clsWordmerge-Class_Initialize",
            Routine::OwnErrorService{references().errorClass.get()});
  LibraryReferences& refs = references();
  ServiceFactories& make = factories();
  r.step([&] { refs.fileUtility = make.createFileUtility(); });
  r.step([&] { refs.variantUtility = make.createVariantUtility(); });
  r.step([&] { refs.dateUtility = make.createDateUtility(); });
  r.step([&] { refs.WorkingFolderReference = make.createWorkingFolder(); });
  // The other fields start as the class's record says (see the header).
  r.step([&] { IDList_ = make.createIDList(); });
  r.step([&] { required(IDList_, "IDList").initialize(); });
}

clsWordMerge::~clsWordMerge() {
  // Word isn't told to quit: a word processor left visible stays with the user.
  wordSelection_.reset();
  wordDocument_.reset();
  wordApplication_.reset();
  skippingErrors([&] {
    DatabaseService* db = references().DatabaseReference.get();
    if (db && db->isConnected() && filteredRecordsetHandle_ > kNoHandle &&
        db->isRecordsetOpen(filteredRecordsetHandle_)) {
      db->closeRecordset(filteredRecordsetHandle_);
      db->closeRecordset(baseRecordsetHandle_);
    }
  });
  IDList_.reset();
}

void clsWordMerge::errorClass(std::shared_ptr<ErrorService> errors) {
  LibraryReferences& refs = references();
  refs.errorClass = errors;
  required(refs.variantUtility, "variantUtility").setErrorClass(errors);
  required(refs.dateUtility, "dateUtility").setErrorClass(errors);
  refs.errorClassIsSet = true;
}

void clsWordMerge::MsgboxClass(std::shared_ptr<MessageService> messages) {
  LibraryReferences& refs = references();
  refs.MsgboxClass = std::move(messages);
  refs.msgboxClassIsSet = true;
}

const std::shared_ptr<MessageService>& clsWordMerge::MsgboxClass() const {
  return references().MsgboxClass;
}

void clsWordMerge::WorkingFolderReference(std::shared_ptr<WorkingFolderService> folder) {
  LibraryReferences& refs = references();
  skippingErrors([&] { refs.WorkingFolderReference.reset(); });
  skippingErrors([&] { refs.WorkingFolderReference = std::move(folder); });
  if (!refs.WorkingFolderReference) return;
  // The merge source location; any error ends it where it got to, without a word.
  try {
    FileUtility& files = required(refs.fileUtility, "fileUtility");
    MergeSourceDBLocation_ =
        files.withTrailingSeparator(refs.WorkingFolderReference->getWorkingFolder());
    MergeSourceDBLocation_ += kMergeSourceName;
    MergeSourceDBLocation_ = files.makeUniqueFilePath(MergeSourceDBLocation_);
    files.ensureFolderExists(files.getFolderOfPath(MergeSourceDBLocation_));
  } catch (const std::exception&) {
  }
}

void clsWordMerge::LocaleReference(std::shared_ptr<LocaleService> locale) {
  LibraryReferences& refs = references();
  skippingErrors([&] { refs.LocaleReference.reset(); });
  skippingErrors([&] { refs.LocaleReference = std::move(locale); });
}

void clsWordMerge::DatabaseReference(std::shared_ptr<DatabaseService> database) {
  const bool empty = database == nullptr;
  skippingErrors([&] { references().DatabaseReference = std::move(database); });
  if (empty) {
    skippingErrors([&] {
      raiseMergeFailed(
          "The outlook synchronization was not able to access the companies database and needs "
          "to close.");
    });
    FailedToInitializeFlag(true);
    databaseIsSet_ = false;
  } else {
    databaseIsSet_ = true;
    FailedToInitializeFlag(false);
  }
}

void clsWordMerge::DocName(const std::string& path) {
  if (required(references().fileUtility, "fileUtility").fileExists(path)) {
    DocName_ = path;
    NewDocument_ = false;
  } else {
    DocName_.clear();
    NewDocument_ = true;
  }
}

void clsWordMerge::SQLFilter(const std::string& filter) {
  SQLFilter_ = filter;
  connectToRemittRST();
}

void clsWordMerge::IDListArray(std::span<const Variant> ids) {
  nvwm::IDList& list = required(IDList_, "IDList");
  int32_t key = 0;
  for (const Variant& id : ids) list.addRow(key++, {Variant(CInt(id))});
}

void clsWordMerge::IDListArray(const Variant& id) {
  if (id.isMissing() || !IsNumeric(id)) return;
  required(IDList_, "IDList").addRow(0, {Variant(CInt(id))});
}

void clsWordMerge::IDList(const std::shared_ptr<nvwm::IDList>& ids) {
  nvwm::IDList& own = required(IDList_, "IDList");
  own.copyList(required(ids, "IDList"), own, true);
}

std::shared_ptr<nvwm::IDList> clsWordMerge::IDList() const {
  // The product assigns the list by value into a result that was never set.
  raise(ErrorNumber::kObjectVariableNotSet, "IDList can't be read back");
}

void clsWordMerge::wordMergeDialog(std::shared_ptr<ProgressDialog> dialog) {
  wordMergeDialog_ = std::move(dialog);
}

void clsWordMerge::raiseMergeFailed(const std::string& why) {
  if (!events_) return;
  int16_t errNum = -1;
  std::string msgWhy = why;
  events_->MergeFailed(errNum, msgWhy);
}

void clsWordMerge::raiseDocumentNotSaved(int32_t number, const std::string& why) {
  if (!events_) return;
  // The word processor's numbers fit in 16 bits; a larger one keeps its low 16 bits, so that
  // the host still hears of the failure.
  int16_t errNum = static_cast<int16_t>(number);
  std::string msgWhy = why;
  events_->DocumentNotSaved(errNum, msgWhy);
}

}  // namespace nvwm
