#include "WaitingSender.h"

#include <QApplication>
#include <QCursor>
#include <QScopeGuard>

namespace autonotify::desktop {

bool WaitingSender::send() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const auto done = qScopeGuard(QApplication::restoreOverrideCursor);
  return host::OutboxEmailSender::send();
}

void WaitingSender::registerAt(host::Desk& desk) {
  desk.classes().registerClass(EmailSender::className, [&desk] {
    desk.makeOutbox();
    return std::make_unique<WaitingSender>(std::move(*desk.newEmailSender()));
  });
}

void WaitingSender::paintWindows() {
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace autonotify::desktop
