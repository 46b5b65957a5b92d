#include "wizards/NotificationComposer.h"

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/windows.h"
#include "platform/format.h"
#include "scheduling/modNotificationComments.h"
#include "settings/modUserSettings.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

/// The kind that a refreshed comment of a diary item is made and stored as, whatever its own is.
constexpr CurrentDayTimerType refreshedKind = Appointments;

/// The word for the item in a confirmation; nullptr for a type or kind that has none.
const char* wordFor(notificationTypes type, CurrentDayTimerType kind) {
  if (type == remittanceNotification) return "task";
  if (type != appointmentNotification) return nullptr;
  switch (kind) {
    case Appointments:
      return "appointment";
    case Dockets:
      return "time entry";
    case Tasks:
      return "task";
  }
  return nullptr;
}

bool sendsAtOnce(ComposerMode mode) {
  return mode == ComposerMode::notifyNow || mode == ComposerMode::sendAuto ||
         mode == ComposerMode::blankSend;
}

}  // namespace

NotificationComposer::NotificationComposer(const ComposerChannel& channel)
    : Form(formHost(), channel.formName, channel.caption),
      chkAddAddress(*this, "chkAddAddress", channel.addressCaption),
      channel_(channel) {
  lblScheduled.setVisible(false);
  cmdRefreshComment.setVisible(false);
  cmdRefreshComment.onClick = [this] { refreshComment(); };
  chkAddAddress.onClick = [this] { changeAddress(); };
  cmdCancel.onClick = [this] { cancel(); };
  cmdFinish.onClick = [this] {
    procedure(tag("cmdFinish_Click"), [&](Step& step) { finish(step); });
  };
}

std::string NotificationComposer::tag(const char* procedureName) const {
  return std::string("Morvane.exe-") + channel_.formName + "-" + procedureName;
}

// Opening.

void NotificationComposer::InitializeNotifyNow(notificationTypes type, Id notifyID,
                                               CurrentDayTimerType kind, Id scheduleID) {
  initialize("InitializeNotifyNow", ComposerMode::notifyNow, type, notifyID, kind, scheduleID);
}

void NotificationComposer::InitializeEditAutoNotify(notificationTypes type, Id notifyID,
                                                    CurrentDayTimerType kind, Id scheduleID) {
  initialize("InitializeEditAutoNotify", ComposerMode::editAuto, type, notifyID, kind, scheduleID);
}

void NotificationComposer::InitializeNewAutoNotify(notificationTypes type, Id notifyID,
                                                   CurrentDayTimerType kind, Id scheduleID) {
  initialize("InitializeNewAutoNotify", ComposerMode::newAuto, type, notifyID, kind, scheduleID);
}

void NotificationComposer::InitializeSendAuto(notificationTypes type, Id notifyID,
                                              CurrentDayTimerType kind, Id scheduleID) {
  initialize("InitializeSendAuto", ComposerMode::sendAuto, type, notifyID, kind, scheduleID);
}

void NotificationComposer::initialize(const char* procedureName, ComposerMode mode,
                                      notificationTypes type, Id notifyID, CurrentDayTimerType kind,
                                      Id scheduleID) {
  procedure(tag(procedureName), [&](Step& step) {
    step.run([] { formHost().setPointer(Pointer::busy); });
    open(mode, type, kind);
    takeRow(notifyID);
    if (notifyID_ < 1 && addsRow(scheduleID)) {
      takeRow(addNewEmailNotificationFromScheduleIDNum(scheduleID));
    }
    fillAndShow(step);
  });
}

void NotificationComposer::open(ComposerMode mode, notificationTypes type,
                                CurrentDayTimerType kind) {
  sendSuccessfulFlag_ = false;
  cancelFlag_ = false;
  mode_ = mode;
  type_ = type;
  kind_ = kind;
  const bool isAtOnce = sendsAtOnce(mode);
  notificationDate.picNotificationDate.setVisible(!isAtOnce);
  if (isAtOnce && channel_.finishAtOnce) cmdFinish.setCaption(channel_.finishAtOnce);
  if (isAtOnce && channel_.cancelAtOnce) cmdCancel.setCaption(channel_.cancelAtOnce);
}

void NotificationComposer::fillAndShow(Step& step) {
  populateInfo();
  step.run([] { formHost().setPointer(Pointer::standard); });
  step.run([&] { autonotify::showModal(*this); });
}

bool NotificationComposer::addsRow(Id scheduleID) const {
  if (channel_.addsRow == AddsRow::unlessNewWithoutSchedule) {
    return mode_ != ComposerMode::newAuto || scheduleID >= 0;
  }
  return channel_.addsRow == AddsRow::always;
}

// Filling.

void NotificationComposer::populateInfo() {
  procedure(tag("populateInfo"), [&](Step& step) {
    step.run([&] { styler().styleForm(this); });
    if (isDatabaseOpen(step)) {
      companyID_ = noId;
      contactID_ = noId;
      withRow(step,
              "SELECT ClientNotification.* FROM ClientNotification Where "
              "ClientNotification.ClientNotificationID=",
              notifyID_, keysetRead, [&](RecordsetHandle handle) {
                readRow(step, handle);
                showSentState(step, handle);
              });
      if (isSent_ && mode_ == ComposerMode::editAuto) lock();
    }
    cmdRefreshComment.setVisible(true);
    step.run([] { formHost().setPointer(Pointer::standard); });
  });
}

