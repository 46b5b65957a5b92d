#pragma once

#include <memory>
#include <string>

#include "host/desk/Outcome.h"
#include "host/desk/claims.h"
#include "host/desk/rows/Notification.h"
#include "host/desk/rows/Task.h"

namespace autonotify::host {

// What a use case begins with: whom it is about, while no other desk works on it. A claim waits as
// Claims::take does, and is refused when another desk stays at work.

Outcome<Task> requireTask(Desk& desk, Id id);
Outcome<Notification> requireNotification(Desk& desk, Id id);

Outcome<std::unique_ptr<Claim>> claimItem(Desk& desk, WorkItem item, Id id);
/// All of the firm's.
Outcome<std::unique_ptr<Claim>> claimTemplates(Desk& desk);

/// Keeps all other desks off the notification and off what it is about: nobody composes, arms,
/// sends or changes it meanwhile. Its state is that of the row as it is read then.
Outcome<std::unique_ptr<Claim>> claimNotification(Desk& desk, const Notification& notification);

/// The same, null where it would have to wait. Whoever holds other claims uses this one, so that no
/// two desks wait for each other.
std::unique_ptr<Claim> tryClaimNotification(Desk& desk, const Notification& notification);

/// A task or a notification, and the claim on it.
template <class Row>
struct Claimed {
  std::unique_ptr<Claim> claim;
  Row row;
};
Outcome<Claimed<Task>> claimTask(Desk& desk, Id id);
/// With what it is about.
Outcome<Claimed<Notification>> claimNotification(Desk& desk, Id id);

}  // namespace autonotify::host
