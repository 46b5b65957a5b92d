#include "binding/FaultWatch.h"

#include <QMessageBox>
#include <utility>

namespace autonotify::desktop {
namespace {

QString wordsOf(const std::exception_ptr& fault) {
  try {
    std::rethrow_exception(fault);
  } catch (const std::exception& error) {
    return QString::fromUtf8(error.what());
  } catch (...) {
    return QObject::tr("an unknown fault");
  }
}

void tell(const std::exception_ptr& fault) {
  QMessageBox::critical(QApplication::activeWindow(), QObject::tr("A fault of the program"),
                        QObject::tr("The program has met a fault of its own, and did not do what "
                                    "you asked for:\n\n%1")
                            .arg(wordsOf(fault)));
}

}  // namespace

FaultWatch* FaultWatch::innermost_ = nullptr;

FaultWatch::FaultWatch(QEventLoop& loop) : loop_(loop), outer_(std::exchange(innermost_, this)) {}

FaultWatch::~FaultWatch() {
  innermost_ = outer_;
}

void FaultWatch::rethrow() {
  if (fault_) std::rethrow_exception(std::exchange(fault_, nullptr));
}

bool FaultWatch::report(std::exception_ptr fault) {
  if (!innermost_) return false;
  if (!innermost_->fault_) innermost_->fault_ = std::move(fault);
  innermost_->loop_.quit();
  return true;
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    const std::exception_ptr fault = std::current_exception();
    if (!FaultWatch::report(fault)) tell(fault);
    return true;
  }
}

}  // namespace autonotify::desktop
