#pragma once

#include "host/demo/demo_world.h"

namespace autonotify::host::demo {

/// What a notification is about.
struct NotifiedTask {
  Id scheduleId;
  std::string name;
  DateTime dueDate;
  std::string employee;
  bool open = true;
  DateTime notificationDate;  ///< a working day
};

/// Adds a row for each channel of the bit set; those of a closed task are sent or cancelled.
/// Returns the channels.
int addNotifications(DemoWorld& world, const Client& client, const NotifiedTask& task,
                     int channels);

/// The channels in which a client likes to hear of tasks; 0 for none.
int chooseChannels(DemoWorld& world, const Client& client);

/// A row of an appointment or time entry, `linkColumn` naming which.
void addItemNotification(DemoWorld& world, const Client& client, std::string_view linkColumn,
                         Id item, DateTime date, const std::string& subject);

}  // namespace autonotify::host::demo
