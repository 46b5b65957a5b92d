#pragma once

#include <algorithm>
#include <iterator>

#include "Reply.h"
#include "Session.h"
#include "host/clients/record_rows.h"
#include "host/desk/notifications.h"

namespace autonotify::console {

using host::channelName;
using host::channelNames;
using host::clientName;
using host::dayText;
using host::findNotification;
using host::firstRow;
using host::forEachRow;
using host::isOverdue;
using host::itemName;
using host::LookupBatch;
using host::Notification;
using host::NotificationState;
using host::pastNote;
using host::readSummary;
using host::readTask;
using host::Row;
using host::stateName;
using host::stateOf;
using host::stateWords;
using host::summaryColumns;
using host::Task;
using host::taskColumns;

/// The day for programs: null for the zero date.
Json dayJson(DateTime moment);

/// The row of a table for the channel; null for none.
template <class Row, std::size_t size>
const Row* findChannel(const Row (&table)[size], int channel) {
  const Row* found =
      std::ranges::find_if(table, [&](const Row& row) { return row.channel == channel; });
  return found == std::end(table) ? nullptr : found;
}

/// Throws Refusal when there is no such row.
Notification loadNotification(Session& session, Id id);

// Each throws Refusal when another desk stays at work on it.
std::unique_ptr<host::Claim> claimItem(Session& session, host::WorkItem item, Id id);
/// With what it is about. Throws Refusal when there is no such row, too.
std::unique_ptr<host::Claim> claimNotification(Session& session, Id id);

/// Throws Refusal when there is no such task.
Task loadTask(Session& session, Id id);

}  // namespace autonotify::console
