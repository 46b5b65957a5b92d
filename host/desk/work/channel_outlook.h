#pragma once

#include <optional>
#include <vector>

#include "host/desk/Outcome.h"
#include "host/desk/rows/Notification.h"

namespace autonotify::host {

/// What is known of telling a task's client by one channel, before anybody does.
struct ChannelOutlook {
  notifyType channel;
  /// The task's notification by the channel, without fields and text: the one that waits, or else
  /// the last one.
  std::optional<Notification> row = std::nullopt;
  /// False when no address or number is on file that leads to the client.
  bool hasAddress = false;
};

/// One for each channel. Throws DatabaseError.
Outcome<std::vector<ChannelOutlook>> readChannelOutlook(Desk& desk, Id task);

}  // namespace autonotify::host
