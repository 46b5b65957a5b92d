#pragma once

#include "bulk/bulk_choice.h"
#include "channels/modChannelNotifications.h"
#include "contract/ProgressDialog.h"

// The pass over a client's open tasks of one year.

namespace autonotify {

struct BulkOrder {
  BulkClient client;
  std::int16_t year = 0;
  BulkChoice choice;
  /// What is written into the notifications, as the procedures of editing write it: an empty text
  /// leaves its field alone.
  EmailTexts email;
  FaxTexts fax;
  PhoneTexts phone;
};

/// How many tasks the pass visits.
int countAutoNotificationss(const BulkOrder& order);

/// For each task and channel makes the notification, or takes the one that the task is armed with,
/// writes the recipients into it and arms the task. The dialog hears of each task that is done.
void scheduleAutoNotifications(const BulkOrder& order, ProgressDialog& dialog);

}  // namespace autonotify
