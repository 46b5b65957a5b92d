#include "notifications.h"

#include <fmt/format.h>

namespace autonotify::console {

Json dayJson(DateTime moment) {
  return moment.isZero() ? Json() : Json(dayText(moment));
}

Notification loadNotification(Session& session, Id id) {
  const auto found = findNotification(session, id);
  if (!found) throw Refusal(fmt::format("there is no notification {}", id));
  return *found;
}

Task loadTask(Session& session, Id id) {
  const auto found = host::findTask(session, id);
  if (!found) throw Refusal(fmt::format("there is no task {}", id));
  return *found;
}

}  // namespace autonotify::console
