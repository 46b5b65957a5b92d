#include "wizards/frmSendNotificationWizard.h"

#include "contract/firm_rules.h"
#include "contract/windows.h"
#include "editor/frmTaskAutoNotification.h"
#include "settings/modUserSettings.h"
#include "settings/user_row.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

constexpr const char* allEntries = "SELECT Schedule.* FROM Schedule;";

/// From this level on the firm with rules of its own lets nobody edit templates.
constexpr std::int16_t ordinaryUserLevel = 2;

constexpr const char* administratorsOnly =
    "You must be logged into an administrator user in order to use this feature.";

/// The sentence of the window, up to the schedule entry's name.
std::string sentenceStart(bool isNow, const std::string& client) {
  const std::string start =
      isNow ? "This wizard will allow you to notify "
            : "This wizard will allow you to setup an automatic notification for ";
  if (!client.empty()) return start + client + " regarding their ";
  return start + (isNow ? "for client of their " : "this client's ");
}

/// The channels of a schedule entry; none when its bits are empty or too many.
std::uint8_t readBits(const Row& entry) {
  const Value bits = entry.value("notifyType");
  if (isEmpty(entry.step(), bits)) return 0;
  return entry.step().value(std::uint8_t{0}, toByte, bits);
}

}  // namespace

frmSendNotificationWizard::frmSendNotificationWizard()
    : Window(formHost(), "frmSendNotificationWizard", "Send Notification Wizard") {
  using Self = frmSendNotificationWizard;
  for (std::size_t i = 0; i < wizardChannels.size(); ++i) {
    chkAutoNotify[i].setCaption(wizardChannels[i].caption);
    chkAutoNotify[i].setContainer(Frame1);
    editButtons_[i]->setContainer(Frame1);
    chkNotify[i].setCaption(wizardChannels[i].caption);
    chkNotify[i].setContainer(Frame2);
    reactAt(i, chkAutoNotify[i].onClick, "chkAutoNotify_Click", &Self::changeChannel);
    reactAt(i, editButtons_[i]->onClick, editButtons_[i]->name() + "_Click", &Self::editChannel);
    reactAt(i, chkNotify[i].onClick, "chkNotify_Click", &Self::notifyNow);
  }
  react(cmdEditNotificationTemplate.onClick, "cmdEditNotificationTemplate_Click",
        &Self::openTemplate);
  react(cmdCancel.onClick, "cmdCancel_Click", &Self::cancel);
  orderFirst({&chkAutoNotify[0], &editEmail, &chkAutoNotify[1], &editFax, &chkAutoNotify[2],
              &editLetter, &chkAutoNotify[3], &editPhone});
}

// Filling.

void frmSendNotificationWizard::InitializeNotifyNow(ClientType clientType, Id entry) {
  procedure(tag("InitializeNotifyNow"), [&](Step& step) {
    cancelFlag_ = false;
    show(step, Face::notifyNow, clientType, entry);
  });
}

void frmSendNotificationWizard::InitializeAutoNotify(ClientType clientType, Id entry) {
  procedure(tag("InitializeAutoNotify"),
            [&](Step& step) { show(step, Face::autoNotify, clientType, entry); });
}

void frmSendNotificationWizard::show(Step& step, Face face, ClientType clientType, Id entry) {
  Frame1.setVisible(face == Face::autoNotify);
  Frame2.setVisible(face == Face::notifyNow);
  suppressesClicks_ = true;
  step.run(styleForm, *this);
  scheduleID_ = entry;
  if (!isDatabaseOpen(step)) return;
  step.run(setPointer, Pointer::busy);
  if (!fill(step, face, clientType)) return;
  suppressesClicks_ = false;
  step.run(setPointer, Pointer::standard);
  step.run(autonotify::showModal, *this);
}

/// False without the entry, in which case the recordset stays open.
bool frmSendNotificationWizard::fill(Step& step, Face face, ClientType clientType) {
  const Row entry(step, step.value(noRecordset, openRecordset, allEntries, keysetRead));
  if (!step.holds(findRecord, entry.handle(), "ScheduleID", std::to_string(scheduleID_))) {
    return false;
  }
  const std::uint8_t bits = readBits(entry);
  const std::string scheduleName = entry.text("scheduleName");
  totalNum_ = entry.id("totalNum");
  scheduleNum_ = entry.id("scheduleNum");
  const std::string client = clientName(entry, clientType);
  entry.close();
  Label2.setCaption(sentenceStart(face == Face::notifyNow, client) + scheduleName + ".");
  if (face == Face::autoNotify) tick(bits);
  return true;
}

