#pragma once

#include "settings/modUserSettings.h"
#include "support/HostTest.h"
#include "wizards/frmSendNotificationWizardEmail.h"
#include "wizards/frmSendNotificationWizardFax.h"
#include "wizards/frmSendNotificationWizardLetter.h"
#include "wizards/frmSendNotificationWizardPhone.h"

namespace autonotify::test {

/// Makes the composer of a channel.
using Make = std::unique_ptr<NotificationComposer> (*)();
template <class Composer>
std::unique_ptr<NotificationComposer> make() {
  return std::make_unique<Composer>();
}
constexpr Make email = make<frmSendNotificationWizardEmail>;
constexpr Make fax = make<frmSendNotificationWizardFax>;
constexpr Make letter = make<frmSendNotificationWizardLetter>;
constexpr Make phone = make<frmSendNotificationWizardPhone>;

inline void cancel(WindowInUse& window) {
  window.click("cmdCancel");
}

/// Runs the initializer of the mode; a blank send is to the company or the contact.
inline void openComposer(NotificationComposer& composer, ComposerPurpose purpose, Id row,
                         Id entry = noId, Id company = noId, Id contact = noId) {
  if (purpose.mode == ComposerMode::blankSend) {
    auto& blank = dynamic_cast<DocumentComposer&>(composer);
    return blank.InitializeBlankSend(purpose.type, company, contact, purpose.kind);
  }
  // In the order of the modes.
  constexpr auto initializers = std::to_array<decltype(&NotificationComposer::InitializeNotifyNow)>(
      {nullptr, &NotificationComposer::InitializeNotifyNow,
       &NotificationComposer::InitializeEditAutoNotify,
       &NotificationComposer::InitializeNewAutoNotify, &NotificationComposer::InitializeSendAuto});
  const auto initialize = initializers.at(static_cast<std::size_t>(purpose.mode));
  (composer.*initialize)(purpose.type, row, purpose.kind, entry);
}

/// A schedule entry of a company and its email notification, due on a Thursday.
struct ComposerOffice {
  static constexpr const char* memo = "{\\rtf1\\ansi Your return is due.\\par }";
  static constexpr DateTime notifyDate = DateTime::of(2026, 4, 23);

  explicit ComposerOffice(TableRows rows) {
    addAllTold(rows, "../wizards/composer_office.txt", "office");
  }

  Id company = 1, blankContact = noId, entry = 1, row = 1;
};

class ComposerTest : public HostTest, public ComposerOffice {
 protected:
  ComposerTest() : ComposerOffice(TableRows(*plainDatabase)) {}

  struct Result {
    bool cancelFlag, sendSuccessfulFlag;
    bool operator==(const Result&) const = default;
  };

  /// Opens the row, lets the person act, unloads the window as every caller does.
  Result compose(Make makeComposer, ComposerPurpose purpose, HeadlessPerson::Script script) {
    return use(*makeComposer(), purpose, std::move(script));
  }
  Result compose(ComposerPurpose purpose, HeadlessPerson::Script script) {
    return compose(email, purpose, std::move(script));
  }
  Result compose(ComposerMode mode, HeadlessPerson::Script script) {
    return compose(ComposerPurpose{mode}, std::move(script));
  }
  Result use(NotificationComposer& composer, ComposerPurpose purpose,
             HeadlessPerson::Script script) {
    screen.expectWindow(composer.name(), std::move(script));
    openComposer(composer, purpose, row, entry, company, blankContact);
    const Result result{composer.cancelFlag(), composer.SendSuccessfulFlag()};
    composer.unload();
    return result;
  }

  void execute(const std::string& sql) { plainDatabase->connection().exec(sql); }
  /// The person wants each arming confirmed.
  void confirmArming() {
    getAutoSendWizardConfirmation(7);
    execute("UPDATE UserGeneralSettings SET WarningMessagesExitAutomaticNotificationWarning=1");
  }
  std::string column(const std::string& name) {
    const Value value =
        valueOf("ClientNotification", name, "ClientNotificationID=" + std::to_string(row));
    return value.isNull() ? std::string{} : toText(value);
  }
  bool rowExists() { return !notification(row, "1").empty(); }
  std::string channelBits() {
    return toText(valueOf("Schedule", "notifyType", "ScheduleID=" + std::to_string(entry)));
  }
};

}  // namespace autonotify::test
