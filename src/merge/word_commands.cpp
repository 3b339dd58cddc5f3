// The commands a host gives the word processor of the last run. Each works on the objects the
// run left (wordApplication, wordDocument, wordSelection) and does nothing unless the run got a
// usable word processor.
#include "host/references.h"
#include "host/routine.h"
#include "merge/cls_word_merge.h"
#include "merge/file_removal.h"
#include "merge/object_reference.h"
#include "runtime/error.h"

namespace nvwm {

using merge::required;
void clsWordMerge::OpenNewDoc() {
  Routine r("TallowbrookPad.exe-clsWordmerge-OpenNewDoc");
  if (!wordIsOpen_) return;
  r.step([&] { wordDocument_ = required(wordApplication_, "wordApplication").Documents()->Add(); });
  r.step([&] { required(wordDocument_, "wordDocument").Activate(); });
  r.step([&] { wordSelection_ = required(wordApplication_, "wordApplication").Selection(); });
}

void clsWordMerge::printDoc() {
  Routine r("TallowbrookPad.exe-clsWordmerge-printDoc");
  if (!wordIsOpen_) return;
  r.step([&] { required(wordDocument_, "wordDocument").PrintOut(); });
}

void clsWordMerge::SaveDocAsAndClose(std::string& Path, std::string& StrToSaveAs) {
  Routine r("TallowbrookPad.exe-clsWordmerge-SaveDocAsAndClose", [this](const RuntimeError& error) {
    raiseDocumentNotSaved(error.number(), error.description());
  });
  if (!wordIsOpen_) return;
  bool pathExists = false;
  r.step([&] { pathExists = required(references().fileUtility, "fileUtility").fileExists(Path); });
  if (!r) return;
  if (!pathExists) {
    // The product leaves here without leaving the trace: its tag stays on the stack.
    r.leaveWithoutExitProc();
    return;
  }
  // Path must end in a separator; without one the file lands beside the folder.
  r.step([&] { DocName_ = Path + StrToSaveAs + ".doc"; });
  r.step([&] { required(wordDocument_, "wordDocument").SaveAs(Variant(DocName_)); });
  r.step([&] { required(wordDocument_, "wordDocument").Close(); });
  r.step([&] {
    if (events_) events_->DocumentSaved();
  });
}

void clsWordMerge::DeleteDoc(std::string& PathAndDocName) {
  Routine r("TallowbrookPad.exe-clsWordmerge-DeleteDoc");
  if (!wordIsOpen_) return;
  r.step([&] {
    // Whether the word processor has the file open is not asked.
    if (required(references().fileUtility, "fileUtility").fileExists(PathAndDocName)) {
      merge::deleteFile(PathAndDocName);
    }
  });
}

void clsWordMerge::InsertCurrentDate() {
  Routine r("TallowbrookPad.exe-clsWordmerge-InsertCurrentDate");
  if (!wordIsOpen_) return;
  // As text, so that it doesn't change when the document is opened again.
  r.step([&] {
    required(wordSelection_, "wordSelection")
        .InsertDateTime(Variant("dddd, MMMM dd, yyyy"), Variant(false));
  });
}

}  // namespace nvwm
