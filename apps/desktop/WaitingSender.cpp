#include "WaitingSender.h"

#include <QApplication>
#include <QCursor>
#include <QScopeGuard>

#include "DialogMsgbox.h"
#include "qt_text.h"

namespace autonotify::desktop {

bool WaitingSender::sendBusily() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const auto done = qScopeGuard(QApplication::restoreOverrideCursor);
  return host::OutboxEmailSender::send();
}

bool WaitingSender::send() {
  const bool isSent = sendBusily();
  if (!keepFault().empty())
    DialogMsgbox().showMessage(
        plain(QObject::tr("The email was sent, but %1").arg(shown(keepFault()))),
        message_style::warning, nullptr, 0, 0, 101, 0, "", 0);
  return isSent;
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
