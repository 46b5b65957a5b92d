#include "settings/modUserSettings.h"

#include <string>
#include <string_view>

#include "contract/tags.h"
#include "settings/user_row.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modUserSettings", name>;

constexpr const char* exitWarningColumn = "WarningMessagesExitAutomaticNotificationWarning";
constexpr const char* cancelWarningColumn = "WarningMessagesCancelAutoNotificationWarning";
constexpr const char* previewColumn = "ShowMVPreview";
constexpr const char* emailPreviewColumn = "ShowEmailPreview";

/// Runs `body(row)` on the person's row with the column.
template <class Body>
void withSetting(Step& step, const char* column, Id userId, Body&& body) {
  if (userId < 0 || !isDatabaseOpen(step)) return;
  const std::string statement =
      std::string("SELECT UserGeneralSettings.UserIDNum, UserGeneralSettings.") + column +
      " FROM UserGeneralSettings WHERE UserIDNum=";
  withUserRow(step, statement, userId, keysetUpdate, body);
}

/// `convert(value)` turns the column's value into the setting and is part of the statement.
template <class Setting, class Convert>
Setting getSetting(std::string_view frameTag, const char* column, Id userId, Setting byDefault,
                   Convert&& convert) {
  return procedure(frameTag, byDefault, [&](Step& step, Setting& result) {
    withSetting(step, column, userId, [&](const Row& row) { row.read(result, column, convert); });
  });
}

template <class Setting>
void putSetting(std::string_view frameTag, const char* column, Id userId, Setting value) {
  procedure(frameTag, [&](Step& step) {
    withSetting(step, column, userId, [&](const Row& row) { row.write(column, value); });
  });
}

}  // namespace

bool getAutoSendWizardConfirmation(Id userId) {
  return getSetting(tagOf<"getAutoSendWizardConfirmation">, exitWarningColumn, userId, false,
                    toFlag);
}

bool getCancelAutoNotification(Id userId) {
  return getSetting(tagOf<"getCancelAutoNotification">, cancelWarningColumn, userId, false, toFlag);
}

bool getShowMVPreview(Id userId) {
  return getSetting(tagOf<"getShowMVPreview">, previewColumn, userId, false, toFlag);
}

void putShowMVPreview(bool value, Id userId) {
  putSetting(tagOf<"putShowMVPreview">, previewColumn, userId, value);
}

std::int16_t getShowEmailPreview(Id userId) {
  constexpr std::int16_t showWindow = 1;
  const auto convert = [&](const Value& value) {
    return generalUtilities().isValueEmpty(value) ? showWindow : toInteger16(value);
  };
  return getSetting(tagOf<"getShowEmailPreview">, emailPreviewColumn, userId, showWindow, convert);
}

void putShowEmailPreview(std::int16_t value, Id userId) {
  putSetting(tagOf<"putShowEmailPreview">, emailPreviewColumn, userId, value);
}

}  // namespace autonotify
