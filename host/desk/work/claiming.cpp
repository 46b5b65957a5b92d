#include "host/desk/work/claiming.h"

#include <array>
#include <optional>

namespace autonotify::host {
namespace {

struct ClaimedLink {
  Id Notification::*link;
  WorkItem item;
};
constexpr std::array<ClaimedLink, 3> claimedLinks{{
    {&Notification::scheduleId, WorkItem::task},
    {&Notification::appointmentId, WorkItem::appointment},
    {&Notification::docketId, WorkItem::timeEntry},
}};

/// Two claims that stand and fall together.
struct BothClaims : Claim {
  std::unique_ptr<Claim> item;
  std::unique_ptr<Claim> notification;
};

template <class Row>
Outcome<Row> thereOr(std::optional<Row> found, WorkItem item, Id id) {
  if (found) return *std::move(found);
  return Refused{Refused::Why::notThere, subjectOf(item, id)};
}

struct ClaimedItem {
  WorkItem item;
  Id id;
};
/// What the notification is about, if it is about anything.
std::optional<ClaimedItem> itemOf(const Notification& notification) {
  for (const auto& [link, item] : claimedLinks) {
    if (notification.*link >= 0) return ClaimedItem{item, notification.*link};
  }
  return std::nullopt;
}

using Take = std::unique_ptr<Claim> (Claims::*)(WorkItem item, Id id);

/// Null when another desk has either. The item first, as whoever disarms it does: so no two desks
/// wait for each other.
std::unique_ptr<Claim> claimBoth(Desk& desk, const Notification& notification, Take take) {
  auto both = std::make_unique<BothClaims>();
  if (const auto about = itemOf(notification)) {
    both->item = (desk.claims().*take)(about->item, about->id);
    if (!both->item) return nullptr;
  }
  both->notification = (desk.claims().*take)(WorkItem::notification, notification.id);
  if (!both->notification) return nullptr;
  return both;
}

}  // namespace

Outcome<Task> requireTask(Desk& desk, Id id) {
  return thereOr(findTask(desk, id), WorkItem::task, id);
}

Outcome<Notification> requireNotification(Desk& desk, Id id) {
  return thereOr(findNotification(desk, id), WorkItem::notification, id);
}

Outcome<std::unique_ptr<Claim>> claimItem(Desk& desk, WorkItem item, Id id) {
  auto claim = desk.claims().take(item, id);
  if (!claim) return Refused{Refused::Why::atWorkElsewhere, subjectOf(item, id)};
  return claim;
}

Outcome<std::unique_ptr<Claim>> claimTemplates(Desk& desk) {
  auto claim = desk.claims().take(WorkItem::templates, wholeFirm);
  if (!claim) return Refused{Refused::Why::atWorkElsewhere, "the templates"};
  return claim;
}

std::unique_ptr<Claim> tryClaimNotification(Desk& desk, const Notification& notification) {
  return claimBoth(desk, notification, &Claims::tryTake);
}

Outcome<std::unique_ptr<Claim>> claimNotification(Desk& desk, const Notification& notification) {
  if (auto claim = claimBoth(desk, notification, &Claims::take)) return claim;
  return Refused{Refused::Why::atWorkElsewhere, subjectOf(WorkItem::notification, notification.id)};
}

Outcome<Claimed<Task>> claimTask(Desk& desk, Id id) {
  auto claim = claimItem(desk, WorkItem::task, id);
  if (!claim) return claim.refused();
  auto task = requireTask(desk, id);
  if (!task) return task.refused();
  return Claimed<Task>{*std::move(claim), *std::move(task)};
}

Outcome<Claimed<Notification>> claimNotification(Desk& desk, Id id) {
  const auto known = requireNotification(desk, id);
  if (!known) return known.refused();
  auto claim = claimNotification(desk, *known);
  if (!claim) return claim.refused();
  auto row = requireNotification(desk, id);
  if (!row) return row.refused();
  return Claimed<Notification>{*std::move(claim), *std::move(row)};
}

}  // namespace autonotify::host
