// The road of one merge: the progress dialog, the word processor and its main document, the
// merge source, the link, the mail merge, and what stays open.
//
// From the moment the word processor is asked for, startWordMerge passes over every statement
// that fails and goes on with the next: a word processor that fails later in the run fails
// without a message (a document that can't be opened leaves the document empty, and every call
// on it is passed over), and only the tests of the road raise MergeFailed.
#include "host/references.h"
#include "host/routine.h"
#include "merge/cls_word_merge.h"
#include "merge/object_reference.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace nvwm {

using merge::required;
namespace {

// MailMerge.State values that allow a merge to run.
constexpr int32_t kMainAndSourceAndHeader =
    static_cast<int32_t>(word::MailMergeState::kMainAndSourceAndHeader);
constexpr int32_t kMainAndDataSource =
    static_cast<int32_t>(word::MailMergeState::kMainAndDataSource);
// Document.Close arguments: don't save, the document's own format, no routing.
constexpr int32_t kDoNotSaveChanges = 0;
constexpr int32_t kOriginalDocumentFormat = 1;
// The first word processor version the product works with (Word 2000).
constexpr int16_t kFirstVersion = 9;

}  // namespace

bool clsWordMerge::performWordMerge() {
  const bool result = false;  // never assigned
  Routine r("TallowbrookPad.exe-clsWordmerge-performWordMerge");
  r.step([&] {
    if (ShowProgess_) return;
    // Without the dialog, earlier runs' databases stay where they are.
    startWordMerge();
    r.exit();
  });
  auto dialog = [&]() -> ProgressDialog& { return required(wordMergeDialog(), "wordMergeDialog"); };
  r.step([&] {
    std::shared_ptr<ProgressDialog> made = factories().createProgressDialog();
    if (made) made->onStartProgress([this] { wordMergeDialog_StartProgress(); });
    wordMergeDialog(std::move(made));
  });
  r.step([&] { dialog().setDialogMessage("Initializing MS Word Merge, please wait ..."); });
  r.step([&] { dialog().setProgressStep(10); });
  r.step([&] { dialog().setDialogParent(Variant(MDIForm())); });
  r.step([&] { dialog().setShowCancel(false); });
  r.step([&] { dialog().setShowPercent(false); });
  r.step([&] { dialog().setShowTime(false); });
  r.step([&] { dialog().setAnimate(true); });
  r.step([&] { dialog().setIconId(101); });
  r.step([&] { dialog().setTopMost(false); });
  // The whole run happens inside: StartProgress runs it and closes the dialog.
  r.step([&] {
    std::shared_ptr<ProgressDialog> shown = wordMergeDialog();
    required(shown, "wordMergeDialog").showDialog(true);
  });
  return result;
}

void clsWordMerge::wordMergeDialog_StartProgress() {
  Routine r("TallowbrookPad.exe-clsWordmerge-wordMergeDialog_StartProgress");
  r.step([&] { startWordMerge(); });
  r.step([&] { required(wordMergeDialog(), "wordMergeDialog").closeDialog(); });
  r.step([&] { wordMergeDialog(nullptr); });
  r.step([&] { deleteOldMergeDatabases(); });
}

bool clsWordMerge::startWordMerge() {
  bool result = false;  // read by no caller
  // Reached only by an error before the word processor is asked for: errors are skipped from
  // then on. Each statement of the handler is passed over when it fails.
  Routine r("TallowbrookPad.exe-clsWordmerge-startWordMerge", [this](const RuntimeError& error) {
    if (error.number() == static_cast<int32_t>(ErrorNumber::kWordDocumentOpen)) {
      raiseMergeFailed(
          "You have a Microsoft Word document open.  You must close all instances of Microsoft "
          "Word before running the Word Merge Wizard.");
    } else {
      raiseMergeFailed(
          "Tallowbrook had trouble exporting the address information to Microsoft Word.  You "
          "must have Microsoft Word version 2000 or higher properly installed on your computer");
    }
    try {
      required(wordApplication_, "wordApplication").NormalTemplate()->Saved(true);
    } catch (const std::exception&) {
    }
    try {
      required(wordApplication_, "wordApplication").Quit();
    } catch (const std::exception&) {
    }
    wordIsOpen_ = false;
  });
  if (!r) return result;
  r.skipErrors();
  auto word = [&]() -> word::Application& { return required(wordApplication_, "wordApplication"); };
  auto document = [&]() -> word::Document& { return required(wordDocument_, "wordDocument"); };

  // The run-time error object is cleared here; only the start of the word processor is tested.
  bool started = false;
  r.step([&] {
    wordApplication_ = factories().createWordApplication();
    if (!wordApplication_) raise(ErrorNumber::kObjectVariableNotSet, "Word.Application");
    started = true;
  });
  if (!started) {
    raiseMergeFailed(
        "Tallowbrook was unable to open an intance of Microsoft Word.  Make sure you have "
        "Microsoft Word 2000 or higher installed on this computer.");
    return result;
  }
  r.step([&] {
    if (CInt(Variant(word().Version())) < kFirstVersion) {
      raiseMergeFailed("Tallowbrook is only compatible with Microsoft Word 2000 or higher");
      r.exit();
    }
  });
  if (!r) return result;
  r.step([&] { wordIsOpen_ = true; });

  if (NewDocument_) {
    r.step([&] { wordDocument_ = word().Documents()->Add(); });
    r.step([&] { document().Activate(); });
  } else {
    bool found = false;
    r.step([&] { found = required(references().fileUtility, "fileUtility").fileExists(DocName_); });
    if (!found) {
      raiseMergeFailed("Tallowbrook could not find the specified merge document.");
      return result;
    }
    r.step([&] { wordDocument_ = word().Documents()->Open(Variant(DocName_)); });
    r.step([&] { document().Activate(); });
  }
  r.step([&] { wordSelection_ = word().Selection(); });

  bool linked = false;
  r.step([&] { linked = createMergeDatabaseAndQuery(); });
  if (!linked) {
    // Word stays open and hidden with the document.
    raiseMergeFailed("Tallowbrook could not link to the client information properly.");
    return result;
  }
  r.step([&] {
    const Variant missing = Variant::missing();
    document().MailMerge()->OpenDataSource(
        Variant(MergeSourceDBLocation_), missing, missing, Variant(true), Variant(true), missing,
        missing, missing, missing, missing, missing, Variant(mergeConnectionText_));
  });

  if (openWordMethod_ != openWordMergeType::openTemplateOnly) {
    bool merge = false;
    r.step([&] {
      // Both states are read, as the product's test reads them.
      const int32_t first = document().MailMerge()->State();
      const int32_t second = document().MailMerge()->State();
      merge = first == kMainAndSourceAndHeader || second == kMainAndDataSource;
    });
    // Any other state: no merge, and no word about it.
    if (merge) {
      r.step([&] { document().MailMerge()->Execute(); });
      if (openWordMethod_ == openWordMergeType::openMergeDocOnly) {
        // The merged document stays; wordDocument goes on naming the closed main document.
        r.step([&] {
          document().Close(Variant(kDoNotSaveChanges), Variant(kOriginalDocumentFormat),
                           Variant(false));
        });
      }
    }
  }
  r.step([&] { word().Visible(ShowWordWindow_); });
  return result;
}

}  // namespace nvwm
