#include "host/database/schema/schema_builder.h"

namespace autonotify::host::schema {

namespace {

/// The columns of the notification list, three of them once per view of the list.
Columns notificationListSettings() {
  Columns result;
  for (const char* view : {"BusinessClients", "PersonalTaxClients", "StandAlone"}) {
    const std::string suffix = view;
    result.push_back({"autoNotifyGridShowResolved" + suffix, ColumnKind::SmallInteger, {}});
    result.push_back({"autoNotifyGridColumnOrder" + suffix, ColumnKind::Memo, {}});
    result.push_back({"autoNotifyGridSortOrder" + suffix, ColumnKind::Memo, {}});
  }
  return result;
}

}  // namespace

std::vector<TableDef> settingsTables() {
  return {
      table("UserGeneralSettings",
            {key("UserGeneralSettingsID"), links({"UserIDNum"}),
             flags({"WarningMessagesExitAutomaticNotificationWarning",
                    "WarningMessagesCancelAutoNotificationWarning", "ShowMVPreview"}),
             smalls({"ShowEmailPreview"}, "1"),
             flags({"OptionsAccountingServicesTabHide", "OptionsAutoFormatBusinessNumber",
                    "OptionsAutoFormatPostalCode", "OptionsAutoFormatSIN",
                    "OptionsAutoFormatTelephoneNumber", "OptionsBusinessClientsShowTaskYears"}),
             smalls({"OptionsDocMergeDefaultProgram", "OptionsFieldEnterOption"}, "0"),
             flags({"OptionsFieldHighlight"}), integers({"OptionsFieldHighlightColour"}, "0"),
             smalls({"OptionsStartupFirstShowSection"}, "0"),
             flags({"WarningMessagesChangePaymentWarning", "WarningMessagesDeleteClientWarning",
                    "WarningMessagesEnteringDuplicateWarning",
                    "WarningMessagesSuccessfulLinkConfirmation",
                    "WarningMessagesUnclosingTaskWarning"})},
            {{"UserIDNum"}}),
      table("GlobalGeneralSettings",
            {key("GlobalGeneralSettingsID"), flags({"DateStampShowTime", "DateStampShowName"}, "1"),
             smalls({"DateStampShowNameOptions"}, "0")}),
      table("UserGridSettings",
            {key("UserGridSettingsID"), links({"UserIDNum"}), flags({"taskGridHideClosed"})},
            {{"UserIDNum"}}),
      // A colour of 0 stands for the list's own.
      table("UserGridSettings2",
            {key("UserGridSettings2ID"), links({"UserIDNum"}), notificationListSettings(),
             flags({"autoNotifyGridLockNameColumn"}), smalls({"autoNotifyGridLockColumnNum"}, "-1"),
             flags({"autoNotifyGridFloatTotalBar"}),
             flags({"autoNotifyGridDisplayAltnGridLines"}, "1"),
             integers({"autoNotifyGridBackColour1", "autoNotifyGridBackColour2"}, "0"),
             flags({"autoNotifyGridWordWrap"}), smalls({"autoNotifyGridStartupView"}, "0"),
             integers({"remittGridBackColour1", "remittGridBackColour2"}, "0"),
             flags({"remittGridDisplayAltnGridLines"}, "1")},
            {{"UserIDNum"}}),
      table("UserProjectGridSettings", {key("UserProjectGridSettingsID"), links({"UserIDNum"})},
            {{"UserIDNum"}}),
      table("UserCalendarSettings", {key("UserCalendarSettingsID"), links({"UserIDNum"})},
            {{"UserIDNum"}}),
      table("UserDataIntegrationSettings",
            {key("UserDataIntegrationSettingsID"), links({"UserIDNum"})}, {{"UserIDNum"}}),
  };
}

}  // namespace autonotify::host::schema
