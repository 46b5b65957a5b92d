#pragma once

#include <QApplication>
#include <QEventLoop>
#include <exception>

namespace autonotify::desktop {

/// Watches the loop of a window for faults of the program. An exception may not pass through the
/// toolkit's loops: GuardedApplication catches it, ends the innermost watched loop, and rethrow()
/// throws it on behind the loop. Watches nest as the loops do.
class FaultWatch {
 public:
  explicit FaultWatch(QEventLoop& loop);
  ~FaultWatch();
  FaultWatch(const FaultWatch&) = delete;
  FaultWatch& operator=(const FaultWatch&) = delete;

  /// Throws what the loop ended with, if it was a fault.
  void rethrow();

  /// False when no loop is watched.
  static bool report(std::exception_ptr fault);

 private:
  static FaultWatch* innermost_;

  QEventLoop& loop_;
  FaultWatch* outer_;
  std::exception_ptr fault_;
};

/// An application whose windows may meet faults of the program. A fault outside of all watched
/// windows is told to the person, and the program goes on.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace autonotify::desktop
