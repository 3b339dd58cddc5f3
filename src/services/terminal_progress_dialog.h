// Public: the default progress dialog: a message line on the terminal.
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "host/progress_dialog.h"

namespace nvwm {

// showDialog "brings the dialog up" (writes the message line), raises StartProgress once, and
// returns when the dialog is closed. There is no user and no event loop on a terminal, so the
// only one who can close the dialog is the StartProgress handler, through closeDialog. When the
// handler returns without closing, the dialog closes itself at that moment and showDialog
// returns, rather than wait for a close that can never come; closedByItself() then says so.
// A RuntimeError (or any exception) out of the handler also closes the dialog and goes on to
// the caller of showDialog. With no handler linked the dialog comes up and closes at once.
//
// The handler may release the last reference to the dialog (the merge run does, right after
// closeDialog): a dialog owned by a shared_ptr keeps itself alive until showDialog returns.
//
// On a terminal the message line is rewritten in place; on anything else (a file, a pipe) each
// new message is a line of its own. closeDialog while not shown does nothing; showDialog while
// shown (from inside the handler) raises 5. The option setters are kept, and listed by calls(),
// but change nothing on a terminal. Not thread-safe: the handler runs on the caller's thread,
// inside showDialog.
class TerminalProgressDialog : public ProgressDialog,
                               public std::enable_shared_from_this<TerminalProgressDialog> {
 public:
  // Writes to standard error, rewriting in place when standard error is a terminal.
  TerminalProgressDialog();
  // REQUIRES: out outlives the dialog.
  TerminalProgressDialog(std::ostream& out, bool isTerminal) : out_(&out), tty_(isTerminal) {}

  void setDialogMessage(const std::string& message) override;
  void setProgressStep(int32_t value) override;
  void setDialogParent(const Variant& parentForm) override;
  void setShowCancel(bool value) override;
  void setShowPercent(bool value) override;
  void setShowTime(bool value) override;
  void setAnimate(bool value) override;
  void setIconId(int32_t value) override;
  void setTopMost(bool value) override;
  void onStartProgress(std::function<void()> handler) override;
  void showDialog(bool modal) override;
  void closeDialog() override;

  bool isShowing() const { return showing_; }
  const std::string& message() const { return message_; }
  // True when the last showDialog ended without a closeDialog from the handler.
  bool closedByItself() const { return closedByItself_; }
  // Every member called, in order, with its argument, and "StartProgress" where the event was
  // raised: "setDialogMessage(Initializing...)", "setProgressStep(10)", "setShowCancel(False)",
  // "setDialogParent(Empty)", "showDialog(True)", "StartProgress", "closeDialog"... For tests
  // of a run's order.
  const std::vector<std::string>& calls() const { return calls_; }

 private:
  void writeLine();
  void close();

  std::ostream* out_;
  bool tty_;
  std::function<void()> handler_;
  std::string message_;
  Variant parent_;
  std::vector<std::string> calls_;
  bool showing_ = false;
  bool closedByItself_ = false;
};

}  // namespace nvwm
