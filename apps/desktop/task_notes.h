#pragma once

#include "binding/window_notes.h"
#include "host/desk/rows/Notification.h"
#include "host/desk/work/client_contacts.h"
#include "host/desk/work/task_list.h"

namespace autonotify::desktop {

/// Of a notification: its client and what it is about, with the due date where it is a task.
/// Throws DatabaseError.
host::TaskLine subjectLine(host::Desk& desk, const host::Notification& row);
/// "Maple Ridge Law Group Inc., Annual HST Return, due on Thursday, April 30, 2026"
QString subjectOf(const host::TaskLine& line);

// What the program says in the component's windows about the task, the notification or the client
// that they were opened for. All throw DatabaseError.

/// The client's name.
WindowNotes clientNotes(host::Desk& desk, const host::TaskLine& line);
WindowNotes clientNotes(host::Desk& desk, const host::Client& client);
/// The client, the task and its due date.
WindowNotes taskNotes(host::Desk& desk, const host::TaskLine& line);
/// The client, the task, and beside each channel when its notification goes out, or what is missing
/// for one.
WindowNotes channelNotes(host::Desk& desk, const host::TaskLine& line);

}  // namespace autonotify::desktop
