#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "channels/modApptNotifications.h"
#include "wizards/NotificationComposer.h"

namespace autonotify {

/// A channel as the windows that offer the channels use it.
struct WizardChannel {
  notifyType channel;
  const char* caption;
  /// Whether the channel is among the bits of a schedule entry.
  bool (*isSelected)(std::uint8_t bits);
  /// Adds a row about the schedule entry; -1 when there is none.
  Id (*addForEntry)(Id entry);
  /// Adds a row about the diary item; -1 when there is none.
  Id (*addForItem)(const ItemReminder& reminder);
  std::unique_ptr<NotificationComposer> (*makeComposer)();
};

/// In the order in which they are offered.
extern const std::array<WizardChannel, 4> wizardChannels;

}  // namespace autonotify