std::string frmSendNotificationWizard::clientName(const Row& entry, ClientType clientType) const {
  if (clientType == enumAutoNotifyCompany) return getCompanyNameFromScheduleID(scheduleID_);
  if (clientType != enumAutoNotifyContact) return {};
  const Id contact = entry.id("ContactIDNum");
  if (contact < 0) return {};
  const auto name = [&] { return clients().getContactDisplayName(contact); };
  return entry.step().value(std::string{}, name);
}

void frmSendNotificationWizard::tick(std::uint8_t bits) {
  for (std::size_t i = 0; i < wizardChannels.size(); ++i) {
    const bool isSelected = wizardChannels[i].isSelected(bits);
    chkAutoNotify[i].setValue(isSelected);
    editButtons_[i]->setVisible(isSelected);
  }
}

// What a person does.

void frmSendNotificationWizard::notifyNow(Step& step, std::size_t channel) {
  step.run(setPointer, Pointer::busy);
  hide();
  yieldToHost(step, 2);
  const Id row = wizardChannels[channel].addForEntry(scheduleID_);
  compose(step, channel, &NotificationComposer::InitializeNotifyNow, row);
}

void frmSendNotificationWizard::changeChannel(Step& step, std::size_t channel) {
  if (suppressesClicks_) return;
  chkAutoNotify[channel].value() ? addChannel(step, channel) : removeChannel(step, channel);
}

void frmSendNotificationWizard::addChannel(Step& step, std::size_t channel) {
  const Id row = wizardChannels[channel].addForEntry(scheduleID_);
  step.run(setPointer, Pointer::busy);
  hide();
  yieldToHost(step, 2);
  compose(step, channel, &NotificationComposer::InitializeNewAutoNotify, row);
}

/// Where the person refuses, the box is ticked again, which is a click like any other and adds the
/// channel once more.
void frmSendNotificationWizard::removeChannel(Step& step, std::size_t channel) {
  if (!mayRemove(step)) return chkAutoNotify[channel].setValue(true);
  const notifyType type = wizardChannels[channel].channel;
  deleteNotification(getNotificationID(scheduleID_, type));
  editButtons_[channel]->setVisible(false);
  changeNotificationStatus(type, nt_RemoveStatus, scheduleID_);
}

bool frmSendNotificationWizard::mayRemove(Step& step) {
  const Id user = currentUser(step);
  if (!getCancelAutoNotification(user)) return true;
  return step.holds(askQuestionAbove, *this,
                    "Are you sure you want to cancel this automatic notification?",
                    message_style::valueRefused);
}

void frmSendNotificationWizard::editChannel(Step& step, std::size_t channel) {
  hide();
  yieldToHost(step, 2);
  const Id row = getNotificationID(scheduleID_, wizardChannels[channel].channel);
  compose(step, channel, &NotificationComposer::InitializeEditAutoNotify, row);
}

void frmSendNotificationWizard::compose(Step& step, std::size_t channel, Opening open, Id row) {
  withWindow(step, wizardChannels[channel].makeComposer, [&](NotificationComposer& composer) {
    (composer.*open)(remittanceNotification, row, Appointments, scheduleID_);
    cancelFlag_ = composer.cancelFlag();
  });
}

void frmSendNotificationWizard::openTemplate(Step& step) {
  const bool hasOwnRules = step.holds(hasFirmRules);
  const auto level = step.value(std::int16_t{0}, [] { return locale().getUserAccessLevel(); });
  if (hasOwnRules && level >= ordinaryUserLevel) {
    return step.run(showMessage, administratorsOnly, message_style::notice);
  }
  withWindow<frmTaskAutoNotification>(step, [&](frmTaskAutoNotification& editor) {
    editor.InitializeWithTotalNumAndScheduleNum(totalNum_, scheduleNum_);
  });
}

void frmSendNotificationWizard::cancel(Step&) {
  cancelFlag_ = true;
  hide();
}

}  // namespace autonotify
