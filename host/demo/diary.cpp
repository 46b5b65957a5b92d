#include "contract/enumerations.h"
#include "host/demo/demo_notifications.h"
#include "host/demo/demo_world.h"
#include "host/demo/word_lists.h"
#include "platform/format.h"

namespace autonotify::host::demo {

namespace {

constexpr int appointmentsPerStaff = 20;
constexpr int timeEntriesPerStaff = 40;

struct DiaryItem {
  const Client* client;
  DateTime date;
  DateTime from, to;
};

DiaryItem makeItem(DemoWorld& world, int daysBack, int daysAhead, int minutes) {
  const DateTime day = world.today().addDays(world.random.between(-daysBack, daysAhead));
  const int start = world.random.between(32, 64) * 900;
  return {&world.random.pick(world.clients), world.calendar.workingDayOnOrBefore(day),
          DateTime::fromSerial(0, start), DateTime::fromSerial(0, start + minutes * 60)};
}

Row commonColumns(const DiaryItem& item, Id user, std::string_view subject) {
  return {{"UserIDNum", user},
          {"CompanyIDNum", item.client->companyId},
          {"ContactIDNum", item.client->isCompany() ? noId : item.client->contactId},
          {"Subject", std::string(subject)},
          {"DateFrom", item.date},
          {"TimeFrom", item.from},
          {"TimeTo", item.to}};
}

/// Whether the client is told of the item; sets its bit and its flag.
bool addNotify(DemoWorld& world, Row& row, const DiaryItem& item, int chance) {
  if (item.client->email.empty() || !world.random.percent(chance)) return false;
  row.insert(row.end(), {{"notifyType", static_cast<int>(nt_Email)}, {"ClientNotifiedFlag", true}});
  return true;
}

void notify(DemoWorld& world, const DiaryItem& item, std::string_view linkColumn, Id id,
            const std::string& opening) {
  addItemNotification(world, *item.client, linkColumn, id,
                      world.calendar.workingDaysBefore(item.date, 2),
                      opening + formatDateTime(item.date, "dddd, mmmm d yyyy"));
}

void addAppointment(DemoWorld& world, const StaffMember& user) {
  const Meeting& meeting = world.random.pick(meetings());
  const DiaryItem item = makeItem(world, 60, 60, meeting.minutes);
  Row row = commonColumns(item, user.id, meeting.subject);
  row.push_back({"AppointmentText", "At our office, second floor."});
  const bool notified = addNotify(world, row, item, 30);
  const Id id = world.sink.insertRow("Appointments", row);
  if (notified) notify(world, item, "ApptIDNum", id, "You have an appointment on ");
}

void addTimeEntry(DemoWorld& world, const StaffMember& user) {
  const int minutes = world.random.between(1, 16) * 15;
  const DiaryItem item = makeItem(world, 90, 5, minutes);
  const double hours = minutes / 60.0;
  const double rate = world.random.between(8, 30) * 10.0;
  const bool invoiced = item.date < world.today().addDays(-30);
  Row row = commonColumns(item, user.id, world.random.pick(timeEntrySubjects()));
  row.insert(row.end(), {{"FirmIDNum", world.firmId},
                         {"DocketLocked", invoiced},
                         {"DocketStatus", invoiced ? "Invoiced" : "Open"},
                         {"DateCreated", item.date},
                         {"Invoiced", invoiced},
                         {"RealTimeFrom", item.from},
                         {"RealTimeTo", item.to},
                         {"RoundedTimeFrom", item.from},
                         {"RoundedTimeTo", item.to},
                         {"DocketBillingType", "Hourly"},
                         {"BillingJobRate", rate},
                         {"BillableTime", true},
                         {"TotalTimeReal", hours},
                         {"TotalTimeRounded", hours},
                         {"TotalTimeFinal", hours},
                         {"TotalAmountReal", hours * rate},
                         {"TotalAmountFinal", hours * rate},
                         {"DescriptionClient", "Professional services"}});
  const bool notified = addNotify(world, row, item, 2);
  const Id id = world.sink.insertRow("Dockets", row);
  if (notified) notify(world, item, "DocketIDNum", id, "You have a time entry due on ");
}

}  // namespace

void addDiary(DemoWorld& world) {
  if (world.clients.empty()) return;
  for (const StaffMember& user : world.staff) {
    for (int count = 0; count < appointmentsPerStaff; ++count) addAppointment(world, user);
    for (int count = 0; count < timeEntriesPerStaff; ++count) addTimeEntry(world, user);
  }
}

void addBulkChoices(DemoWorld& world) {
  for (const Client& client : world.clients)
    if (client.isCompany() && world.random.percent(25))
      world.sink.insert("ClientScheduleAutoNotifications",
                        {{"CompanyIDNum", client.companyId},
                         {"GSTNotifyType", static_cast<int>(nt_Email)},
                         {"YearEndNotifyType", nt_Email | nt_Letter},
                         {"CorpTaxNotifyType", static_cast<int>(nt_Email)}});
}

}  // namespace autonotify::host::demo
