#include "binding/ModalWindow.h"

#include <QEventLoop>

#include "binding/FaultWatch.h"

namespace autonotify::desktop {

void ModalWindow::runModally() {
  QEventLoop loop;
  FaultWatch watch(loop);
  loop_ = &loop;
  setWindowModality(Qt::ApplicationModal);
  show();
  begin();
  if (!isLeft_) loop.exec(QEventLoop::DialogExec);
  loop_ = nullptr;
  leave();
  watch.rethrow();
}

void ModalWindow::leave() {
  isLeft_ = true;
  hide();
  if (loop_) loop_->quit();
}

}  // namespace autonotify::desktop
