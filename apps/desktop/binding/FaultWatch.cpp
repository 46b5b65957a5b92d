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

void FaultWatch::end(std::exception_ptr fault) {
  if (!fault_) fault_ = std::move(fault);
  loop_.quit();
}

void FaultWatch::guard(const std::function<void()>& act) {
  try {
    act();
  } catch (...) {
    const std::exception_ptr fault = std::current_exception();
    innermost_ ? innermost_->end(fault) : tell(fault);
  }
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  bool isTaken = true;
  FaultWatch::guard([&] { isTaken = QApplication::notify(receiver, event); });
  return isTaken;
}

}  // namespace autonotify::desktop
