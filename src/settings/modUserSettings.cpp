#include "settings/modUserSettings.h"

#include <string>
#include <string_view>

#include "contract/recordsets.h"

namespace autonotify {
namespace {

constexpr const char* exitWarningColumn = "WarningMessagesExitAutomaticNotificationWarning";
constexpr const char* cancelWarningColumn = "WarningMessagesCancelAutoNotificationWarning";
constexpr const char* previewColumn = "ShowMVPreview";
constexpr const char* emailPreviewColumn = "ShowEmailPreview";

void addUserRow(Step& step, RecordsetHandle handle, Id userId) {
  step.run([&] { database().addNewRecord(handle); });
  setField(step, handle, "UserIDNum", [&] { return std::to_string(userId); });
  step.run([&] { database().saveNewRecord(handle); });
}

/// Runs `body(handle)` on the person's row, which is added when there is none.
template <class Body>
void withUserRow(Step& step, const char* column, Id userId, Body&& body) {
  if (userId < 0 || !isDatabaseOpen(step)) return;
  const std::string sql =
      statementFor(std::string("SELECT UserGeneralSettings.UserIDNum, UserGeneralSettings.") +
                       column + " FROM UserGeneralSettings WHERE UserIDNum=",
                   userId);
  const auto open = [&] { return openRecordset(sql, CursorMode::keyset, LockMode::updatable); };
  RecordsetHandle handle = noRecordset;
  step.assign(handle, open);
  if (step.value(false, [&] { return !database().hasRecords(handle); })) {
    addUserRow(step, handle, userId);
    step.run([&] { database().closeRecordset(handle); });
    step.assign(handle, open);
  }
  if (step.value(false, [&] { return database().hasRecords(handle); })) body(handle);
  step.run([&] { database().closeRecordset(handle); });
}

/// `convert(value)` turns the column's value into the setting and is part of the statement.
template <class Setting, class Convert>
Setting getSetting(std::string_view tag, const char* column, Id userId, Setting byDefault,
                   Convert&& convert) {
  return procedure(tag, byDefault, [&](Step& step, Setting& result) {
    withUserRow(step, column, userId, [&](RecordsetHandle handle) {
      step.assign(result, [&] { return convert(database().getFieldValue(handle, column)); });
    });
  });
}

void putSetting(std::string_view tag, const char* column, Id userId, const Value& value) {
  procedure(tag, [&](Step& step) {
    withUserRow(step, column, userId, [&](RecordsetHandle handle) {
      writeField(step, handle, column, [&] { return toText(value); });
    });
  });
}

}  // namespace

bool getAutoSendWizardConfirmation(Id userId) {
  return getSetting("Morvane.exe-modUserSettings-getAutoSendWizardConfirmation", exitWarningColumn,
                    userId, false, toFlag);
}

bool getCancelAutoNotification(Id userId) {
  return getSetting("Morvane.exe-modUserSettings-getCancelAutoNotification", cancelWarningColumn,
                    userId, false, toFlag);
}

bool getShowMVPreview(Id userId) {
  return getSetting("Morvane.exe-modUserSettings-getShowMVPreview", previewColumn, userId, false,
                    toFlag);
}

void putShowMVPreview(bool value, Id userId) {
  putSetting("Morvane.exe-modUserSettings-putShowMVPreview", previewColumn, userId, value);
}

std::int16_t getShowEmailPreview(Id userId) {
  constexpr std::int16_t showWindow = 1;
  return getSetting("Morvane.exe-modUserSettings-getShowEmailPreview", emailPreviewColumn, userId,
                    showWindow, [&](const Value& value) {
                      return generalUtilities().isValueEmpty(value) ? showWindow
                                                                    : toInteger16(value);
                    });
}

void putShowEmailPreview(std::int16_t value, Id userId) {
  putSetting("Morvane.exe-modUserSettings-putShowEmailPreview", emailPreviewColumn, userId, value);
}

}  // namespace autonotify
