#pragma once

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "support/told_acts.h"

namespace autonotify::test {

/// What consists of several values stands in one cell, with commas between them.
template <class... Parts>
std::tuple<Parts...> partsOf(const std::string& cell) {
  std::vector<std::string> parts = split(replaceAll(cell, ", ", "|"));
  parts.resize(sizeof...(Parts));
  return cellsAs<Parts...>(parts);
}
template <class Whole, class... Parts>
Whole wholeOf(const std::string& cell) {
  return std::apply([](auto... each) { return Whole{each...}; }, partsOf<Parts...>(cell));
}
using Words = std::string;
template <>
inline EmailTexts cellAs(const std::string& cell) {
  return wholeOf<EmailTexts, Words, Words, Words, Words, Words>(cell);
}
template <>
inline FaxTexts cellAs(const std::string& cell) {
  return wholeOf<FaxTexts, Words, Words, Words, Words, Words, Words, Words>(cell);
}
template <>
inline PhoneTexts cellAs(const std::string& cell) {
  return wholeOf<PhoneTexts, Words, Words, Words, Words>(cell);
}
template <>
inline KnownEntry cellAs(const std::string& cell) {
  const auto [task, company, contact, name, due, comment] =
      partsOf<Id, Id, Id, Words, DateTime, Words>(cell);
  return {task, {company, contact}, name, due, comment};
}
template <>
inline ItemReminder cellAs(const std::string& cell) {
  const auto [kind, item, date, notification, company, contact] =
      partsOf<CurrentDayTimerType, Id, DateTime, Id, Id, Id>(cell);
  return {kind, item, date, notification, {company, contact}};
}
template <>
inline std::optional<DateTime> cellAs(const std::string& cell) {
  return cell.empty() ? std::nullopt : parseDateTime(cell);
}

inline Words clientOf(Id entry, Id task, Id appointment, Id docket) {
  const auto found = getCompanyAndContactIDFromNotificationID(entry, task, appointment, docket);
  return toText(found.companyId) + "/" + toText(found.contactId);
}

/// The procedures of the store and the channels.
inline Acts storeActs() {
#define NAMED(procedure) \
  { #procedure, act(procedure) }
  return {NAMED(addNewEmailNotificationFromScheduleIDNum),
          NAMED(addNewFaxNotificationFromScheduleIDNum),
          NAMED(addNewLetterNotificationFromScheduleIDNum),
          NAMED(addNewPhoneNotificationFromScheduleIDNum),
          NAMED(addNewEmailNotificationFromScheduleNameAndDueDate),
          NAMED(addNewFaxNotificationFromScheduleNameAndDueDate),
          NAMED(addNewLetterNotificationFromScheduleNameAndDueDate),
          NAMED(addNewPhoneNotificationFromScheduleNameAndDueDate),
          NAMED(copyOldNotificationInfoToNewNotification),
          NAMED(addNewApptFaxNotification),
          NAMED(getApptNotificationID),
          NAMED(getAppointmentIDFromNotificationID),
          NAMED(getApptNotificationStatus),
          NAMED(changeApptNotificationStatus),
          NAMED(deleteApptNotification),
          NAMED(getAppointmentBodyText),
          NAMED(resetApptNotificationBody),
          NAMED(addNewApptEmailNotification),
          NAMED(addNewApptLetterNotification),
          NAMED(addNewApptPhoneNotification),
          NAMED(copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum),
          NAMED(getApptNotificationDate),
          NAMED(editEmailNotification),
          NAMED(editFaxNotification),
          NAMED(editLetterNotification),
          NAMED(editPhoneNotification),
          NAMED(editApptEmailNotification),
          NAMED(editApptFaxNotification),
          NAMED(editApptLetterNotification),
          NAMED(editApptPhoneNotification),
          NAMED(changeNotificationToSent),
          NAMED(cancelNotification),
          NAMED(changeNotificationNotifiedDate),
          NAMED(deleteNotification),
          NAMED(copyOldNotificationInfoToNewNotificationByScheduleIDNum),
          NAMED(getCompanyIDFromScheduleID),
          NAMED(getCompanyNameFromScheduleID),
          NAMED(getNotificationID),
          NAMED(getNotificationStatus),
          NAMED(changeNotificationStatus),
          NAMED(doesClientHaveAssociatedUnsentNotifications),
          NAMED(cancelAllUnsentNotificationsForClientID),
          NAMED(getScheduleIDFromTaskID),
          NAMED(getTaskIDFromScheduleID),
          NAMED(getClientDataIDFromScheduleID),
          NAMED(getScheduleNumFromScheduleID),
          NAMED(getTotalNumFromScheduleID),
          NAMED(getContactIDFromScheduleID),
          NAMED(getScheduleNameFromScheduleID),
          NAMED(getAppointmentSubjectFromAppointmentID),
          NAMED(getTaskSubjectFromTaskID),
          NAMED(getDocketSubjectFromDocketID),
          NAMED(getCompanyIDFromAppointmentID),
          NAMED(getContactIDFromAppointmentID),
          NAMED(getCompanyIDFromAutoNotificationID),
          NAMED(getContactIDFromAutoNotificationID),
          NAMED(getClientTypeFromNotificationID),
          NAMED(getNotificationEmployeeAssignedFromNotificationIDs),
          NAMED(getNumberOfUnsentNotifications),
          NAMED(getNotificationTypeNameFromNotificationTypeNum),
          NAMED(needToSendAutoNotificationsToday),
          {"getCompanyAndContactIDFromNotificationID", act(clientOf)}};
#undef NAMED
}

}  // namespace autonotify::test
