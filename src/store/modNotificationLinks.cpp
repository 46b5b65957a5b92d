#include "store/modNotificationLinks.h"

#include "contract/enumerations.h"
#include "contract/tags.h"
#include "store/column_lookup.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modNotificationLinks", name>;

// The lookups of one column, a row each.

constexpr ColumnLookup scheduleOfNotification{tagOf<"getScheduleIDFromNotificationID">,
                                              {notificationById, "ScheduleIDNum"}};
constexpr ColumnLookup scheduleOfTask{
    tagOf<"getScheduleIDFromTaskID">,
    {"SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=", "ScheduleIDNum"}};
constexpr ColumnLookup taskOfSchedule{
    tagOf<"getTaskIDFromScheduleID">,
    {"SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=", "TaskID"},
    {"SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM archiveTasks WHERE "
     "ScheduleIDNum=",
     "oldTaskID"}};
constexpr ColumnLookup clientDataOfSchedule{
    tagOf<"getClientDataIDFromScheduleID">,
    {"SELECT Schedule.ScheduleID, Schedule.ClientNum FROM Schedule WHERE ScheduleID=", "ClientNum"},
    {"SELECT archiveSchedule.oldScheduleID, archiveSchedule.ClientNum FROM archiveSchedule WHERE "
     "oldScheduleID=",
     "ClientNum"}};
constexpr ColumnLookup scheduleNumOfSchedule{
    tagOf<"getScheduleNumFromScheduleID">,
    {"SELECT Schedule.ScheduleID, Schedule.ScheduleNum FROM Schedule WHERE ScheduleID=",
     "ScheduleNum"},
    {"SELECT archiveSchedule.oldScheduleID, archiveSchedule.ScheduleNum FROM archiveSchedule WHERE "
     "oldScheduleID=",
     "ScheduleNum"}};
constexpr ColumnLookup totalNumOfSchedule{
    tagOf<"getTotalNumFromScheduleID">,
    {"SELECT Schedule.ScheduleID, Schedule.TotalNum FROM Schedule WHERE ScheduleID=", "TotalNum"},
    {"SELECT archiveSchedule.oldScheduleID, archiveSchedule.TotalNum FROM archiveSchedule WHERE "
     "oldScheduleID=",
     "TotalNum"}};
constexpr ColumnLookup nameOfSchedule{
    tagOf<"getScheduleNameFromScheduleID">,
    {"SELECT Schedule.ScheduleID, Schedule.scheduleName FROM Schedule WHERE ScheduleID=",
     "scheduleName"},
    {"SELECT archiveSchedule.oldScheduleID, archiveSchedule.scheduleName FROM archiveSchedule "
     "WHERE oldScheduleID=",
     "scheduleName"}};
constexpr ColumnLookup contactOfSchedule{
    tagOf<"getContactIDFromScheduleID">,
    {"SELECT Schedule.ScheduleID, Schedule.ContactIDNum FROM Schedule WHERE ScheduleID=",
     "ContactIDNum"},
    {"SELECT archiveSchedule.oldScheduleID, archiveSchedule.ContactIDNum FROM archiveSchedule "
     "WHERE oldScheduleID=",
     "ContactIDNum"}};
constexpr ColumnLookup subjectOfAppointment{
    tagOf<"getAppointmentSubjectFromAppointmentID">,
    {"SELECT Appointments.AppointmentID, Appointments.Subject FROM Appointments WHERE "
     "AppointmentID=",
     "Subject"}};
constexpr ColumnLookup subjectOfTask{
    tagOf<"getTaskSubjectFromTaskID">,
    {"SELECT Tasks.TaskID, Tasks.Subject FROM Tasks WHERE TaskID=", "Subject"}};
constexpr ColumnLookup subjectOfDocket{
    tagOf<"getDocketSubjectFromDocketID">,
    {"SELECT Dockets.DocketID, Dockets.Subject FROM Dockets WHERE DocketID=", "Subject"}};
constexpr ColumnLookup companyOfAppointment{
    tagOf<"getCompanyIDFromAppointmentID">,
    {"SELECT Appointments.AppointmentID, Appointments.CompanyIDNum FROM Appointments WHERE "
     "AppointmentID=",
     "CompanyIDNum"}};
constexpr ColumnLookup contactOfAppointment{
    tagOf<"getContactIDFromAppointmentID">,
    {"SELECT Appointments.AppointmentID, Appointments.ContactIDNum FROM Appointments WHERE "
     "AppointmentID=",
     "ContactIDNum"}};

// The client of a schedule entry.

constexpr ColumnSource clientOfArchived{
    "SELECT archiveSchedule.oldScheduleID, archiveSchedule.ClientNum FROM archiveSchedule WHERE "
    "archiveSchedule.oldScheduleID=",
    "ClientNum"};
constexpr ColumnSource companyOfClientData{
    "SELECT ClientData.ClientDataID, ClientData.CompanyIDNum FROM ClientData WHERE ClientDataID=",
    "CompanyIDNum"};

Id clientNumOf(Step& step, Id scheduleId) {
  return idOf(step, readColumn(step, clientDataOfSchedule.first, clientOfArchived, scheduleId));
}

