#pragma once

#include <QElapsedTimer>
#include <QEventLoop>

namespace autonotify::desktop {

/// Handles messages while the component works. Long works take a step of it for each row: one that
/// has found nothing waiting is followed for 4 ms by steps that cost no more than a look at the
/// clock.
class MessagePump {
 public:
  void step(QEventLoop::ProcessEventsFlags which);

 private:
  /// Since a step that found nothing; invalid after one that did.
  QElapsedTimer quiet_;
};

}  // namespace autonotify::desktop
