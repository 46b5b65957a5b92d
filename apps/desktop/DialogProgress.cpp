#include "DialogProgress.h"

#include <QApplication>
#include <algorithm>

#include "platform/PlatformError.h"
#include "qt_text.h"

namespace autonotify::desktop {

// The dialog's own setValue would handle messages at every value; its bar alone is painted where
// that shows.
void DialogProgress::draw() {
  if (!dialog_) bringUp();
  bar_->setMaximum(std::max(maximum(), 1));
  bar_->setValue(value());
  pump_.step(QEventLoop::AllEvents);
  if (dialog_->wasCanceled()) throw PlatformError(cancelled, "The work was cancelled", className);
}

void DialogProgress::bringUp() {
  dialog_ = std::make_unique<QProgressDialog>(shown(text()), QObject::tr("Cancel"), 0, 1);
  bar_ = dialog_->findChild<QProgressBar*>();
  dialog_->setObjectName("progressDialog");
  dialog_->setWindowTitle(
      QCoreApplication::translate("autonotify::desktop::MainWindow", "Client Notifications"));
  dialog_->setWindowModality(Qt::ApplicationModal);
  dialog_->setAutoClose(false);
  dialog_->setAutoReset(false);
  dialog_->setMinimumDuration(0);
  dialog_->show();
}

}  // namespace autonotify::desktop
