#pragma once

#include <string>

#include "platform/DateTime.h"
#include "platform/Value.h"

// The notifications of a schedule entry, one pair of procedures to add and one to edit per channel.
//
// An add works out the date, finds the recipient and writes one row; it gives the new row's id, or
// -1 when the database is closed. A date that could not be worked out leaves the row's empty, so
// that it never falls due. `Schedule.notifyType` is the caller's. Failures are settled at
// the error dialog; a column that is skipped there is missing in a row that is saved all the same.

namespace autonotify {

/// Who is to be notified. A company not below 0 comes before a contact; both are stored in the row.
struct NotificationClient {
  Id companyId = noId;
  Id contactId = noId;

  bool isCompany() const { return companyId >= 0; }
  bool isContact() const { return !isCompany() && contactId >= 0; }
};

// From the schedule entry alone. The client is the entry's company, otherwise its contact; the text
// is the merged template of the entry's kind. An entry without a client makes the email, fax and
// phone procedures ask the error dialog; a letter is added with no client.

Id addNewEmailNotificationFromScheduleIDNum(Id scheduleID);
Id addNewFaxNotificationFromScheduleIDNum(Id scheduleID);
Id addNewLetterNotificationFromScheduleIDNum(Id scheduleID);
Id addNewPhoneNotificationFromScheduleIDNum(Id scheduleID);

// From what the caller knows already: the client, stored as given, the parts of the subject and
// the text.

struct KnownEntry {
  Id scheduleID;
  NotificationClient client;
  std::string scheduleName;
  DateTime dueDate;
  std::string templateComment;
};

Id addNewEmailNotificationFromScheduleNameAndDueDate(const KnownEntry& entry);
Id addNewFaxNotificationFromScheduleNameAndDueDate(const KnownEntry& entry);
Id addNewLetterNotificationFromScheduleNameAndDueDate(const KnownEntry& entry);
Id addNewPhoneNotificationFromScheduleNameAndDueDate(const KnownEntry& entry);

// Editing. An empty text leaves its field alone, so that a field cannot be cleared; only the
// letter's text is always written. The modified stamp is written even when no field changes.

struct EmailTexts {
  std::string to, cc, bcc, subject, memo;
};
struct FaxTexts {
  std::string to, from, senderFax, receiverFax, pages, subject, memo;
};
struct PhoneTexts {
  std::string to, number, times, memo;
};

void editEmailNotification(Id notificationNum, const EmailTexts& texts);
void editFaxNotification(Id notificationNum, const FaxTexts& texts);
void editLetterNotification(Id notificationNum, const std::string& memo);
void editPhoneNotification(Id notificationNum, const PhoneTexts& texts);

}  // namespace autonotify
