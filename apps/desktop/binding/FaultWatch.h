#pragma once

#include <QApplication>
#include <QEventLoop>
#include <exception>
#include <functional>

namespace autonotify::desktop {

/// Watches the loop of a window for faults of the program. An exception may not pass through the
/// toolkit: what the toolkit calls runs in guard(), which ends the innermost watched loop, and
/// rethrow() throws the fault on behind the loop. Watches nest as the loops do.
class FaultWatch {
 public:
  explicit FaultWatch(QEventLoop& loop);
  ~FaultWatch();
  FaultWatch(const FaultWatch&) = delete;
  FaultWatch& operator=(const FaultWatch&) = delete;

  /// Throws what the loop ended with, if it was a fault.
  void rethrow();

  /// Runs `act`. Where no loop is watched, its fault is told to the person.
  static void guard(const std::function<void()>& act);

 private:
  void end(std::exception_ptr fault);

  static FaultWatch* innermost_;

  QEventLoop& loop_;
  FaultWatch* outer_;
  std::exception_ptr fault_;
};

/// Guards all events, for what reaches the program past the guards of its own.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace autonotify::desktop
