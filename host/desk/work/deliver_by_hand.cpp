#include "host/desk/work/deliver_by_hand.h"

#include "host/desk/work/claiming.h"

namespace autonotify::host {

Outcome<HandFate> deliverByHand(Desk& desk, Id id,
                                const std::function<bool(const Notification& row)>& deliver) {
  const auto claimed = claimNotification(desk, id);
  if (!claimed) return claimed.refused();
  if (stateOf(claimed->row) != NotificationState::pending) return HandFate::settled;
  if (!deliver(claimed->row)) return HandFate::left;
  const auto mark = [&] { desk.tools().changeNotificationToSent(id); };
  if (auto refused = tellComponent(desk, subjectOf(WorkItem::notification, id), mark))
    return *std::move(refused);
  return HandFate::sent;
}

}  // namespace autonotify::host
