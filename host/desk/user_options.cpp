#include "host/desk/user_options.h"

#include <fmt/format.h>

#include "host/clients/record_rows.h"

namespace autonotify::host {
namespace {

constexpr const char* confirmation = "WarningMessagesExitAutomaticNotificationWarning";
constexpr const char* cancelQuestion = "WarningMessagesCancelAutoNotificationWarning";

std::string rowOfUser(Desk& desk, const char* column) {
  return fmt::format(
      "SELECT UserGeneralSettings.UserIDNum, UserGeneralSettings.{} FROM UserGeneralSettings WHERE "
      "UserIDNum={};",
      column, desk.locale().settings().userId);
}

bool readFlag(Desk& desk, const char* column) {
  bool isOn = false;
  firstRow(desk.database(), rowOfUser(desk, column),
           [&](const Row& row) { isOn = row.flag(column); });
  return isOn;
}

void writeFlag(Desk& desk, const char* column, bool isOn) {
  DatabaseReference& database = desk.database();
  OpenRows rows(database, rowOfUser(desk, column), CursorMode::keyset, LockMode::updatable);
  const RecordsetHandle handle = rows.handle();
  const std::string value = isOn ? "True" : "False";
  if (database.hasRecords(handle)) {
    database.updateFieldValue(handle, column, value, false, false);
  } else {
    database.addNewRecord(handle);
    database.setFieldValue(handle, "UserIDNum", std::to_string(desk.locale().settings().userId));
    database.setFieldValue(handle, column, value);
    database.saveNewRecord(handle);
  }
}

}  // namespace

bool confirmsScheduling(Desk& desk) {
  return readFlag(desk, confirmation);
}

void setConfirmsScheduling(Desk& desk, bool confirms) {
  writeFlag(desk, confirmation, confirms);
}

bool asksBeforeCancelling(Desk& desk) {
  return readFlag(desk, cancelQuestion);
}

void setAsksBeforeCancelling(Desk& desk, bool asks) {
  writeFlag(desk, cancelQuestion, asks);
}

}  // namespace autonotify::host
