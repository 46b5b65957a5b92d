#include "host/demo/demo_notifications.h"

#include "contract/enumerations.h"
#include "platform/format.h"
#include "platform/rich_text.h"

namespace autonotify::host::demo {

namespace {

struct Delivery {
  enumNotificationSendStatus status = enumNotificationSendStatus_NotSent;
  DateTime sentTime;
  Id sentBy = noId;
};

Delivery deliver(DemoWorld& world, DateTime date, bool open) {
  RandomSource& random = world.random;
  const bool due = date <= world.today();
  const bool waiting = random.percent(date > world.today().addDays(-8) ? 60 : 2);
  if (open && (!due || waiting)) return {};
  const Id user = random.pick(world.staff).id;
  if (!due || random.percent(7)) return {enumNotificationSendStatus_Cancelled, {}, user};
  const int seconds = random.between(8 * 3600, 17 * 3600);
  return {enumNotificationSendStatus_Sent, DateTime::fromSerial(date.days(), seconds), user};
}

std::string subjectOf(const NotifiedTask& task) {
  return "Your " + task.name + " is due on " + formatDateTime(task.dueDate, "dddd, mmmm d yyyy");
}

void addChannelFields(Row& row, notifyType channel, const Client& client,
                      const std::string& subject) {
  const std::string person = client.contactName.empty() ? client.name : client.contactName;
  switch (channel) {
    case nt_Email:
      row.insert(row.end(), {{"Field1", textOrNull(client.email)}, {"Field4", subject}});
      break;
    case nt_Fax:
      row.insert(row.end(),
                 {{"Field1", client.isCompany() ? client.name + " c/o " + person : person},
                  {"Field2", "Harbour & Pine LLP"},
                  {"Field4", textOrNull(client.fax)},
                  {"Field5", "1 (including cover page)"},
                  {"Field6", subject}});
      break;
    case nt_Phone:
      row.insert(row.end(), {{"Field1", person}, {"Field2", client.phone}});
      break;
    case nt_Letter:
      break;
  }
}

void addDelivery(Row& row, const Delivery& delivery) {
  if (delivery.status == enumNotificationSendStatus_NotSent) return;
  const bool sent = delivery.status == enumNotificationSendStatus_Sent;
  row.insert(row.end(),
             {{"NotificationSent", true},
              {"NotificationSentStatus", static_cast<int>(delivery.status)},
              {"SentTime", sent ? Value(delivery.sentTime) : Value()},
              {"SentByUserIDNum", delivery.sentBy},
              {"ClientNotificationModifiedStamp", sent ? Value(delivery.sentTime) : Value()}});
}

}  // namespace

std::string notificationText(const std::string& contactName, const std::string& taskName,
                             DateTime dueDate, const std::string& employee) {
  return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 "
         "Arial;}}\r\n\\viewkind4\\uc1\\pard\\f0\\fs20 Dear " +
         escapeForRichText(contactName) + ",\r\n\\par\r\n\\par Your " +
         escapeForRichText(taskName) + " is due on " +
         formatDateTime(dueDate, "dddd, mmmm d yyyy") +
         ". Please let us have your papers in good time.\r\n\\par\r\n\\par " +
         escapeForRichText(employee) + "\r\n\\par\r\n}";
}

int chooseChannels(DemoWorld& world, const Client& client) {
  constexpr int preferences[] = {nt_Email,
                                 nt_Email,
                                 nt_Email,
                                 nt_Email | nt_Phone,
                                 nt_Letter,
                                 nt_Email | nt_Letter,
                                 nt_Phone,
                                 nt_Fax,
                                 nt_Fax | nt_Letter,
                                 0,
                                 0};
  int channels = world.random.pick(preferences);
  if (client.email.empty() && (channels & nt_Email)) channels = nt_Letter;
  if (client.fax.empty() && (channels & nt_Fax)) channels = nt_Phone;
  return channels;
}

int addNotifications(DemoWorld& world, const Client& client, const NotifiedTask& task,
                     int channels) {
  for (const notifyType channel : allNotifyTypes) {
    if (!(channels & channel)) continue;
    const DateTime created = task.notificationDate.addDays(-world.random.between(20, 90));
    Row row{{"NotificationType", static_cast<int>(channel)},
            {"ScheduleIDNum", task.scheduleId},
            {"CompanyIDNum", client.companyId},
            {"ContactIDNum", client.isCompany() ? noId : client.contactId},
            {"NotificationDate", task.notificationDate},
            {"Memo", notificationText(client.contactName, task.name, task.dueDate, task.employee)},
            {"DateCreated", std::min(created, world.today())},
            {"CreatedByUserIDNum", world.random.pick(world.staff).id}};
    addChannelFields(row, channel, client, subjectOf(task));
    addDelivery(row, deliver(world, task.notificationDate, task.open));
    world.sink.insertRow("ClientNotification", row);
  }
  return channels;
}

void addItemNotification(DemoWorld& world, const Client& client, std::string_view linkColumn,
                         Id item, DateTime date, const std::string& subject) {
  Row row{{"NotificationType", static_cast<int>(nt_Email)},
          {linkColumn, item},
          {"CompanyIDNum", client.companyId},
          {"ContactIDNum", client.isCompany() ? noId : client.contactId},
          {"NotificationDate", date},
          {"Memo", "Hi,\r\n\r\nThis is a reminder: " + subject + ".\r\n"}};
  addChannelFields(row, nt_Email, client, subject);
  addDelivery(row, deliver(world, date, true));
  world.sink.insertRow("ClientNotification", row);
}

}  // namespace autonotify::host::demo
