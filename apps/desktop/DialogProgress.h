#pragma once

#include <QProgressBar>
#include <QProgressDialog>
#include <memory>

#include "binding/MessagePump.h"
#include "host/services/HostProgressDialog.h"

namespace autonotify::desktop {

/// How far a long work has come, with a button that cancels it behind what is counted.
class DialogProgress : public host::HostProgressDialog {
 protected:
  void draw() override;
  void takeAway() override { dialog_.reset(); }

 private:
  void bringUp();

  std::unique_ptr<QProgressDialog> dialog_;
  QProgressBar* bar_ = nullptr;  // of the dialog
  MessagePump pump_;
};

}  // namespace autonotify::desktop
