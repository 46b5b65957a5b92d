#include "wizards/NotificationComposer.h"

#include <algorithm>
#include <iterator>

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/windows.h"
#include "platform/format.h"
#include "scheduling/modNotificationComments.h"
#include "settings/modUserSettings.h"
#include "settings/user_row.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

constexpr const char* rowOnShow =
    "SELECT ClientNotification.* FROM ClientNotification Where "
    "ClientNotification.ClientNotificationID=";

constexpr const char* lossQuestion =
    "This notification is not in the database any more.  Do you want to close it and lose what you "
    "have entered?";

/// The kind that a refreshed comment of a diary item is made and stored as, whatever its own is.
constexpr CurrentDayTimerType refreshedKind = Appointments;

struct ItemWord {
  ItemKind kind;
  const char* word;
};
constexpr ItemWord itemWords[] = {
    {Appointments, "appointment"}, {Dockets, "time entry"}, {Tasks, "task"}};

/// The word for the item in a confirmation; nullptr for a type or kind that has none.
const char* wordFor(notificationTypes type, ItemKind kind) {
  if (type == remittanceNotification) return "task";
  if (type != appointmentNotification) return nullptr;
  const auto named = std::ranges::find(itemWords, kind, &ItemWord::kind);
  return named == std::end(itemWords) ? nullptr : named->word;
}

std::string sentText(const Value& sentTime) {
  const DateTime time = toDateTime(sentTime);
  return "This notification has already been sent on " + longDateText(time) + " at " +
         formatDateTime(time, "h:mm am/pm");
}

}  // namespace

NotificationComposer::NotificationComposer(const ComposerChannel& channel)
    : Window(formHost(), channel.formName, channel.caption),
      chkAddAddress(*this, "chkAddAddress", channel.addressCaption),
      channel_(channel) {
  lblScheduled.setVisible(false);
  cmdRefreshComment.setVisible(false);
  using Self = NotificationComposer;
  react(cmdRefreshComment.onClick, "cmdRefreshComment_Click", &Self::refreshComment);
  react(chkAddAddress.onClick, "chkAddAddress_Click", &Self::changeAddress);
  react(cmdCancel.onClick, "cmdCancel_Click", &Self::cancel);
  react(cmdFinish.onClick, "cmdFinish_Click", &Self::clickFinish);
}

std::string NotificationComposer::tag(const std::string& procedureName) const {
  const auto other = std::ranges::find(channel_.otherTags, procedureName, &OtherTag::procedure);
  if (other == channel_.otherTags.end()) return Window::tag(procedureName);
  return std::string(tagStart) + other->tag;
}

// Opening.

void NotificationComposer::initialize(const char* procedureName, const ComposerPurpose& purpose,
                                      Id row, Id entry) {
  procedure(tag(procedureName), [&](Step& step) {
    step.run(setPointer, Pointer::busy);
    open(purpose);
    takeRow(row);
    if (row < 1 && addsRow(entry)) takeRow(addNewEmailNotificationFromScheduleIDNum(entry));
    fillAndShow(step);
  });
}

void NotificationComposer::open(const ComposerPurpose& purpose) {
  sendSuccessfulFlag_ = false;
  cancelFlag_ = false;
  purpose_ = purpose;
  const bool isAtOnce = sendsAtOnce();
  notificationDate.picNotificationDate.setVisible(!isAtOnce);
  if (isAtOnce && channel_.finishAtOnce) cmdFinish.setCaption(channel_.finishAtOnce);
  if (isAtOnce && channel_.cancelAtOnce) cmdCancel.setCaption(channel_.cancelAtOnce);
}

bool NotificationComposer::sendsAtOnce() const {
  return mode() == ComposerMode::notifyNow || mode() == ComposerMode::sendAuto ||
         mode() == ComposerMode::blankSend;
}

void NotificationComposer::fillAndShow(Step& step) {
  populateInfo();
  step.run(setPointer, Pointer::standard);
  step.run(autonotify::showModal, *this);
}

bool NotificationComposer::addsRow(Id scheduleID) const {
  if (channel_.addsRow == AddsRow::unlessNewWithoutSchedule) {
    return purpose_.mode != ComposerMode::newAuto || scheduleID >= 0;
  }
  return channel_.addsRow == AddsRow::always;
}

// Filling.

void NotificationComposer::populateInfo() {
  procedure(tag("populateInfo"), [&](Step& step) {
    step.run(styleForm, *this);
    if (isDatabaseOpen(step)) fill(step);
    cmdRefreshComment.setVisible(true);
    step.run(setPointer, Pointer::standard);
  });
}

void NotificationComposer::fill(Step& step) {
  companyID_ = noId;
  contactID_ = noId;
  if (const Rows row(step, rowOnShow, notifyID_, keysetRead); row) {
    readRow(row);
    showSentState(row);
  }
  if (isSent_ && purpose_.mode == ComposerMode::editAuto) lock();
}

