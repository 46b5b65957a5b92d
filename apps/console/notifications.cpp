#include "notifications.h"

#include <fmt/format.h>

namespace autonotify::console {
namespace {

const char* workName(host::WorkItem item) {
  constexpr const char* names[] = {"notification", "task", "appointment", "time entry"};
  return names[static_cast<std::size_t>(item) - 1];
}

std::unique_ptr<host::Claim> taken(std::unique_ptr<host::Claim> claim, host::WorkItem item, Id id) {
  if (claim) return claim;
  throw Refusal(
      fmt::format("another desk is at work on {} {}; try again later", workName(item), id));
}

}  // namespace

Json dayJson(DateTime moment) {
  return moment.isZero() ? Json() : Json(dayText(moment));
}

Notification loadNotification(Session& session, Id id) {
  const auto found = findNotification(session, id);
  if (!found) throw Refusal(fmt::format("there is no notification {}", id));
  return *found;
}

std::unique_ptr<host::Claim> claimItem(Session& session, host::WorkItem item, Id id) {
  return taken(session.claims().take(item, id), item, id);
}

std::unique_ptr<host::Claim> claimNotification(Session& session, Id id) {
  return taken(host::claimNotification(session, loadNotification(session, id)),
               host::WorkItem::notification, id);
}

Task loadTask(Session& session, Id id) {
  const auto found = host::findTask(session, id);
  if (!found) throw Refusal(fmt::format("there is no task {}", id));
  return *found;
}

}  // namespace autonotify::console
