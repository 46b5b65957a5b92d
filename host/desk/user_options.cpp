#include "host/desk/user_options.h"

#include <fmt/format.h>

#include "host/clients/record_rows.h"

namespace autonotify::host {
namespace {

constexpr const char* confirmation = "WarningMessagesExitAutomaticNotificationWarning";

std::string rowOfUser(Desk& desk, const char* column) {
  return fmt::format(
      "SELECT UserGeneralSettings.UserIDNum, UserGeneralSettings.{} FROM UserGeneralSettings WHERE "
      "UserIDNum={};",
      column, desk.locale().settings().userId);
}

}  // namespace

bool confirmsScheduling(Desk& desk) {
  bool confirms = false;
  firstRow(desk.database(), rowOfUser(desk, confirmation),
           [&](const Row& row) { confirms = row.flag(confirmation); });
  return confirms;
}

void setConfirmsScheduling(Desk& desk, bool confirms) {
  DatabaseReference& database = desk.database();
  OpenRows rows(database, rowOfUser(desk, confirmation), CursorMode::keyset, LockMode::updatable);
  const RecordsetHandle handle = rows.handle();
  const std::string value = confirms ? "True" : "False";
  if (database.hasRecords(handle)) {
    database.updateFieldValue(handle, confirmation, value, false, false);
  } else {
    database.addNewRecord(handle);
    database.setFieldValue(handle, "UserIDNum", std::to_string(desk.locale().settings().userId));
    database.setFieldValue(handle, confirmation, value);
    database.saveNewRecord(handle);
  }
}

}  // namespace autonotify::host
