#include "wizards/NotificationDateField.h"

#include "contract/windows.h"
#include "platform/Value.h"
#include "platform/format.h"
#include "scheduling/modNotificationDates.h"

namespace autonotify {
namespace {

/// All composers carry the wizard's name in these tags.
constexpr const char* form = "frmSendNotificationWizard";
constexpr const char* dropDownTag =
    "Morvane.exe-frmSendNotificationWizard-dtpNotification_DropDown";
constexpr const char* closeUpTag = "Morvane.exe-frmSendNotificationWizard-dtpNotification_CloseUp";
constexpr const char* validateTag =
    "Morvane.exe-frmSendNotificationWizard-txtNotificationField_Validate";
constexpr const char* lostFocusTag =
    "Morvane.exe-frmSendNotificationWizard-txtNotificationField_LostFocus";

bool wantsFriday() {
  return askQuestion("This date falls on a weekend.  Would you like " + locale().getProductName() +
                         " to adjust this date to the previous Friday instead?",
                     message_style::alreadySent);
}

}  // namespace

std::string longDateText(DateTime date) {
  return formatDateTime(date, "dddd, mmmm d, yyyy");
}

NotificationDateField::NotificationDateField(Form& owner)
    : picNotificationDate(owner, "picNotificationDate"),
      lblNotificationDate(owner, "lblNotificationDate", "Notification Date:"),
      txtNotificationField(owner, "txtNotificationField"),
      dtpNotification(owner, "dtpNotification") {
  for (Control* control :
       {static_cast<Control*>(&lblNotificationDate), static_cast<Control*>(&txtNotificationField),
        static_cast<Control*>(&dtpNotification)}) {
    control->setContainer(picNotificationDate);
  }
  dtpNotification.onDropDown = [this] { onDropDown(); };
  dtpNotification.onCloseUp = [this] { onCloseUp(); };
  markFocusGained(txtNotificationField, form);
  txtNotificationField.onValidate = [this] { return onValidate(); };
  txtNotificationField.onLostFocus = [this] { onLostFocus(); };
}

void NotificationDateField::show(DateTime date) {
  date_ = date;
  txtNotificationField.setText(longDateText(date));
  dtpNotification.setValue(date);
}

void NotificationDateField::onDropDown() {
  procedure(dropDownTag, [&](Step& step) {
    DateTime shown;
    if (!step.value(false, [&] {
          return validation().parseDateText(txtNotificationField.text(), shown);
        })) {
      step.assign(shown, [] { return platformClock().today(); });
    }
    dtpNotification.setValue(shown);
  });
}

/// The picker keeps the date picked: it follows when the text field, which has the focus then, is
/// left.
void NotificationDateField::onCloseUp() {
  procedure(closeUpTag, [&](Step& step) {
    const DateTime picked = dtpNotification.value();
    if (step.value(false, [&] { return validation().isDateText(toText(picked)); })) {
      date_ = picked;
      offerFriday(step);
      txtNotificationField.setText(longDateText(date_));
    }
    txtNotificationField.setFocus();
  });
}

bool NotificationDateField::onValidate() {
  return procedure(validateTag, false, [&](Step& step, bool& keepsFocus) {
    if (step.value(false, [&] {
          return validation().parseDateText(txtNotificationField.text(), date_);
        })) {
      offerFriday(step);
      show(date_);
      return;
    }
    step.run([] {
      showMessage("You must enter a valid notification date.", message_style::valueRefused);
    });
    txtNotificationField.setText(previousText_);
    keepsFocus = true;
  });
}

void NotificationDateField::onLostFocus() {
  procedure(lostFocusTag, [&](Step& step) {
    step.run([&] { styler().markFocusLost(&txtNotificationField); });
    previousText_ = txtNotificationField.text();
  });
}

void NotificationDateField::offerFriday(Step& step) {
  if (!step.value(false, [&] { return validation().isWeekend(date_); })) return;
  if (step.value(false, [] { return wantsFriday(); })) {
    date_ = adjustDateToFridayIfWeekendOrHoliday(date_);
  }
}

}  // namespace autonotify