/// The company that the client list knows under a `ClientNum`; -1 for none.
Id companyOfClient(Step& step, Id clientNum) {
  if (clientNum < 0) return noId;
  return step.value(noId, [&] { return clients().getCompanyIDFromClientID(clientNum); });
}

// The client behind a notification row, by the item that it is linked to.

/// A link column of the row, and where the item of that link names its client.
struct LinkedClient {
  const char* link;
  ColumnSource item;
  ColumnSource archived = {};
  bool isClientNum = false;
};

constexpr ItemTable<LinkedClient> linkedCompanies{{
    {"ScheduleIDNum",
     {"SELECT Schedule.ClientNum, Schedule.ScheduleID FROM Schedule WHERE ScheduleID=",
      "ClientNum"},
     {"SELECT archiveSchedule.ClientNum, archiveSchedule.oldScheduleID FROM archiveSchedule WHERE "
      "oldScheduleID=",
      "ClientNum"},
     true},
    {"ApptIDNum",
     {"SELECT Appointments.CompanyIDNum, Appointments.AppointmentID FROM Appointments WHERE "
      "AppointmentID=",
      "CompanyIDNum"}},
    {"TaskIDNum",
     {"SELECT Tasks.CompanyIDNum, Tasks.TaskID FROM Tasks WHERE TaskID=", "CompanyIDNum"}},
    {"DocketIDNum",
     {"SELECT Dockets.CompanyIDNum, Dockets.DocketID  FROM Dockets WHERE DocketID=",
      "CompanyIDNum"}},
}};

constexpr ItemTable<LinkedClient> linkedContacts{{
    {"ScheduleIDNum",
     {"SELECT Schedule.ContactIDNum, Schedule.ScheduleID FROM Schedule WHERE ScheduleID=",
      "ContactIDNum"},
     {"SELECT archiveSchedule.ContactIDNum, archiveSchedule.oldScheduleID FROM archiveSchedule "
      "WHERE oldScheduleID=",
      "ContactIDNum"}},
    {"ApptIDNum",
     {"SELECT Appointments.ContactIDNum, Appointments.AppointmentID FROM Appointments WHERE "
      "AppointmentID=",
      "ContactIDNum"}},
    {"TaskIDNum",
     {"SELECT Tasks.ContactIDNum, Tasks.TaskID FROM Tasks WHERE TaskID=", "ContactIDNum"}},
    {"DocketIDNum",
     {"SELECT Dockets.ContactIDNum, Dockets.DocketID  FROM Dockets WHERE DocketID=",
      "ContactIDNum"}},
}};

/// The item of the first link of the row that is set.
LinkedItem<LinkedClient> firstLink(const Row& row, const ItemTable<LinkedClient>& links) {
  for (const LinkedClient& linked : links) {
    if (const Id id = row.id(linked.link); id >= 0) return {&linked, id};
  }
  return {};
}

Id clientOfItem(Step& step, const LinkedItem<LinkedClient>& item) {
  const LinkedClient& linked = *item.source;
  const Id client = idOf(step, readColumn(step, linked.item, linked.archived, item.id));
  return linked.isClientNum ? companyOfClient(step, client) : client;
}

/// A procedure that gives the client of a row: the row's own column, then the linked item's.
Id clientOfNotification(std::string_view frameTag, const char* ownColumn,
                        const ItemTable<LinkedClient>& links, Id notificationId) {
  return procedure(frameTag, noId, [&](Step& step, Id& result) {
    if (!isDatabaseOpen(step)) return;
    LinkedItem<LinkedClient> item;
    if (Rows row(step, notificationById, notificationId, keysetRead); row) {
      result = row.id(ownColumn);
      item = firstLink(row, links);
    }
    if (!item) return;
    if (const Id client = clientOfItem(step, item); client >= 0) result = client;
  });
}

// Company and contact of an item at once.

struct ItemClients {
  const char* statement;
  const char* companyColumn;
  bool isClientNum;
};
constexpr ItemTable<ItemClients> itemClients{{
    {"SELECT Schedule.ScheduleID, Schedule.ClientNum, Schedule.ContactIDNum FROM Schedule WHERE "
     "ScheduleID=",
     "ClientNum", true},
    {"SELECT Tasks.TaskID, Tasks.CompanyIDNum, Tasks.ContactIDNum FROM Tasks WHERE TaskID=",
     "CompanyIDNum", false},
    {"SELECT Appointments.AppointmentID, Appointments.CompanyIDNum, Appointments.ContactIDNum FROM "
     "Appointments WHERE AppointmentID=",
     "CompanyIDNum", false},
    {"SELECT Dockets.DocketID, Dockets.CompanyIDNum, Dockets.ContactIDNum FROM Dockets WHERE "
     "DocketID=",
     "CompanyIDNum", false},
}};

Id companyOfItem(const Row& item, const ItemClients& source) {
  const Id client = item.id(source.companyColumn);
  return source.isClientNum ? companyOfClient(item.step(), client) : client;
}

