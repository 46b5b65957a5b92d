#include "wizards/frmSendNotificationWizardApptNotifyNow.h"

#include "channels/diary_items.h"
#include "contract/windows.h"
#include "platform/controls/OptionButton.h"

namespace autonotify {

frmSendNotificationWizardApptNotifyNow::frmSendNotificationWizardApptNotifyNow()
    : Window(formHost(), "frmSendNotificationWizardApptNotifyNow", "Send Notification Wizard") {
  using Self = frmSendNotificationWizardApptNotifyNow;
  for (std::size_t i = 0; i < chkNotify.size(); ++i) {
    chkNotify[i].setCaption(wizardChannels[i].caption);
    chkNotify[i].setContainer(Frame1);
    reactAt(i, chkNotify[i].onClick, "chkNotify_Click", &Self::chooseAlone);
  }
  cmdEditNotificationTemplate.setVisible(false);
  react(cmdFinish.onClick, "cmdFinish_Click", &Self::finish);
  react(cmdCancel.onClick, "cmdCancel_Click", &Self::cancel);
}

void frmSendNotificationWizardApptNotifyNow::InitializeNotifyNow(CurrentDayTimerType kind, Id item,
                                                                 notifyType channel) {
  procedure(tag("InitializeNotifyNow"), [&](Step& step) {
    kind_ = kind;
    item_ = item;
    cancelFlag_ = !isDatabaseOpen(step);
    if (cancelFlag_) return;
    nameClient(step);
    tick([&](std::size_t i) { return wizardChannels[i].channel == channel; });
    step.run(styleForm, *this);
    step.run(setPointer, Pointer::standard);
    step.run(autonotify::showModal, *this);
  });
}

void frmSendNotificationWizardApptNotifyNow::nameClient(Step& step) {
  const DiaryKind& kind = diaryKind(kind_);
  const std::string id = std::to_string(item_);
  if (!kind.isValidId || !kind.isValidId(id)) return;
  const std::string allItems = std::string("SELECT ") + kind.table + ".* FROM " + kind.table + ";";
  const Row item(step, step.value(noRecordset, openRecordset, allItems, keysetRead));
  if (step.holds(findRecord, item.handle(), kind.key, id)) {
    const std::string client = clientName(item);
    Label2.setCaption("This wizard will allow you to quickly send a notification to " +
                      (client.empty() ? "this client" : client));
  } else {
    cancelFlag_ = true;
  }
  item.close();
}

/// That of the contact where there are both.
std::string frmSendNotificationWizardApptNotifyNow::clientName(const Row& item) const {
  Step& step = item.step();
  std::string name;
  const Id company = item.id("CompanyIDNum");
  if (isListedCompany(step, company))
    step.assign(name, [&] { return clients().getCompanyDisplayName(company); });
  const Id contact = item.id("ContactIDNum");
  if (isListedContact(step, contact))
    step.assign(name, [&] { return clients().getContactDisplayName(contact); });
  return name;
}

/// The clicked box keeps the state that the person has given it.
void frmSendNotificationWizardApptNotifyNow::chooseAlone(Step&, std::size_t chosen) {
  if (suppressesClicks_) return;
  tick([&](std::size_t i) { return i == chosen && chkNotify[i].value(); });
}

template <class IsTicked>
void frmSendNotificationWizardApptNotifyNow::tick(IsTicked&& isTicked) {
  suppressesClicks_ = true;
  for (std::size_t i = 0; i < chkNotify.size(); ++i) chkNotify[i].setValue(isTicked(i));
  suppressesClicks_ = false;
}

void frmSendNotificationWizardApptNotifyNow::finish(Step& step) {
  const int chosen = chosenOption(chkNotify);
  if (chosen < 0) return;
  const WizardChannel& channel = wizardChannels[static_cast<std::size_t>(chosen)];
  const DateTime today = step.value(DateTime{}, [] { return platformClock().today(); });
  // Without a day there is no row: it would be one of long ago.
  if (today.isZero()) return;
  const Id row = channel.addForItem({.kind = kind_, .itemId = item_, .reminderDate = today});
  hide();
  // As hosts know it, the composer gets the day for the kind of item and the kind for the schedule
  // entry. The texts of a row are stored alike for every kind; the entry counts only where no row
  // could be added, and the composer adds one of an email to it.
  withWindow(step, channel.makeComposer, [&](NotificationComposer& composer) {
    composer.InitializeNotifyNow(appointmentNotification, row, today.days(), kind_);
    cancelFlag_ = composer.cancelFlag();
  });
}

void frmSendNotificationWizardApptNotifyNow::cancel(Step&) {
  cancelFlag_ = true;
  hide();
}

}  // namespace autonotify
