#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/WindowTest.h"
#include "wizards/frmSendNotificationWizardEmail.h"

namespace autonotify::test {

/// The initializers by the mode that they open.
inline void openComposer(NotificationComposer& composer, ComposerMode mode, notificationTypes type,
                         Id row, CurrentDayTimerType kind, Id entry = noId) {
  switch (mode) {
    case ComposerMode::notifyNow:
      return composer.InitializeNotifyNow(type, row, kind, entry);
    case ComposerMode::editAuto:
      return composer.InitializeEditAutoNotify(type, row, kind, entry);
    case ComposerMode::newAuto:
      return composer.InitializeNewAutoNotify(type, row, kind, entry);
    default:
      return composer.InitializeSendAuto(type, row, kind, entry);
  }
}

/// A schedule entry of a company and its email notification, due on a Thursday.
template <class Host>
class ComposerRows : public Host {
 public:
  static constexpr const char* formName = "frmSendNotificationWizardEmail";
  static constexpr const char* memo = "{\\rtf1\\ansi Your return is due.\\par }";
  static constexpr DateTime notifyDate = DateTime::of(2026, 4, 23);

  ComposerRows() : rows(*this->plainDatabase) {
    rows.addKind(103, 1, 5, "{\\rtf1\\ansi Please file your return.\\par }");
    company = rows.addRow("Companies", {{"CompanyName", "Birch Ltd."}, {"Email", "office@birch"}});
    const Id client = rows.addRow("ClientData", {{"CompanyIDNum", company}});
    entry = rows.addSchedule(103, 1, DateTime::of(2026, 4, 30),
                             {{"ClientNum", client}, {"scheduleName", "GST Return"}});
    rows.addTask(entry, "GST Return");
    row = rows.addRow("ClientNotification", {{"ScheduleIDNum", entry},
                                             {"NotificationType", 1},
                                             {"NotificationDate", notifyDate},
                                             {"CompanyIDNum", company},
                                             {"Field1", "ann@birch"},
                                             {"Field4", "Your GST Return"},
                                             {"Memo", memo}});
  }

  Rows rows;
  Id company = noId;
  Id entry = noId;
  Id row = noId;
};

class ComposerTest : public ComposerRows<WindowTest> {
 protected:
  struct Result {
    bool cancelFlag;
    bool sendSuccessfulFlag;
    bool operator==(const Result&) const = default;
  };
  struct Opening {
    ComposerMode mode = ComposerMode::editAuto;
    notificationTypes type = remittanceNotification;
    CurrentDayTimerType kind = Appointments;
  };

  /// Opens the row, lets the person act, unloads the window as every caller does.
  Result compose(Opening opening, HeadlessPerson::Script script) {
    person.expectWindow(formName, std::move(script));
    frmSendNotificationWizardEmail composer;
    openComposer(composer, opening.mode, opening.type, row, opening.kind, entry);
    const Result result{composer.cancelFlag(), composer.SendSuccessfulFlag()};
    composer.unload();
    return result;
  }
  Result compose(ComposerMode mode, HeadlessPerson::Script script) {
    return compose(Opening{mode}, std::move(script));
  }

  std::string column(const std::string& name) {
    const Value value =
        valueOf("ClientNotification", name, "ClientNotificationID=" + std::to_string(row));
    return value.isNull() ? std::string{} : toText(value);
  }
  bool rowExists() {
    return rowCount("ClientNotification", "ClientNotificationID=" + std::to_string(row)) == 1;
  }
  std::string channelBits() {
    return toText(valueOf("Schedule", "notifyType", "ScheduleID=" + std::to_string(entry)));
  }
};

}  // namespace autonotify::test
