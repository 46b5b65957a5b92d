#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/desk/Outcome.h"
#include "host/desk/rows/Notification.h"
#include "host/desk/work/Armable.h"

namespace autonotify::host {

/// What became of one channel.
enum class ChannelFate {
  armed,
  alreadyArmed,
  disarmed,
  // The others leave the channel as it was.
  /// Armed before, and its row no longer waits: it is to be disarmed first.
  settled,
  /// To be disarmed, but its row was sent or may have been; force deletes the record.
  mayBeSent,
  /// To be disarmed, but there is neither a row nor a mark.
  notArmed,
  /// The component gave no row.
  nothingAdded,
  /// The row is there, and the item does not take the mark.
  notMarked,
  /// Another desk works on its row and did not let go in time.
  atWorkElsewhere,
  /// Its row, or the item itself, was deleted meanwhile.
  notThere,
  /// The component met errors.
  failed,
};

struct ChannelOutcome {
  notifyType channel;
  ChannelFate fate = ChannelFate::failed;
  /// The notification that was armed, disarmed (it is deleted by now) or left; noId for none.
  Id notification = noId;
  /// The same as it stands.
  std::optional<Notification> row = std::nullopt;
  /// What the component met.
  std::string errors = {};

  bool isDone() const { return fate <= ChannelFate::disarmed; }
};

using ArmingOutcome = Outcome<std::vector<ChannelOutcome>>;

/// Adds the notifications of the channels and marks the item. A channel that is armed already stays
/// as it is; one whose row lost its mark to an interrupted run gets it back.
ArmingOutcome armChannels(Desk& desk, Armable& item, std::span<const notifyType> channels);

/// Deletes the rows and clears the marks. A row that was sent is deleted with `force` alone.
ArmingOutcome disarmChannels(Desk& desk, Armable& item, std::span<const notifyType> channels,
                             bool force);

}  // namespace autonotify::host
