#pragma once

#include <QProgressDialog>
#include <memory>

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
};

}  // namespace autonotify::desktop
