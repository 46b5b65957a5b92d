#include "channels/diary_items.h"

#include <algorithm>
#include <array>

#include "channels/modApptNotifications.h"
#include "platform/format.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

constexpr std::array<DiaryKind, 3> diaryKinds{{
    {Appointments, "Appointments", "AppointmentID", "ApptIDNum", "You have an appointment on ",
     "This is a reminder that you have an appointment scheduled with ", true,
     "We expect this appointment to last approximately ", " minutes.\r\n\r\n",
     "This appointment is regarding "},
    {Dockets, "Dockets", "DocketID", "DocketIDNum", "You have a time entry due on ",
     "This is a reminder that you have a time entry scheduled with ", true,
     "This time time entry has been allocated for ", " minutes.\r\n\r\n", "Time Entry: "},
    {Tasks, "Tasks", "TaskID", "TaskIDNum", "", "This is a reminder that you have a task scheduled",
     false, "We expect this task will take approximately ", " minutes to complete.\r\n\r\n",
     "Task regarding "},
}};
constexpr DiaryKind noKind{{}, "", "", "", "", "", false, "", "", ""};

constexpr const char* dayPattern = "dddd, mmmm d yyyy";

/// The firm's side of a meeting.
std::string firmName(Step& step) {
  return step.value(std::string{},
                    [] { return clients().getCompanyNameFromClientID(clientDataOfFirm); });
}

DateTime readMoment(RecordsetHandle item, const char* column) {
  return toDateTime(database().getFieldValue(item, column));
}

std::string composeBody(Step& step, const DiaryKind& kind, RecordsetHandle item) {
  std::string body = std::string("Hi,\r\n\r\n") + kind.opening;
  if (kind.namesFirm) body += firmName(step) + " ";
  step.run([&] {
    const std::string day = formatDateTime(readMoment(item, "DateFrom"), dayPattern);
    body +=
        " on " + day + " at " + formatDateTime(readMoment(item, "TimeFrom"), "h:nn am/pm") + ".  ";
  });
  step.run([&] {
    const DateTime from = readMoment(item, "TimeFrom");
    const std::int64_t minutes = readMoment(item, "TimeTo").totalMinutes() - from.totalMinutes();
    body += kind.beforeMinutes + std::to_string(minutes) + kind.afterMinutes;
  });
  const Value subject = readField(step, item, "Subject");
  if (!isEmpty(step, subject)) step.run([&] { body += kind.about + toText(subject) + ".  "; });
  return body;
}

}  // namespace

const DiaryKind& diaryKind(CurrentDayTimerType kind) {
  const auto found =
      std::ranges::find_if(diaryKinds, [&](const DiaryKind& row) { return row.value == kind; });
  return found == diaryKinds.end() ? noKind : *found;
}

std::string itemStatement(const DiaryKind& kind) {
  return std::string("SELECT ") + kind.table + ".* FROM " + kind.table + " WHERE " + kind.key + "=";
}

std::string itemSubject(Step& step, const DiaryKind& kind, Id itemId) {
  std::string subject;
  withRow(step, itemStatement(kind), itemId, keysetRead, [&](RecordsetHandle item) {
    const Value date = readField(step, item, "DateFrom");
    const std::string name = firmName(step);
    step.assign(subject, [&] {
      return kind.subject + formatDateTime(toDateTime(date), dayPattern) + " with " + name;
    });
  });
  return subject;
}

std::string getAppointmentBodyText(CurrentDayTimerType kind, Id itemId) {
  return procedure("Morvane.exe-modApptNotifications-getAppointmentBodyText", std::string{},
                   [&](Step& step, std::string& result) {
                     if (!isDatabaseOpen(step)) return;
                     const DiaryKind& row = diaryKind(kind);
                     withRow(step, itemStatement(row), itemId, keysetRead,
                             [&](RecordsetHandle item) { result = composeBody(step, row, item); });
                   });
}

void resetApptNotificationBody(std::int32_t kind, Id notificationId, Id itemId) {
  procedure("Morvane.exe-modApptNotifications-resetApptNotificationBody", [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    CurrentDayTimerType narrow{};
    step.assign(narrow, [&] { return static_cast<CurrentDayTimerType>(toInteger16(kind)); });
    const std::string body = getAppointmentBodyText(narrow, itemId);
    withRow(step,
            "SELECT ClientNotification.ClientNotificationModifiedStamp, "
            "ClientNotification.ClientNotificationID, ClientNotification.Memo "
            "FROM ClientNotification WHERE ClientNotificationID=",
            notificationId, keysetUpdate, [&](RecordsetHandle handle) {
              writeField(step, handle, "ClientNotificationModifiedStamp", nowText);
              writeField(step, handle, "Memo", [&] { return body; });
            });
  });
}

}  // namespace autonotify
