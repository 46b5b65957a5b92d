#pragma once

#include <string>
#include <utility>

#include "channels/modApptNotifications.h"
#include "support/HostTest.h"

namespace autonotify::test {

using Add = Id (*)(CurrentDayTimerType, Id, DateTime, Id, Id, Id);
inline constexpr std::pair<notifyType, Add> allAdds[] = {{nt_Email, addNewApptEmailNotification},
                                                         {nt_Fax, addNewApptFaxNotification},
                                                         {nt_Letter, addNewApptLetterNotification},
                                                         {nt_Phone, addNewApptPhoneNotification}};
inline constexpr CurrentDayTimerType unknownKinds[] = {
    CurrentDayTimerType{0}, CurrentDayTimerType{4}, CurrentDayTimerType{-1}};

struct KindTable {
  CurrentDayTimerType kind;
  std::string table, key, link;
};
inline const KindTable tables[] = {{Appointments, "Appointments", "AppointmentID", "ApptIDNum"},
                                   {Dockets, "Dockets", "DocketID", "DocketIDNum"}};

inline constexpr DateTime day = DateTime::of(2026, 4, 30);
/// The reminder's time of day is dropped.
inline constexpr DateTime reminder = DateTime::of(2026, 4, 9, 14, 30);

inline DateTime at(int hour, int minute) {
  return DateTime::of(2026, 4, 30, hour, minute);
}

inline const RowFields meeting{
    {"DateFrom", day}, {"TimeFrom", at(9, 0)}, {"TimeTo", at(9, 45)}, {"Subject", "Year end"}};

inline const std::string greeting = "Hi,\r\n\r\n";
inline const std::string when = " on Thursday, April 30 2026 at 9:00 am.  ";
inline const std::string appointmentText =
    greeting + "This is a reminder that you have an appointment scheduled with Fisher & Lind " +
    when +
    "We expect this appointment to last approximately 45 minutes.\r\n\r\n"
    "This appointment is regarding Year end.  ";
inline const std::string docketText =
    greeting + "This is a reminder that you have a time entry scheduled with Fisher & Lind " +
    when + "This time time entry has been allocated for 45 minutes.\r\n\r\nTime Entry: Year end.  ";
inline const std::string taskText =
    greeting + "This is a reminder that you have a task scheduled" + when +
    "We expect this task will take approximately 45 minutes to complete.\r\n\r\n"
    "Task regarding Year end.  ";

/// The rows that all tests stand on.
struct Office {
  explicit Office(Rows rows) {
    rows.addRow("AccountantFirmInfo",
                {{"CompanyName", "Fisher & Lind"}, {"FaxNumber", "555-0100"}});
    company = rows.addRow("Companies", {{"CompanyName", "Maple Ltd"},
                                        {"Email", "office@m.example"},
                                        {"FaxNumber", "555-0111"},
                                        {"OfficeNumber", "555-0112"}});
    rows.addRow("ClientData", {{"CompanyIDNum", company}, {"ShowThisClient", "True"}});
    contact = rows.addRow("Contacts", {{"DisplayName", "Jo Park"},
                                       {"BusinessEmail", "jo@m.example"},
                                       {"BusinessPhone_Main", "555-0122"},
                                       {"BusinessPhone_Fax", "555-0121"},
                                       {"HomePhone_Fax", "555-0131"},
                                       {"HomePhone_Main", "555-0132"}});
    rows.linkDefaultContact(contact, company);
    appointment = rows.addRow("Appointments", withClients(company, contact));
    // A time entry is looked up among the appointments: it must not have the same number.
    rows.addRow("Dockets", meeting);
    docket = rows.addRow("Dockets", meeting);
  }
  static RowFields withClients(Id company, Id contact) {
    RowFields fields = meeting;
    fields.emplace_back("CompanyIDNum", company);
    fields.emplace_back("ContactIDNum", contact);
    return fields;
  }
  Id company, contact, appointment, docket;
};

class DiaryItems : public HostTest {
 protected:
  Id itemOf(CurrentDayTimerType kind) {
    return kind == Appointments ? office.appointment : office.docket;
  }
  std::string rowText(Id row, const std::string& columns) {
    return dump("SELECT " + columns +
                " FROM ClientNotification WHERE ClientNotificationID=" + std::to_string(row));
  }
  Id addLinked(const KindTable& kind, Id item, notifyType channel, const RowFields& more = {}) {
    RowFields fields{{kind.link.c_str(), item}, {"NotificationType", int{channel}}};
    fields.insert(fields.end(), more.begin(), more.end());
    return addRow("ClientNotification", fields);
  }

  Office office{Rows(*plainDatabase)};
};

}  // namespace autonotify::test
