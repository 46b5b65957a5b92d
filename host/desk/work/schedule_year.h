#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "host/desk/rows/Task.h"
#include "host/desk/work/arm_channels.h"
#include "host/desk/work/client_contacts.h"
#include "host/desk/work/compose_email.h"
#include "platform/controls/Form.h"

namespace autonotify::host {

/// Which of a client's open tasks are armed, and by which channels.
struct YearWish {
  /// A company or a contact.
  Client client;
  std::int16_t year = 0;
  /// By their `totalNum`.
  std::vector<Id> families;
  std::vector<notifyType> channels;
};

/// A task of the year and what became of its channels, in the order of the wish.
struct YearTask {
  Task task;
  /// When a notification that does not wait yet would go out; told by previewYear alone.
  DateTime date;
  std::vector<ChannelOutcome> channels;
};
using YearOutcome = Outcome<std::vector<YearTask>>;

/// Whether the channel's notification is past: it is due at once.
bool isPast(Desk& desk, const YearTask& task, const ChannelOutcome& outcome);

/// What scheduleYear would do: `armed`, without a row, where there is none yet. Changes nothing.
YearOutcome previewYear(Desk& desk, const YearWish& wish);

/// Arms all tasks of the wish in one pass of the component, by due date. What is armed already
/// stays as it is, with its recipients; a notification that lost its mark to an interrupted run
/// gets it back. Nothing is done while another desk works on one of the tasks; what was added is
/// taken back when the component meets errors. Requires a desk without a screen.
YearOutcome scheduleYear(Desk& desk, const YearWish& wish);

/// Gives what Finish in the component's window would do as the window stands.
using AskYear = std::function<YearOutcome(const Form& window)>;

/// The same as a person chooses in the component's window for the task's client. Nothing changes
/// before Finish; the choice is kept when the component has met no errors. Meanwhile no other desk
/// works on an open task of the client. A person who cancels the work keeps the tasks that are
/// done. `offer` is given, before the window comes up, what may be asked until this returns.
Outcome<Composed> chooseYear(Desk& desk, Id task, const std::function<void(AskYear)>& offer);

}  // namespace autonotify::host
