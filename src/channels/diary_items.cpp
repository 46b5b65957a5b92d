#include "channels/diary_items.h"

#include <algorithm>
#include <array>

#include "channels/modApptNotifications.h"
#include "contract/tags.h"
#include "platform/format.h"
#include "store/column_lookup.h"
#include "store/modNotificationLinks.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modApptNotifications", name>;

constexpr std::array<DiaryKind, 3> diaryKinds{{
    {Appointments, "Appointments", "AppointmentID", validAppointmentID, "ApptIDNum",
     "You have an appointment on ",
     "This is a reminder that you have an appointment scheduled with ", true,
     "We expect this appointment to last approximately ", " minutes.\r\n\r\n",
     "This appointment is regarding "},
    {Dockets, "Dockets", "DocketID", validDocketID, "DocketIDNum", "You have a time entry due on ",
     "This is a reminder that you have a time entry scheduled with ", true,
     "This time time entry has been allocated for ", " minutes.\r\n\r\n", "Time Entry: "},
    {Tasks, "Tasks", "TaskID", validTaskID, "TaskIDNum", "",
     "This is a reminder that you have a task scheduled", false,
     "We expect this task will take approximately ", " minutes to complete.\r\n\r\n",
     "Task regarding "},
}};
constexpr DiaryKind noKind{{}, "", "", nullptr, "", "", "", false, "", "", ""};

constexpr const char* dayPattern = "dddd, mmmm d yyyy";

constexpr const char* textOfNotification =
    "SELECT ClientNotification.ClientNotificationModifiedStamp, "
    "ClientNotification.ClientNotificationID, ClientNotification.Memo FROM ClientNotification "
    "WHERE ClientNotificationID=";

/// The firm's side of a meeting.
std::string firmName(Step& step) {
  return step.value(std::string{},
                    [] { return clients().getCompanyNameFromClientID(clientDataOfFirm); });
}

DateTime readMoment(RecordsetHandle item, const char* column) {
  return toDateTime(database().getFieldValue(item, column));
}

std::string whenText(RecordsetHandle item) {
  const std::string day = formatDateTime(readMoment(item, "DateFrom"), dayPattern);
  const std::string time = formatDateTime(readMoment(item, "TimeFrom"), "h:nn am/pm");
  return " on " + day + " at " + time + ".  ";
}

std::string lengthText(const DiaryKind& kind, RecordsetHandle item) {
  const std::int64_t from = readMoment(item, "TimeFrom").totalMinutes();
  const std::int64_t minutes = readMoment(item, "TimeTo").totalMinutes() - from;
  return kind.beforeMinutes + std::to_string(minutes) + kind.afterMinutes;
}

std::string composeBody(const DiaryKind& kind, const Row& item) {
  Step& step = item.step();
  std::string body = std::string("Hi,\r\n\r\n") + kind.opening;
  if (kind.namesFirm) body += firmName(step) + " ";
  body += step.value(std::string{}, whenText, item.handle());
  body += step.value(std::string{}, lengthText, kind, item.handle());
  const Value subject = item.value("Subject");
  if (!isEmpty(step, subject)) step.run([&] { body += kind.about + toText(subject) + ".  "; });
  return body;
}

}  // namespace

const DiaryKind& diaryKind(std::int32_t kind) {
  const auto found =
      std::ranges::find_if(diaryKinds, [&](const DiaryKind& row) { return row.value == kind; });
  return found == diaryKinds.end() ? noKind : *found;
}

std::string itemStatement(const DiaryKind& kind) {
  return std::string("SELECT ") + kind.table + ".* FROM " + kind.table + " WHERE " + kind.key + "=";
}

std::string itemSubject(Step& step, const DiaryKind& kind, Id itemId) {
  std::string subject;
  if (Rows item(step, itemStatement(kind), itemId, keysetRead); item) {
    const Value date = item.value("DateFrom");
    const std::string name = firmName(step);
    step.assign(subject, [&] {
      return kind.subject + formatDateTime(toDateTime(date), dayPattern) + " with " + name;
    });
  }
  return subject;
}

std::string getAppointmentBodyText(CurrentDayTimerType kind, Id itemId) {
  return procedure(tagOf<"getAppointmentBodyText">, std::string{}, [&](Step& step, auto& result) {
    if (!isDatabaseOpen(step)) return;
    const DiaryKind& row = diaryKind(kind);
    const Rows item(step, itemStatement(row), itemId, keysetRead);
    if (item) result = composeBody(row, item);
  });
}

void resetApptNotificationBody(std::int32_t kind, Id notificationId, Id itemId) {
  procedure(tagOf<"resetApptNotificationBody">, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    CurrentDayTimerType narrow{};
    step.assign(narrow, [&] { return static_cast<CurrentDayTimerType>(toInteger16(kind)); });
    const std::string body = getAppointmentBodyText(narrow, itemId);
    if (Rows row(step, textOfNotification, notificationId, keysetUpdate); row) {
      row.write("ClientNotificationModifiedStamp", nowText);
      row.write("Memo", body);
    }
  });
}

}  // namespace autonotify
