#include "services/terminal_progress_dialog.h"

#include <unistd.h>

#include <iostream>

#include "runtime/error.h"

namespace nvwm {

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
  if (message == message_) return;
  message_ = message;
  if (showing_) writeLine();
}

void TerminalProgressDialog::showDialog(bool /*modal*/) {
  if (showing_) raise(ErrorNumber::kInvalidProcedureCall, "the progress dialog is already shown");
  showing_ = true;
  closedByItself_ = false;
  writeLine();
  try {
    if (handler_) handler_();  // StartProgress: the whole run happens here
  } catch (...) {
    closeDialog();
    throw;
  }
  if (showing_) {
    closedByItself_ = true;
    closeDialog();
  }
}

void TerminalProgressDialog::closeDialog() {
  if (!showing_) return;
  showing_ = false;
  if (tty_) {
    *out_ << "\n";
    out_->flush();
  }
}

}  // namespace nvwm
