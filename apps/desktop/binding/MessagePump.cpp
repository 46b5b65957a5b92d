#include "binding/MessagePump.h"

#include <QAbstractEventDispatcher>

namespace autonotify::desktop {
namespace {

constexpr int quietMilliseconds = 4;

}  // namespace

void MessagePump::step(QEventLoop::ProcessEventsFlags which) {
  if (quiet_.isValid() && !quiet_.hasExpired(quietMilliseconds)) return;
  if (QAbstractEventDispatcher::instance()->processEvents(which))
    quiet_.invalidate();
  else
    quiet_.start();
}

}  // namespace autonotify::desktop
