#include "services/terminal_progress_dialog.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/test_support.h"

namespace nvwm {
namespace {

// Sets the dialog up as a merge run does and records what happens, in order.
struct MergeRun {
  std::ostringstream out;
  TerminalProgressDialog dialog;
  std::vector<std::string> events;

  explicit MergeRun(bool tty) : dialog(out, tty) {
    dialog.setDialogMessage("Preparing the merge...");
    dialog.setProgressStep(10);
    dialog.setShowCancel(false);
    dialog.setAnimate(true);
  }
};

TEST(TerminalProgressDialogTest, StartProgressRunsOnceInsideShowDialog) {
  MergeRun run(false);
  int raised = 0;
  run.dialog.onStartProgress([&] {
    ++raised;
    run.events.push_back(run.dialog.isShowing() ? "start while shown" : "start while hidden");
    run.dialog.setDialogMessage("Writing records...");
    run.dialog.closeDialog();
    run.events.push_back(run.dialog.isShowing() ? "still shown" : "closed");
  });
  run.events.push_back("show");
  run.dialog.showDialog(true);
  run.events.push_back("returned");
  EXPECT_EQ(raised, 1);
  EXPECT_EQ(run.events,
            (std::vector<std::string>{"show", "start while shown", "closed", "returned"}));
  EXPECT_FALSE(run.dialog.closedByItself());
  EXPECT_EQ(run.out.str(), "Preparing the merge...\nWriting records...\n");
}

TEST(TerminalProgressDialogTest, AHandlerThatDoesNotCloseStillLetsShowDialogReturn) {
  MergeRun run(false);
  run.dialog.onStartProgress([&] { run.events.push_back("start"); });
  run.dialog.showDialog(true);
  EXPECT_EQ(run.events, std::vector<std::string>{"start"});
  EXPECT_FALSE(run.dialog.isShowing());
  EXPECT_TRUE(run.dialog.closedByItself());
}

TEST(TerminalProgressDialogTest, AnErrorOutOfTheHandlerClosesTheDialogAndReachesTheCaller) {
  MergeRun run(false);
  run.dialog.onStartProgress([] { raise(ErrorNumber::kTypeMismatch, "in the run"); });
  EXPECT_RUNTIME_ERROR(run.dialog.showDialog(true), 13);
  EXPECT_FALSE(run.dialog.isShowing());
}

TEST(TerminalProgressDialogTest, ShowingTwiceAtOnceRaisesAndClosingWhenHiddenDoesNothing) {
  MergeRun run(false);
  run.dialog.closeDialog();  // before it came up
  bool nestedFailed = false;
  run.dialog.onStartProgress([&] {
    try {
      run.dialog.showDialog(true);
    } catch (const RuntimeError& e) {
      nestedFailed = e.number() == 5;
    }
    run.dialog.closeDialog();
    run.dialog.closeDialog();
  });
  run.dialog.showDialog(true);
  EXPECT_TRUE(nestedFailed);
  EXPECT_FALSE(run.dialog.closedByItself());
}

TEST(TerminalProgressDialogTest, OnATerminalTheLineIsRewrittenInPlace) {
  MergeRun run(true);
  run.dialog.onStartProgress([&] {
    run.dialog.setDialogMessage("Writing records...");
    run.dialog.closeDialog();
  });
  run.dialog.showDialog(true);
  EXPECT_EQ(run.out.str(), "\r\033[KPreparing the merge...\r\033[KWriting records...\n");
}

TEST(TerminalProgressDialogTest, WithoutAHandlerTheDialogComesUpAndCloses) {
  MergeRun run(false);
  run.dialog.showDialog(false);
  EXPECT_FALSE(run.dialog.isShowing());
  EXPECT_TRUE(run.dialog.closedByItself());
}

}  // namespace
}  // namespace nvwm