void NotificationComposer::readRow(const Row& row) {
  const auto readText = [&] { rtbText.setTextRTF(row.text("Memo")); };
  if (channel_.readsTextFirst) readText();
  companyID_ = row.id("CompanyIDNum");
  contactID_ = row.id("ContactIDNum");
  populateLists();
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const std::string column = "Field" + std::to_string(i + 1);
    const std::string text = row.text(column.c_str());
    std::visit([&](auto* field) { field->setText(text); }, fields_[i]);
  }
  if (!channel_.readsTextFirst) readText();
  DateTime date;
  row.read(date, "NotificationDate", toDateTime);
  notificationDate.show(date);
}

void NotificationComposer::showSentState(const Row& row) {
  isSent_ = row.flag("NotificationSent");
  if (!isSent_) return;
  lblScheduled.setVisible(true);
  const Value sentTime = row.value("SentTime");
  std::string text = "This notification has already been sent";
  if (!isEmpty(row.step(), sentTime)) text = row.step().value(std::string{}, sentText, sentTime);
  lblScheduled.setCaption(text);
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

void NotificationComposer::clickFinish(Step& step) {
  if (isGone(step)) {
    if (step.holds(askQuestion, lossQuestion, message_style::notice)) cancel(step);
    return;
  }
  // Nothing is armed that would never fall due.
  if (mode() == ComposerMode::newAuto && !notificationDate.requireDate(step)) return;
  finish(step);
}

/// A row that somebody else has deleted takes nothing up. One that cannot be looked for counts as
/// there, and a window that never had one does without it.
bool NotificationComposer::isGone(Step& step) const {
  if (notifyID_ < 1 || !isDatabaseOpen(step)) return false;
  const Rows row(step, rowOnShow, notifyID_, keysetRead, true);
  return !row;
}

FieldTexts NotificationComposer::fieldTexts() const {
  FieldTexts texts;
  for (const TextField& field : fields_) {
    texts.push_back(std::visit([](auto* control) { return control->text(); }, field));
  }
  return texts;
}

void NotificationComposer::edit(ItemKind kind, const FieldTexts& fields, const std::string& memo) {
  if (purpose_.type == remittanceNotification) channel_.editForSchedule(notifyID_, fields, memo);
  if (purpose_.type == appointmentNotification) channel_.editForItem(kind, notifyID_, fields, memo);
}

void NotificationComposer::saveFields() {
  edit(purpose_.kind, fieldTexts(), rtbText.textRTF());
}

/// A row whose date could not be read keeps it, unless a person has given one.
void NotificationComposer::saveDate() {
  const DateTime date = notificationDate.dtpNotification.value();
  if (!date.isZero()) changeNotificationNotifiedDate(notifyID_, date);
}

void NotificationComposer::saveForLater(Step& step) {
  saveFields();
  saveDate();
  if (purpose_.mode == ComposerMode::newAuto) arm(step);
}

void NotificationComposer::arm(Step& step) {
  const auto& [mode, type, kind] = purpose_;
  if (type == remittanceNotification) {
    const Id entry = getScheduleIDFromNotificationID(notifyID_);
    changeNotificationStatus(channel_.channel, nt_AddStatus, entry);
  } else if (type == appointmentNotification) {
    const Id item = getAppointmentIDFromNotificationID(kind, notifyID_);
    changeApptNotificationStatus(kind, channel_.channel, nt_AddStatus, item);
  }
  confirm(step);
}

void NotificationComposer::confirm(Step& step) {
  const Id user = currentUser(step);
  if (!getAutoSendWizardConfirmation(user)) return;
  const char* word = wordFor(purpose_.type, purpose_.kind);
  const DateTime date = notificationDate.date();
  if (!word || date.isZero()) return;
  const std::string text =
      std::string(channel_.confirmationStart) + word + channel_.confirmationEnd;
  step.run(showMessage, text + longDateText(date), message_style::armedConfirmed);
}

void NotificationComposer::hideAndRepaint(Step& step) {
  hide();
  step.run(&Form::repaint, *this);
}

// Leaving without Finish.

void NotificationComposer::cancel(Step&) {
  sendSuccessfulFlag_ = false;
  if (purpose_.mode == ComposerMode::newAuto) deleteNotification(notifyID_);
  cancelFlag_ = true;
  hide();
}

bool NotificationComposer::queryUnload(CloseReason) {
  procedure(tag("Form_QueryUnload"), [&](Step&) {
    if (purpose_.mode == ComposerMode::notifyNow || purpose_.mode == ComposerMode::blankSend) {
      deleteNotification(notifyID_);
    }
  });
  return true;
}

// The text.

void NotificationComposer::refreshComment(Step& step) {
  const std::string question =
      "Are you sure you want to refresh this comment?  This will replace the existing text.";
  if (!step.holds(askQuestion, question, message_style::batchNotice)) return;
  std::string text;
  if (purpose_.type == remittanceNotification) {
    text = generateClientAutoNotifyComment(getScheduleIDFromNotificationID(notifyID_));
  } else if (purpose_.type == appointmentNotification) {
    text = getAppointmentBodyText(refreshedKind, notifyID_);
  }
  rtbText.setTextRTF(text);
  edit(refreshedKind, FieldTexts(fields_.size()), text);
}

}  // namespace autonotify
