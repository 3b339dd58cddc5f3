// Public: the library-wide service references, one set per thread, and the factories of the
// objects the library creates for itself.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "host/ado.h"
#include "host/controls.h"
#include "host/database_service.h"
#include "host/error_service.h"
#include "host/folder_service.h"
#include "host/message_service.h"
#include "host/progress_dialog.h"
#include "host/utilities.h"
#include "host/word.h"
#include "runtime/error.h"

namespace nvwm {

// The references every routine reaches without an argument. A host sets them through the
// property puts of clsWordMerge; tests may set them directly. Per thread, never locked.
struct LibraryReferences {
  std::shared_ptr<ErrorService> errorClass;
  bool errorClassIsSet = false;
  std::shared_ptr<MessageService> MsgboxClass;
  bool msgboxClassIsSet = false;
  std::shared_ptr<DatabaseService> DatabaseReference;
  std::shared_ptr<WorkingFolderService> WorkingFolderReference;
  std::shared_ptr<LocaleService> LocaleReference;
  std::shared_ptr<FileUtility> fileUtility;
  std::shared_ptr<VariantUtility> variantUtility;
  std::shared_ptr<DateUtility> dateUtility;
  std::shared_ptr<MessagePump> messagePump;
};

// The calling thread's references.
LibraryReferences& references();

// What a reference holds. Raises 91 naming the reference when it is empty, so that a routine
// that needs a service its host never set ends in its handler.
template <class Service>
Service& requireReference(const std::shared_ptr<Service>& reference, std::string_view name) {
  if (reference == nullptr) raise(ErrorNumber::kObjectVariableNotSet, name);
  return *reference;
}

// How the library creates the objects it doesn't get from the host. Defaults are the stand-ins
// of this project; a host or a test may replace any of them (on the calling thread).
struct ServiceFactories {
  std::function<std::shared_ptr<IDList>()> createIDList;
  std::function<std::shared_ptr<FileUtility>()> createFileUtility;
  std::function<std::shared_ptr<VariantUtility>()> createVariantUtility;
  std::function<std::shared_ptr<DateUtility>()> createDateUtility;
  std::function<std::shared_ptr<WorkingFolderService>()> createWorkingFolder;
  std::function<std::shared_ptr<ProgressDialog>()> createProgressDialog;
  std::function<std::shared_ptr<RTBTextInserter>()> createRTBTextInserter;
  // "Word.Application"; may raise, as CreateObject does when Word is missing.
  std::function<std::shared_ptr<word::Application>()> createWordApplication;
  std::function<std::shared_ptr<ado::Connection>()> createConnection;
  std::function<std::shared_ptr<ado::Recordset>()> createRecordset;
  std::function<std::shared_ptr<ado::Catalog>()> createCatalog;
  std::function<std::shared_ptr<ado::Table>()> createTable;
};

// The calling thread's factories, made by the installed defaults on the thread's first use
// (all empty when none are installed).
ServiceFactories& factories();

// Where the defaults come from. This layer only declares them: the library proper installs
// the stand-ins' set (library_defaults.h) before a program's main runs, so whoever links the
// library gets working defaults. A program that links only lower layers installs a set itself.
using ServiceFactoriesMaker = ServiceFactories (*)();
void installDefaultServiceFactories(ServiceFactoriesMaker make);

}  // namespace nvwm
