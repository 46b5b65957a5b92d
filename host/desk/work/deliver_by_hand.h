#pragma once

#include <functional>

#include "host/desk/Outcome.h"
#include "host/desk/rows/Notification.h"

namespace autonotify::host {

/// What came of a notification that a person takes to its client.
enum class HandFate {
  /// It is marked sent.
  sent,
  /// The person did not send it: it waits on.
  left,
  /// It was sent or cancelled before.
  settled,
};

/// `deliver(row)` leads the person through it and tells whether it went out; no other desk works on
/// it meanwhile. What `deliver` throws passes through.
Outcome<HandFate> deliverByHand(Desk& desk, Id id,
                                const std::function<bool(const Notification& row)>& deliver);

}  // namespace autonotify::host
