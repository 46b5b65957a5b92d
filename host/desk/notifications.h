#pragma once

#include <optional>
#include <string>
#include <vector>

#include "contract/enumerations.h"
#include "host/desk/Desk.h"

namespace autonotify::host {

class Row;

/// A row of ClientNotification.
struct Notification {
  // Places of `fields` by channel.
  static constexpr int emailTo = 0;
  static constexpr int emailCc = 1;
  static constexpr int emailBcc = 2;
  static constexpr int emailSubject = 3;
  static constexpr int faxNumber = 3;
  static constexpr int phoneNumber = 1;

  Id id = noId;
  int channel = 0;
  Id scheduleId = noId;
  Id appointmentId = noId;
  Id taskId = noId;
  Id docketId = noId;
  Id companyId = noId;
  Id contactId = noId;
  DateTime date;
  std::string fields[6];
  std::string memo;
  bool sent = false;
  int sentStatus = 0;
  DateTime sentTime;
};

/// Where a row stands. Marking a row sent or cancelled takes several writes: a run that was killed
/// among them leaves one of the two interrupted states.
enum class NotificationState { pending, sent, cancelled, interruptedSending, interruptedCancel };

NotificationState stateOf(const Notification& notification);
/// "pending", "sent": for lists and programs.
std::string stateName(NotificationState state);
/// "is pending", "was sent": for sentences.
std::string stateWords(NotificationState state);

/// "email", "fax", "letter" or "phone".
std::string channelName(int channel);
/// The channels of a bit set, joined by commas; "-" for none.
std::string channelNames(int bits);

/// The day as people read it: "2026-04-30"; "-" for the zero date.
std::string dayText(DateTime moment);

/// The columns that readSummary wants, for a SELECT.
extern const char* const summaryColumns;
/// All but the fields and the text, which are large.
Notification readSummary(const Row& row);

std::optional<Notification> findNotification(Desk& desk, Id id);

/// Keeps all other desks off the notification and off what it is about: nobody composes, arms,
/// sends or changes it meanwhile. Waits as Claims::take does; null when another desk stays at work.
std::unique_ptr<Claim> claimNotification(Desk& desk, const Notification& notification);

/// True for a row that still waits though its date has gone by.
bool isOverdue(Desk& desk, const Notification& notification);
/// ", which is past: ..." for such a row; empty for others.
std::string pastNote(Desk& desk, const Notification& notification);

/// What the notification is about: the schedule entry's name, or the item's subject.
std::string itemName(Desk& desk, const Notification& notification);
/// Who it goes to: the company's or the contact's name; empty when it has neither.
std::string clientName(Desk& desk, const Notification& notification);

/// A schedule entry, as lists name it.
struct Task {
  Id id = noId;
  Id clientNum = noId;
  Id contactId = noId;
  std::string name;
  DateTime dueDate;
  int channels = 0;
  bool closed = false;
};

/// The columns that readTask wants, for a SELECT.
extern const char* const taskColumns;
Task readTask(const Row& row);
std::optional<Task> findTask(Desk& desk, Id id);
std::string clientName(Desk& desk, const Task& task);

}  // namespace autonotify::host
