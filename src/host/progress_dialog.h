// Public: the progress dialog of the host's dialog library, created by the library for one run.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "runtime/variant.h"

namespace nvwm {

// A modal window with a message line. showDialog raises StartProgress once, after the dialog
// has come up, and returns only after closeDialog; the whole merge runs inside StartProgress.
// The option setters carry options of the host's dialog library; a stand-in may ignore them.
class ProgressDialog : public Object {
 public:
  virtual void setDialogMessage(const std::string& message) = 0;
  virtual void setProgressStep(int32_t value) = 0;  // called with 10
  virtual void setDialogParent(const Variant& parentForm) = 0;
  virtual void setShowCancel(bool value) = 0;  // three setters called with False
  virtual void setShowPercent(bool value) = 0;
  virtual void setShowTime(bool value) = 0;
  virtual void setAnimate(bool value) = 0;    // called with True
  virtual void setIconId(int32_t value) = 0;  // called with 101
  virtual void setTopMost(bool value) = 0;    // called with False
  // The event handler: the library links its StartProgress routine here before showDialog.
  virtual void onStartProgress(std::function<void()> handler) = 0;
  virtual void showDialog(bool modal) = 0;
  virtual void closeDialog() = 0;
};

}  // namespace nvwm
