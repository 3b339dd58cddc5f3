// Public: the default progress dialog: a message line on the terminal.
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>

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
// On a terminal the message line is rewritten in place; on anything else (a file, a pipe) each
// new message is a line of its own. closeDialog while not shown does nothing; showDialog while
// shown (from inside the handler) raises 5. The option setters are kept but change nothing
// here. Not thread-safe: the handler runs on the caller's thread, inside showDialog.
class TerminalProgressDialog : public ProgressDialog {
 public:
  // Writes to standard error, rewriting in place when standard error is a terminal.
  TerminalProgressDialog();
  // REQUIRES: out outlives the dialog.
  TerminalProgressDialog(std::ostream& out, bool isTerminal) : out_(&out), tty_(isTerminal) {}

  void setDialogMessage(const std::string& message) override;
  void setProgressStep(int32_t value) override { progressStep_ = value; }
  void setDialogParent(const Variant& parentForm) override { parent_ = parentForm; }
  void setShowCancel(bool value) override { showCancel_ = value; }
  void setShowPercent(bool value) override { showPercent_ = value; }
  void setShowTime(bool value) override { showTime_ = value; }
  void setAnimate(bool value) override { animate_ = value; }
  void setIconId(int32_t value) override { iconId_ = value; }
  void setTopMost(bool value) override { topMost_ = value; }
  void onStartProgress(std::function<void()> handler) override { handler_ = std::move(handler); }
  void showDialog(bool modal) override;
  void closeDialog() override;

  bool isShowing() const { return showing_; }
  const std::string& message() const { return message_; }
  // True when the last showDialog ended without a closeDialog from the handler.
  bool closedByItself() const { return closedByItself_; }
  int32_t progressStep() const { return progressStep_; }

 private:
  void writeLine();

  std::ostream* out_;
  bool tty_;
  std::function<void()> handler_;
  std::string message_;
  Variant parent_;
  int32_t progressStep_ = 0;
  int32_t iconId_ = 0;
  bool showCancel_ = false, showPercent_ = false, showTime_ = false, animate_ = false,
       topMost_ = false;
  bool showing_ = false;
  bool closedByItself_ = false;
};

}  // namespace nvwm
