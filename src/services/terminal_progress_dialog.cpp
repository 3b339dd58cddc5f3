#include "services/terminal_progress_dialog.h"

#include <unistd.h>

#include <iostream>

#include "runtime/error.h"

namespace nvwm {
namespace {

std::string boolText(bool value) { return value ? "True" : "False"; }

}  // namespace

TerminalProgressDialog::TerminalProgressDialog()
    : out_(&std::cerr), tty_(isatty(STDERR_FILENO) != 0) {}

void TerminalProgressDialog::writeLine() {
  if (tty_) {
    *out_ << "\r\033[K" << message_;  // rewrite the line in place
  } else if (!message_.empty()) {
    *out_ << message_ << "\n";
  }
  out_->flush();
}

void TerminalProgressDialog::setDialogMessage(const std::string& message) {
  calls_.push_back("setDialogMessage(" + message + ")");
  if (message == message_) return;
  message_ = message;
  if (showing_) writeLine();
}

void TerminalProgressDialog::setProgressStep(int32_t value) {
  calls_.push_back("setProgressStep(" + std::to_string(value) + ")");
}

void TerminalProgressDialog::setDialogParent(const Variant& parentForm) {
  calls_.push_back("setDialogParent(" + debugString(parentForm) + ")");
  parent_ = parentForm;
}

void TerminalProgressDialog::setShowCancel(bool value) {
  calls_.push_back("setShowCancel(" + boolText(value) + ")");
}

void TerminalProgressDialog::setShowPercent(bool value) {
  calls_.push_back("setShowPercent(" + boolText(value) + ")");
}

void TerminalProgressDialog::setShowTime(bool value) {
  calls_.push_back("setShowTime(" + boolText(value) + ")");
}

void TerminalProgressDialog::setAnimate(bool value) {
  calls_.push_back("setAnimate(" + boolText(value) + ")");
}

void TerminalProgressDialog::setIconId(int32_t value) {
  calls_.push_back("setIconId(" + std::to_string(value) + ")");
}

void TerminalProgressDialog::setTopMost(bool value) {
  calls_.push_back("setTopMost(" + boolText(value) + ")");
}

void TerminalProgressDialog::onStartProgress(std::function<void()> handler) {
  handler_ = std::move(handler);
}

void TerminalProgressDialog::showDialog(bool modal) {
  calls_.push_back("showDialog(" + boolText(modal) + ")");
  if (showing_) raise(ErrorNumber::kInvalidProcedureCall, "the progress dialog is already shown");
  // The handler may drop the last outside reference to this dialog.
  const std::shared_ptr<TerminalProgressDialog> keepAlive = weak_from_this().lock();
  showing_ = true;
  closedByItself_ = false;
  writeLine();
  try {
    if (handler_) {
      calls_.push_back("StartProgress");
      const std::function<void()> handler = handler_;  // the handler may relink the event
      handler();                                       // the whole run happens here
    }
  } catch (...) {
    close();
    throw;
  }
  if (showing_) {
    closedByItself_ = true;
    close();
  }
}

void TerminalProgressDialog::closeDialog() {
  calls_.push_back("closeDialog");
  close();
}

void TerminalProgressDialog::close() {
  if (!showing_) return;
  showing_ = false;
  if (tty_) {
    *out_ << "\n";
    out_->flush();
  }
}

}  // namespace nvwm
