#include "host/desk/work/arm_channels.h"

#include "host/desk/work/claiming.h"

namespace autonotify::host {
namespace {

/// One channel of an item that is claimed.
class ChannelWork {
 public:
  ChannelWork(Desk& desk, Armable& item, int marked, notifyType channel)
      : desk_(desk), item_(item), isMarked_(marked & channel), channel_(channel) {}

  ChannelOutcome arm() {
    const auto existing = findRow();
    if (!existing) return failed(existing.refused().errors);
    if (*existing < 0) return armAnew();
    const auto row = findNotification(desk_, *existing);
    if (!row) return left(ChannelFate::notThere, *existing);
    if (stateOf(*row) != NotificationState::pending) return left(ChannelFate::settled, *row);
    return marked(*existing, nt_AddStatus,
                  isMarked_ ? ChannelFate::alreadyArmed : ChannelFate::armed);
  }

  ChannelOutcome disarm(bool force) {
    const auto existing = findRow();
    if (!existing) return failed(existing.refused().errors);
    if (*existing >= 0) return disarmRow(*existing, force);
    if (!isMarked_) return left(ChannelFate::notArmed);
    return marked(noId, nt_RemoveStatus, ChannelFate::disarmed);
  }

  ChannelOutcome failed(std::string errors) const {
    return {channel_, ChannelFate::failed, noId, std::nullopt, std::move(errors)};
  }

 private:
  Outcome<Id> findRow() {
    return askComponent(desk_, item_.subject(), [&] { return item_.findRow(channel_); });
  }

  ChannelOutcome left(ChannelFate fate, Id notification = noId) const {
    return {channel_, fate, notification};
  }

  ChannelOutcome left(ChannelFate fate, const Notification& row) const {
    return {channel_, fate, row.id, row};
  }

  /// `fate`, once the item's mark says the same.
  ChannelOutcome marked(Id notification, changeStatus change, ChannelFate fate) {
    bool isDone = false;
    std::string errors = desk_.errorsOf([&] { isDone = item_.mark(channel_, change); });
    if (!errors.empty()) return failed(std::move(errors));
    if (!isDone) return left(ChannelFate::notMarked);
    return {channel_, fate, notification, findNotification(desk_, notification)};
  }

  /// Adds the row and sets the mark. A row during whose making an error was met is taken back: it
  /// may lack its text or its recipient. So is one that another program was quicker to make.
  ChannelOutcome armAnew() {
    Id added = noId;
    Id first = noId;
    std::string errors = desk_.errorsOf([&] {
      added = item_.addRow(channel_);
      if (added >= 0) first = item_.findRow(channel_);
    });
    const bool isKept = errors.empty() && first == added;
    if (added >= 0 && !isKept) desk_.control().cls_deleteNotification(added);
    if (!errors.empty()) return failed(std::move(errors));
    if (first < 0) return left(ChannelFate::nothingAdded);
    return marked(first, nt_AddStatus,
                  first == added ? ChannelFate::armed : ChannelFate::alreadyArmed);
  }

  ChannelOutcome disarmRow(Id existing, bool force) {
    const auto claim = claimItem(desk_, WorkItem::notification, existing);
    if (!claim) return left(ChannelFate::atWorkElsewhere, existing);
    const auto row = findNotification(desk_, existing);
    if (!row) return left(ChannelFate::notThere, existing);
    const NotificationState state = stateOf(*row);
    const bool mayBeSent =
        state == NotificationState::sent || state == NotificationState::interruptedSending;
    if (mayBeSent && !force) return left(ChannelFate::mayBeSent, *row);
    std::string errors = desk_.errorsOf([&] { desk_.control().cls_deleteNotification(existing); });
    if (!errors.empty()) return failed(std::move(errors));
    return marked(existing, nt_RemoveStatus, ChannelFate::disarmed);
  }

  Desk& desk_;
  Armable& item_;
  bool isMarked_;
  notifyType channel_;
};

/// A channel whose row cannot be read stays as it is, and keeps nobody from the others.
template <class Change>
ChannelOutcome changed(ChannelWork work, Change& change) {
  try {
    return change(work);
  } catch (const UnreadableRow& row) {
    return work.failed(row.description());
  }
}

/// Runs `change` for each channel while no other desk works on the item.
template <class Change>
ArmingOutcome forEachChannel(Desk& desk, Armable& item, std::span<const notifyType> channels,
                             Change&& change) {
  const auto claim = claimItem(desk, item.claimedAs(), item.claimedId());
  if (!claim) return claim.refused();
  std::vector<ChannelOutcome> outcomes;
  for (const notifyType channel : channels) {
    const auto marked = item.channels();
    if (!marked && outcomes.empty()) return Refused{Refused::Why::notThere, item.subject()};
    outcomes.push_back(marked ? changed(ChannelWork(desk, item, *marked, channel), change)
                              : ChannelOutcome{channel, ChannelFate::notThere});
  }
  return outcomes;
}

}  // namespace

ArmingOutcome armChannels(Desk& desk, Armable& item, std::span<const notifyType> channels) {
  return forEachChannel(desk, item, channels, [](ChannelWork work) { return work.arm(); });
}

ArmingOutcome disarmChannels(Desk& desk, Armable& item, std::span<const notifyType> channels,
                             bool force) {
  return forEachChannel(desk, item, channels, [&](ChannelWork work) { return work.disarm(force); });
}

}  // namespace autonotify::host
