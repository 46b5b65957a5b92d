#pragma once

#include <optional>
#include <string>

#include "host/desk/Desk.h"
#include "host/desk/rows/readable_rows.h"

namespace autonotify::host {

/// A row of ClientNotification.
struct Notification {
  // Places of `fields` by channel.
  static constexpr int emailTo = 0;
  static constexpr int emailCc = 1;
  static constexpr int emailBcc = 2;
  static constexpr int emailSubject = 3;
  static constexpr int faxNumber = 3;
  static constexpr int phoneTo = 0;
  static constexpr int phoneNumber = 1;
  static constexpr int phoneTimes = 2;

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

extern const char* const notificationTable;
/// The columns that readSummary wants, for a SELECT.
extern const char* const summaryColumns;
/// All but the fields and the text, which are large.
Notification readSummary(const Row& row);
/// Everything, for a SELECT of all columns.
Notification readWhole(const Row& row);

/// Throws UnreadableRow.
std::optional<Notification> findNotification(Desk& desk, Id id);
/// The notifications of a schedule entry, without fields and text.
ReadableRows<Notification> readNotificationsOf(Desk& desk, Id scheduleId);

/// True for a row that still waits though its date has gone by.
bool isOverdue(Desk& desk, const Notification& notification);
/// What the row lacks to reach anyone by its channel, "an email address"; empty for nothing.
std::string missingAddress(const Notification& notification);

/// What the notification is about: the schedule entry's name, or the item's subject.
std::string itemName(Desk& desk, const Notification& notification);
/// Who it goes to: the company's or the contact's name; empty when it has neither.
std::string clientName(Desk& desk, const Notification& notification);

}  // namespace autonotify::host
