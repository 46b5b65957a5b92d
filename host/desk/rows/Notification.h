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
  /// Also of what went out at once about it.
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
  /// The member of staff who sent it.
  Id sentBy = noId;
};

/// Where a row stands. Marking a row sent or cancelled takes several writes: a run that was killed
/// among them leaves one of the two interrupted states. An unfinished one is being written, and
/// does not go out.
enum class NotificationState {
  pending,
  sent,
  cancelled,
  interruptedSending,
  interruptedCancel,
  unfinished
};

NotificationState stateOf(const Notification& notification);
/// "pending", "sent": for lists and programs.
std::string stateName(NotificationState state);
/// "is pending", "was sent": for sentences.
std::string stateWords(NotificationState state);
/// The name of its state, and its status where that is one that nobody knows: "pending (unknown
/// status 7)".
std::string stateText(const Notification& notification);

extern const char* const notificationTable;
/// The columns that readSummary wants, for a SELECT.
extern const char* const summaryColumns;
/// All but the fields and the text, which are large.
Notification readSummary(const Row& row);
/// The columns that readListed wants.
std::string listedColumns();
/// All but the text.
Notification readListed(const Row& row);
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
/// True when there is nothing to say: no word in its text. Requires a row that was read whole.
bool isWordless(const Notification& notification);
/// What the row, which was read whole, lacks to go out: "a fax number and its text"; empty for
/// nothing.
std::string missingParts(const Notification& notification);

/// The email address, fax or telephone number that it goes to; empty for a letter.
std::string addressOf(const Notification& notification);
/// The same as a term of an ORDER BY.
std::string addressTerm();
/// Who it goes to: the company's or the contact's name; empty when it has neither.
std::string clientName(Desk& desk, const Notification& notification);

}  // namespace autonotify::host