void NotificationComposer::readRow(Step& step, RecordsetHandle handle) {
  companyID_ = readId(step, handle, "CompanyIDNum");
  contactID_ = readId(step, handle, "ContactIDNum");
  populateLists();
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const std::string column = "Field" + std::to_string(i + 1);
    const std::string text = readText(step, handle, column.c_str());
    std::visit([&](auto* field) { field->setText(text); }, fields_[i]);
  }
  rtbText.setTextRTF(readText(step, handle, "Memo"));
  step.run([&] {
    notificationDate.show(toDateTime(database().getFieldValue(handle, "NotificationDate")));
  });
}

void NotificationComposer::showSentState(Step& step, RecordsetHandle handle) {
  isSent_ = readFlag(step, handle, "NotificationSent");
  if (!isSent_) return;
  lblScheduled.setVisible(true);
  const Value sentTime = readField(step, handle, "SentTime");
  if (isEmpty(step, sentTime)) {
    lblScheduled.setCaption("This notification has already been sent");
    return;
  }
  step.run([&] {
    const DateTime time = toDateTime(sentTime);
    lblScheduled.setCaption("This notification has already been sent on " + longDateText(time) +
                            " at " + formatDateTime(time, "h:mm am/pm"));
  });
}

/// A sent notification can be looked at, not changed.
void NotificationComposer::lock() {
  std::vector<Control*> inputs = furtherInputs();
  inputs.insert(inputs.end(), {&chkAddAddress, &rtbText});
  for (const TextField& field : fields_) {
    std::visit([&](auto* control) { inputs.push_back(control); }, field);
  }
  for (Control* input : inputs) input->setEnabled(false);
  cmdFinish.setVisible(false);
}

// Finish and what it is made of.

FieldTexts NotificationComposer::fieldTexts() const {
  FieldTexts texts;
  for (const TextField& field : fields_) {
    texts.push_back(std::visit([](auto* control) { return control->text(); }, field));
  }
  return texts;
}

void NotificationComposer::edit(CurrentDayTimerType kind, const FieldTexts& fields,
                                const std::string& memo) {
  if (type_ == remittanceNotification) channel_.editForSchedule(notifyID_, fields, memo);
  if (type_ == appointmentNotification) channel_.editForItem(kind, notifyID_, fields, memo);
}

void NotificationComposer::saveFields() {
  edit(kind_, fieldTexts(), rtbText.textRTF());
}

void NotificationComposer::saveDate() {
  changeNotificationNotifiedDate(notifyID_, notificationDate.dtpNotification.value());
}

void NotificationComposer::saveForLater(Step& step) {
  saveFields();
  saveDate();
  if (mode_ == ComposerMode::newAuto) arm(step);
}

void NotificationComposer::arm(Step& step) {
  if (type_ == remittanceNotification) {
    changeNotificationStatus(channel_.channel, nt_AddStatus,
                             getScheduleIDFromNotificationID(notifyID_));
  } else if (type_ == appointmentNotification) {
    changeApptNotificationStatus(kind_, channel_.channel, nt_AddStatus,
                                 getAppointmentIDFromNotificationID(kind_, notifyID_));
  }
  const Id user = step.value(noId, [] { return locale().getCurrentUserID(); });
  if (!getAutoSendWizardConfirmation(user)) return;
  if (const char* word = wordFor(type_, kind_)) {
    const std::string text = channel_.confirmationStart + std::string(word) +
                             channel_.confirmationEnd + longDateText(notificationDate.date());
    step.run([&] { showMessage(text, message_style::armedConfirmed); });
  }
}

void NotificationComposer::markSent(Step& step) {
  DateTime now;
  step.assign(now, [] { return platformClock().now(); });
  changeNotificationToSent(notifyID_, now, true);
}

void NotificationComposer::hideAndRepaint(Step& step) {
  hide();
  step.run([&] { repaint(); });
}

// Leaving without Finish.

void NotificationComposer::cancel() {
  procedure(tag("cmdCancel_Click"), [&](Step&) {
    sendSuccessfulFlag_ = false;
    if (mode_ == ComposerMode::newAuto) deleteNotification(notifyID_);
    cancelFlag_ = true;
    hide();
  });
}

bool NotificationComposer::queryUnload(CloseReason) {
  procedure(tag("Form_QueryUnload"), [&](Step&) {
    if (mode_ == ComposerMode::notifyNow || mode_ == ComposerMode::blankSend) {
      deleteNotification(notifyID_);
    }
  });
  return true;
}

// The text.

void NotificationComposer::refreshComment() {
  procedure(tag("cmdRefreshComment_Click"), [&](Step& step) {
    if (!step.value(false, [] {
          return askQuestion(
              "Are you sure you want to refresh this comment?  This will replace the existing "
              "text.",
              message_style::batchNotice);
        })) {
      return;
    }
    std::string text;
    if (type_ == remittanceNotification) {
      text = generateClientAutoNotifyComment(getScheduleIDFromNotificationID(notifyID_));
    } else if (type_ == appointmentNotification) {
      text = getAppointmentBodyText(refreshedKind, notifyID_);
    }
    rtbText.setTextRTF(text);
    edit(refreshedKind, FieldTexts(fields_.size()), text);
  });
}

}  // namespace autonotify
