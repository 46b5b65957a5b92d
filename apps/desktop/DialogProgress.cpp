#include "DialogProgress.h"

#include <QApplication>
#include <algorithm>

#include "platform/PlatformError.h"
#include "qt_text.h"

namespace autonotify::desktop {

// Gathers its acts while the component lets the host handle messages, and in setValue.
void DialogProgress::draw() {
  if (!dialog_) bringUp();
  dialog_->setMaximum(std::max(maximum(), 1));
  dialog_->setValue(value());
  if (dialog_->wasCanceled()) throw PlatformError(cancelled, "The work was cancelled", className);
}

void DialogProgress::bringUp() {
  dialog_ = std::make_unique<QProgressDialog>(shown(text()), QObject::tr("Cancel"), 0, 1);
  dialog_->setObjectName("progressDialog");
  dialog_->setWindowTitle(QApplication::applicationDisplayName());
  dialog_->setWindowModality(Qt::ApplicationModal);
  dialog_->setAutoClose(false);
  dialog_->setAutoReset(false);
  dialog_->setMinimumDuration(0);
  dialog_->show();
}

}  // namespace autonotify::desktop
