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

// From the schedule entry alone. The client is the entry's company, otherwise its contact; the text
// is the merged template of the entry's kind. An entry without a client makes the email, fax and
// phone procedures ask the error dialog; a letter is added with no client.

Id addNewEmailNotificationFromScheduleIDNum(Id scheduleID);
Id addNewFaxNotificationFromScheduleIDNum(Id scheduleID);
Id addNewLetterNotificationFromScheduleIDNum(Id scheduleID);
Id addNewPhoneNotificationFromScheduleIDNum(Id scheduleID);

// From what the caller knows already: the client's ids, stored as given (a company not below 0
// comes before a contact), the parts of the subject and the text. `taskID` is not used.

using AddFromNameAndDueDate = Id(Id scheduleID, Id taskID, Id CompanyIDNum, Id ContactIDNum,
                                 const std::string& scheduleName, DateTime dueDate,
                                 const std::string& templateComment);
AddFromNameAndDueDate addNewEmailNotificationFromScheduleNameAndDueDate;
AddFromNameAndDueDate addNewFaxNotificationFromScheduleNameAndDueDate;
AddFromNameAndDueDate addNewLetterNotificationFromScheduleNameAndDueDate;
AddFromNameAndDueDate addNewPhoneNotificationFromScheduleNameAndDueDate;

// Editing. An empty argument leaves its field alone, so that a field cannot be cleared; only the
// letter's text is always written. The modified stamp is written even when no field changes.

void editEmailNotification(Id notificationNum, const std::string& ToStr, const std::string& CcStr,
                           const std::string& BccStr, const std::string& subjectStr,
                           const std::string& memoStr);
void editFaxNotification(Id notificationNum, const std::string& ToStr, const std::string& FromStr,
                         const std::string& SenderFaxStr, const std::string& ReceiverFaxStr,
                         const std::string& PagesStr, const std::string& subjectStr,
                         const std::string& memoStr);
void editLetterNotification(Id notificationNum, const std::string& memoStr);
void editPhoneNotification(Id notificationNum, const std::string& ToStr,
                           const std::string& PhoneNumberStr, const std::string& TimesStr,
                           const std::string& memoStr);

}  // namespace autonotify
