#pragma once

#include "bulk/frmSendNotificationBulk.h"
#include "support/HostTest.h"

namespace autonotify::test {

using Bulk = frmSendNotificationBulk;
inline constexpr DateTime dueDate = DateTime::of(2026, 6, 30);
inline constexpr Id company = 1, contact = 1;

inline Id taskOf(TableRows rows, Id totalNum, const RowFields& more) {
  RowFields fields{{"scheduleName", "Return"}, {"Year", 2026}};
  fields.insert(fields.end(), more.begin(), more.end());
  return rows.addSchedule(totalNum, 1, dueDate, fields);
}

/// A company with a default contact, who has a task of her own, and the company's tasks of two
/// kinds; the last three are of another year, closed and nobody's.
inline void fillOffice(TableRows rows) {
  rows.addRow("Companies", {{"CompanyName", "Birch Ltd."},
                            {"Email", "office@birch"},
                            {"FaxNumber", "555-0101"},
                            {"OfficeNumber", "555-0102"}});
  rows.addRow("ClientData", {{"CompanyIDNum", 99}});
  const Id client = rows.addRow("ClientData", {{"CompanyIDNum", company}});
  rows.addRow("Contacts", {{"DisplayName", "Cara Holm"}, {"PersonalEmail", "cara@home"}});
  rows.linkDefaultContact(contact, company);
  for (Id totalNum = 101; totalNum <= 114; ++totalNum) {
    rows.addRow("ScheduleTypes", {{"TotalNum", totalNum},
                                  {"ScheduleNum", -1},
                                  {"ShortAbbreviation", "K" + std::to_string(totalNum)}});
    rows.addRow("ScheduleTypes", {{"TotalNum", totalNum},
                                  {"ScheduleNum", 1},
                                  {"NotificationPeriod", 5},
                                  {"ScheduleTypeName", "Kind " + std::to_string(totalNum)}});
  }
  taskOf(rows, 101, {{"ClientNum", client}});
  taskOf(rows, 113, {{"ClientNum", client}});
  taskOf(rows, 113, {{"ClientNum", client}});
  taskOf(rows, 102, {{"ContactIDNum", contact}});
  taskOf(rows, 101, {{"ClientNum", client}, {"Year", 2027}});
  taskOf(rows, 101, {{"ClientNum", client}, {"Closed", "True"}});
  taskOf(rows, 101, {});
}

/// Shows the window to a person for the client; gives whether the first page was left out.
inline bool show(TestHost& host, Bulk& panel, HeadlessPerson::Script script, bool skip = false) {
  host.screen.expectWindow(panel.name(), std::move(script));
  panel.showForm(skip);
  return skip;
}
inline void pressFinish(WindowInUse& window) {
  if (window.sees("cmdNext") && window.canUse("cmdNext")) window.click("cmdNext");
  window.click("cmdFinish");
}

}  // namespace autonotify::test
