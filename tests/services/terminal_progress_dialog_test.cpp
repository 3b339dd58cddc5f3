#include "services/terminal_progress_dialog.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "support/test_support.h"

namespace nvwm {
namespace {

using Calls = std::vector<std::string>;

// A dialog writing into a string, set up as a merge run sets it up.
struct MergeRun {
  std::ostringstream out;
  std::shared_ptr<TerminalProgressDialog> dialog;

  explicit MergeRun(bool tty) : dialog(std::make_shared<TerminalProgressDialog>(out, tty)) {
    dialog->setDialogMessage("Initializing MS Word Merge, please wait ...");
    dialog->setProgressStep(10);
  }
};

TEST(TerminalProgressDialogTest, StartProgressRunsOnceInsideShowDialog) {
  MergeRun run(false);
  std::vector<std::string> seen;
  run.dialog->onStartProgress([&] {
    seen.push_back(run.dialog->isShowing() ? "shown" : "hidden");
    run.dialog->setDialogMessage("Writing records...");
    run.dialog->closeDialog();
    seen.push_back(run.dialog->isShowing() ? "shown" : "hidden");
  });
  run.dialog->showDialog(true);
  EXPECT_EQ(seen, (std::vector<std::string>{"shown", "hidden"}));
  EXPECT_EQ(run.dialog->calls(),
            (Calls{"setDialogMessage(Initializing MS Word Merge, please wait ...)",
                   "setProgressStep(10)", "showDialog(True)", "StartProgress",
                   "setDialogMessage(Writing records...)", "closeDialog"}));
  EXPECT_FALSE(run.dialog->closedByItself());
  EXPECT_EQ(run.out.str(), "Initializing MS Word Merge, please wait ...\nWriting records...\n");
}

TEST(TerminalProgressDialogTest, AHandlerThatDoesNotCloseStillLetsShowDialogReturn) {
  MergeRun run(false);
  int raised = 0;
  run.dialog->onStartProgress([&] { ++raised; });
  run.dialog->showDialog(true);
  EXPECT_EQ(raised, 1);
  EXPECT_FALSE(run.dialog->isShowing());
  EXPECT_TRUE(run.dialog->closedByItself());
  EXPECT_EQ(run.dialog->calls().back(), "StartProgress");  // no closeDialog was called
}

TEST(TerminalProgressDialogTest, TheHandlerMayReleaseTheLastReference) {
  // This is what the merge run does: close, then empty its reference to the dialog.
  std::ostringstream out;
  auto dialog = std::make_shared<TerminalProgressDialog>(out, false);
  std::weak_ptr<TerminalProgressDialog> watch = dialog;
  bool aliveAfterRelease = false;
  TerminalProgressDialog* raw = dialog.get();
  dialog->onStartProgress([&] {
    dialog->closeDialog();
    dialog.reset();
    aliveAfterRelease = !watch.expired();
  });
  raw->showDialog(true);
  EXPECT_TRUE(aliveAfterRelease);
  EXPECT_TRUE(watch.expired());  // released once showDialog was done with it
}

TEST(TerminalProgressDialogTest, AnErrorOutOfTheHandlerClosesTheDialogAndReachesTheCaller) {
  MergeRun run(false);
  run.dialog->onStartProgress([] { raise(ErrorNumber::kTypeMismatch, "in the run"); });
  EXPECT_RUNTIME_ERROR(run.dialog->showDialog(true), 13);
  EXPECT_FALSE(run.dialog->isShowing());
}

TEST(TerminalProgressDialogTest, ShowingTwiceAtOnceRaisesAndClosingWhenHiddenDoesNothing) {
  MergeRun run(false);
  run.dialog->closeDialog();  // before it came up
  int nestedError = 0;
  run.dialog->onStartProgress([&] {
    try {
      run.dialog->showDialog(true);
    } catch (const RuntimeError& e) {
      nestedError = e.number();
    }
    run.dialog->closeDialog();
    run.dialog->closeDialog();
  });
  run.dialog->showDialog(true);
  EXPECT_EQ(nestedError, 5);
  EXPECT_FALSE(run.dialog->closedByItself());
  EXPECT_EQ(run.out.str(), "Initializing MS Word Merge, please wait ...\n");
}

TEST(TerminalProgressDialogTest, OnATerminalTheLineIsRewrittenInPlace) {
  MergeRun run(true);
  run.dialog->onStartProgress([&] {
    run.dialog->setDialogMessage("Writing records...");
    run.dialog->closeDialog();
  });
  run.dialog->showDialog(true);
  EXPECT_EQ(run.out.str(),
            "\r\033[KInitializing MS Word Merge, please wait ...\r\033[KWriting records...\n");
}

TEST(TerminalProgressDialogTest, WithoutAHandlerTheDialogComesUpAndCloses) {
  TerminalProgressDialog dialog;  // not owned by a shared_ptr: still works
  dialog.showDialog(false);
  EXPECT_FALSE(dialog.isShowing());
  EXPECT_TRUE(dialog.closedByItself());
  EXPECT_EQ(dialog.calls(), Calls{"showDialog(False)"});
}

}  // namespace
}  // namespace nvwm
