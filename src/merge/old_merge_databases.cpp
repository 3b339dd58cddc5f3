// deleteOldMergeDatabases: the merge databases of earlier runs, swept from the Temp folder after
// each run through the progress dialog. A run can't delete its own database, which the word
// processor keeps linked, so each run deletes the others'. The current one is spared by its
// title, and with it any companion file of the same title (such as "WordMergeSource3.db-journal").
// Every other file whose name holds "WordMergeSource", in any case and with any extension, goes.
#include <filesystem>

#include "host/references.h"
#include "host/routine.h"
#include "merge/cls_word_merge.h"
#include "merge/file_removal.h"
#include "merge/object_reference.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace nvwm {

void clsWordMerge::deleteOldMergeDatabases() {
  namespace fs = std::filesystem;
  Routine r("Tallowbrook.exe-clsWordmerge-deleteOldMergeDatabases");
  auto files = [&]() -> FileUtility& {
    return merge::required(references().fileUtility, "fileUtility");
  };
  std::string folder, currentTitle;
  r.step([&] { folder = files().getFolderOfPath(MergeSourceDBLocation_); });
  r.step([&] {
    currentTitle = files().getFileTitle(files().getFileNameOfPath(MergeSourceDBLocation_));
  });
  r.step([&] {
    if (!files().folderExists(folder)) r.exit();
  });
  std::vector<fs::path> found;
  r.step([&] {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
      if (entry.is_regular_file()) found.push_back(entry.path());
    }
  });
  for (const fs::path& file : found) {
    if (!r) break;
    const std::string name = file.filename().string();
    r.step([&] {
      if (InStr(1, name, "WordMergeSource", CompareMode::kText) == 0) return;
      if (files().getFileTitle(name) == currentTitle) return;
      // From the first deletion on a file that can't go is passed over, to be tried again
      // after the next run.
      r.skipErrors();
      merge::deleteFile(file.string());
    });
    for (int i = 0; i < 4; ++i) {
      r.step([&] {
        if (MessagePump* pump = references().messagePump.get()) pump->processPendingMessages();
      });
    }
  }
}

}  // namespace nvwm
