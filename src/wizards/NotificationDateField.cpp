#include "wizards/NotificationDateField.h"

#include "contract/Window.h"
#include "contract/tags.h"
#include "contract/windows.h"
#include "platform/Value.h"
#include "platform/format.h"
#include "scheduling/modNotificationDates.h"

namespace autonotify {
namespace {

/// All composers carry the wizard's name in the tags of this field.
constexpr const char* form = "frmSendNotificationWizard";
template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"frmSendNotificationWizard", name>;

bool wantsFriday() {
  return askQuestion("This date falls on a weekend.  Would you like " + locale().getProductName() +
                         " to adjust this date to the previous Friday instead?",
                     message_style::alreadySent);
}

void refuseDate() {
  showMessage("You must enter a valid notification date.", message_style::valueRefused);
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
  lblNotificationDate.setContainer(picNotificationDate);
  txtNotificationField.setContainer(picNotificationDate);
  dtpNotification.setContainer(picNotificationDate);
  using Self = NotificationDateField;
  react(dtpNotification.onDropDown, tagOf<"dtpNotification_DropDown">, *this, &Self::openCalendar);
  react(dtpNotification.onCloseUp, tagOf<"dtpNotification_CloseUp">, *this, &Self::takePicked);
  markFocusGained(txtNotificationField, form);
  react(txtNotificationField.onValidate, tagOf<"txtNotificationField_Validate">, *this,
        &Self::takeTyped);
  react(txtNotificationField.onLostFocus, tagOf<"txtNotificationField_LostFocus">, *this,
        &Self::rememberText);
}

void NotificationDateField::show(DateTime date) {
  date_ = date;
  txtNotificationField.setText(date.isZero() ? std::string{} : longDateText(date));
  dtpNotification.setValue(date);
}

bool NotificationDateField::requireDate(Step& step) {
  if (!dtpNotification.value().isZero()) return true;
  step.run(refuseDate);
  return false;
}

bool NotificationDateField::parseText(Step& step, DateTime& date) const {
  return step.holds([&] { return validation().parseDateText(txtNotificationField.text(), date); });
}

void NotificationDateField::openCalendar(Step& step) {
  DateTime shown;
  if (!parseText(step, shown)) step.assign(shown, [] { return platformClock().today(); });
  dtpNotification.setValue(shown);
}

/// The picker keeps the date picked: it follows when the text field, which has the focus then, is
/// left.
void NotificationDateField::takePicked(Step& step) {
  const DateTime picked = dtpNotification.value();
  if (step.holds([&] { return validation().isDateText(toText(picked)); })) {
    date_ = picked;
    offerFriday(step);
    txtNotificationField.setText(longDateText(date_));
  }
  step.run(&Control::setFocus, txtNotificationField);
}

void NotificationDateField::takeTyped(Step& step, bool& keepsFocus) {
  if (parseText(step, date_)) {
    offerFriday(step);
    show(date_);
    return;
  }
  step.run(refuseDate);
  txtNotificationField.setText(previousText_);
  keepsFocus = true;
}

void NotificationDateField::rememberText(Step& step) {
  step.run([&] { styler().markFocusLost(&txtNotificationField); });
  previousText_ = txtNotificationField.text();
}

void NotificationDateField::offerFriday(Step& step) {
  if (!step.holds([&] { return validation().isWeekend(date_); })) return;
  if (step.holds(wantsFriday)) date_ = adjustDateToFridayIfWeekendOrHoliday(date_);
}

}  // namespace autonotify