/// The kind of client that the list knows the entry's client as; 0 for none.
int clientTypeOf(const Row& entry) {
  Step& step = entry.step();
  if (isListedCompany(step, companyOfClient(step, entry.id("ClientNum"))))
    return enumAutoNotifyCompany;
  return isListedContact(step, entry.id("ContactIDNum")) ? enumAutoNotifyContact : 0;
}

}  // namespace

bool validAppointmentID(const std::string& appointmentId) {
  return isPositiveIdText(tagOf<"validAppointmentID">, appointmentId);
}

bool validDocketID(const std::string& docketId) {
  return isPositiveIdText(tagOf<"validDocketID">, docketId);
}

bool validScheduleID(const std::string& scheduleId) {
  return isPositiveIdText(tagOf<"validScheduleID">, scheduleId);
}

bool validTaskID(const std::string& taskId) {
  return isPositiveIdText(tagOf<"validTaskID">, taskId);
}

Id getScheduleIDFromNotificationID(Id notificationId) {
  return lookUpId(scheduleOfNotification, notificationId);
}

Id getScheduleIDFromTaskID(Id taskId) {
  return lookUpId(scheduleOfTask, taskId);
}

Id getTaskIDFromScheduleID(Id scheduleId) {
  return lookUpId(taskOfSchedule, scheduleId);
}

Id getClientDataIDFromScheduleID(Id scheduleId) {
  return lookUpId(clientDataOfSchedule, scheduleId);
}

Id getScheduleNumFromScheduleID(Id scheduleId) {
  return lookUpId(scheduleNumOfSchedule, scheduleId);
}

Id getTotalNumFromScheduleID(Id scheduleId) {
  return lookUpId(totalNumOfSchedule, scheduleId);
}

std::string getScheduleNameFromScheduleID(Id scheduleId) {
  return lookUpText(nameOfSchedule, scheduleId);
}

Id getContactIDFromScheduleID(Id scheduleId) {
  return lookUpId(contactOfSchedule, scheduleId);
}

std::string getAppointmentSubjectFromAppointmentID(Id appointmentId) {
  return lookUpText(subjectOfAppointment, appointmentId);
}

std::string getTaskSubjectFromTaskID(Id taskId) {
  return lookUpText(subjectOfTask, taskId);
}

std::string getDocketSubjectFromDocketID(Id docketId) {
  return lookUpText(subjectOfDocket, docketId);
}

Id getCompanyIDFromAppointmentID(Id appointmentId) {
  return lookUpId(companyOfAppointment, appointmentId);
}

Id getContactIDFromAppointmentID(Id appointmentId) {
  return lookUpId(contactOfAppointment, appointmentId);
}

Id getCompanyIDFromScheduleID(Id scheduleId) {
  return procedure(tagOf<"getCompanyIDFromScheduleID">, noId, [&](Step& step, Id& result) {
    if (!isDatabaseOpen(step)) return;
    const Id clientNum = clientNumOf(step, scheduleId);
    result = idOf(step, readColumn(step, companyOfClientData, {}, clientNum));
  });
}

std::string getCompanyNameFromScheduleID(Id scheduleId) {
  return procedure(
      tagOf<"getCompanyNameFromScheduleID">, std::string{}, [&](Step& step, std::string& result) {
        if (!isDatabaseOpen(step)) return;
        const Id clientNum = clientNumOf(step, scheduleId);
        if (clientNum < 0) return;
        step.assign(result, [&] { return clients().getCompanyNameFromClientID(clientNum); });
      });
}

int getClientTypeFromNotificationID(Id notificationId) {
  return procedure(tagOf<"getClientTypeFromNotificationID">, 0, [&](Step& step, int& result) {
    if (!isDatabaseOpen(step)) return;
    const Id scheduleId = getScheduleIDFromNotificationID(notificationId);
    if (!validScheduleID(std::to_string(scheduleId))) return;
    const Rows entry(step, "SELECT Schedule.* FROM Schedule WHERE ScheduleID=", scheduleId,
                     keysetRead);
    if (entry) result = clientTypeOf(entry);
  });
}

Id getCompanyIDFromAutoNotificationID(Id notificationId) {
  return clientOfNotification(tagOf<"getCompanyIDFromAutoNotificationID">, "CompanyIDNum",
                              linkedCompanies, notificationId);
}

Id getContactIDFromAutoNotificationID(Id notificationId) {
  return clientOfNotification(tagOf<"getContactIDFromAutoNotificationID">, "ContactIDNum",
                              linkedContacts, notificationId);
}

CompanyAndContactID getCompanyAndContactIDFromNotificationID(Id scheduleId, Id taskId,
                                                             Id appointmentId, Id docketId) {
  return procedure(
      tagOf<"getCompanyAndContactIDFromNotificationID">, CompanyAndContactID{},
      [&](Step& step, CompanyAndContactID& result) {
        const auto item = firstItem(itemClients, {scheduleId, taskId, appointmentId, docketId});
        if (!item || !isDatabaseOpen(step)) return;
        if (Rows row(step, item.source->statement, item.id, keysetRead); row) {
          result.companyId = companyOfItem(row, *item.source);
          result.contactId = row.id("ContactIDNum");
        }
      });
}

}  // namespace autonotify
