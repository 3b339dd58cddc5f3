#include "services/default_factories.h"

#include "services/ado/sqlite_ado.h"
#include "services/date_utility.h"
#include "services/file_utility.h"
#include "services/folder_locale.h"
#include "services/id_list.h"
#include "services/terminal_progress_dialog.h"
#include "services/text_controls.h"
#include "services/variant_utility.h"
#include "services/word/word_engine.h"

namespace nvwm {

ServiceFactories makeDefaultServiceFactories() {
  ServiceFactories f;
  f.createIDList = [] { return std::make_shared<IndexedIDList>(); };
  f.createFileUtility = [] { return std::make_shared<PosixFileUtility>(); };
  f.createVariantUtility = [] { return std::make_shared<StandardVariantUtility>(); };
  f.createDateUtility = [] { return std::make_shared<StandardDateUtility>(); };
  f.createWorkingFolder = [] { return std::make_shared<XdgWorkingFolder>(); };
  f.createProgressDialog = [] { return std::make_shared<TerminalProgressDialog>(); };
  f.createRTBTextInserter = [] { return std::make_shared<TextRTBTextInserter>(); };
  f.createWordApplication = [] { return wordengine::createDefaultWordApplication(); };
  f.createConnection = [] { return ado::makeSqliteConnection(); };
  f.createRecordset = [] { return ado::makeSqliteRecordset(); };
  f.createCatalog = [] { return ado::makeSqliteCatalog(); };
  f.createTable = [] { return ado::makeSqliteTable(); };
  return f;
}

}  // namespace nvwm
