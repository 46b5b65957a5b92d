#include "bulk/frmSendNotificationBulk.h"

#include "bulk/bulk_rows.h"
#include "bulk/stored_choice.h"
#include "contract/windows.h"
#include "editor/frmTaskAutoNotification.h"

namespace autonotify {
namespace {

constexpr const char* selectAllCaption = "Select All";
constexpr const char* unselectAllCaption = "Unselect All Auto";

using enum TaskFamily;
/// Whose template the editor opens on: the first of these that is chosen.
constexpr std::array<TaskFamily, taskFamilyCount> templateOrder{
    Projects, Bookkeeping, GST,     PST, FederalPayroll, PayrollRemitt, EmployeePayroll, WSIB,
    EHT,      YearEnd,     CorpTax, Law, Other,          Custom};

/// The buttons and pages that one step of the window has.
struct StepState {
  bool back, next, finish;
  bool first, second;
};
constexpr std::array<StepState, 3> stepStates{{
    {false, true, false, true, false},
    {true, false, true, false, true},
    {true, false, false, false, false},
}};

/// 0, which is no valid year, for a text that is no number of that size.
std::int16_t yearOf(const std::string& text) {
  try {
    return toInteger16(Value(text));
  } catch (const PlatformError&) {
    return 0;
  }
}

}  // namespace

frmSendNotificationBulk::frmSendNotificationBulk()
    : Window(formHost(), "frmSendNotificationBulk", "Send Notification Wizard") {
  putIntoPlace();
  tieReactions();
}

void frmSendNotificationBulk::putIntoPlace() {
  Frame4.setContainer(fraStep[0]);
  for (std::size_t i = 0; i < bulkRows.size(); ++i) {
    const std::string tag = std::to_string(bulkRows[i].labelled);
    chkAutoNotify[i].setTag(tag);
    chkAutoNotify[i].setContainer(Frame4);
    lblText[i].setTag(tag);
    lblText[i].setContainer(Frame4);
  }
  for (Button* button : {&cmdSelectAllAuto, &cmdChangeYear}) button->setContainer(fraStep[0]);
  for (Frame* frame : {&fraSource, &Frame1}) frame->setContainer(fraStep[1]);
  cboYear.setContainer(fraSource);
  constexpr const char* captions[] = {"Email", "Fax", "Letter", "Phone"};
  for (std::size_t i = 0; i < chkNotifyType.size(); ++i) {
    chkNotifyType[i].setCaption(captions[i]);
    chkNotifyType[i].setContainer(Frame1);
  }
  for (ComboBox* combo :
       {&cboTo, &cboCc, &cboBcc, &cboFaxRecipient, &cboToFaxNumber, &cboPhoneName, &cboPhoneNumber})
    combo->setContainer(Frame1);
  cmdCancel.setCausesValidation(false);
  orderFirst({&cboYear, &chkNotifyType[0], &cboTo, &cboCc, &cboBcc, &chkNotifyType[1],
              &cboFaxRecipient, &cboToFaxNumber, &chkNotifyType[2], &chkNotifyType[3],
              &cboPhoneName, &cboPhoneNumber});
}

void frmSendNotificationBulk::tieReactions() {
  using Self = frmSendNotificationBulk;
  for (std::size_t i = 0; i < chkAutoNotify.size(); ++i)
    reactAt(i, chkAutoNotify[i].onClick, "chkAutoNotify_Click", &Self::chooseFamily);
  for (std::size_t i = 0; i < chkNotifyType.size(); ++i)
    reactAt(i, chkNotifyType[i].onClick, "chkNotifyType_Click", &Self::chooseChannel);
  react(cmdSelectAllAuto.onClick, "cmdSelectAllAuto_Click", &Self::selectAll);
  react(cmdChangeYear.onClick, "cmdChangeYear_Click", &Self::changeYear);
  react(cboYear.onClick, "cboYear_Click", &Self::chooseYear);
  react(cboYear.onValidate, "cboYear_Validate", &Self::refuseYear);
  react(cboYear.onKeyPress, "cboYear_KeyPress", &Self::filterKey);
  react(cmdEditNotificationTemplate.onClick, "cmdEditNotificationTemplate_Click",
        &Self::editTemplate);
  react(cmdBack.onClick, "cmdFinish_Click", &Self::goBack);
  react(cmdNext.onClick, "cmdNext_Click", &Self::goNext);
  react(cmdFinish.onClick, "cmdFinish_Click", &Self::finish);
  react(cmdCancel.onClick, "cmdCancel_Click", &Self::cancel);
  react(tmrOrganizeControls.onTimer, "tmrOrganizeControls_Timer", &Self::organize);
}

void frmSendNotificationBulk::saveNotificationsTypes() {
  autonotify::saveNotificationsTypes(client_, choice);
}

// Choosing.

void frmSendNotificationBulk::chooseFamily(Step&, std::size_t row) {
  if (!suppressesClicks_) choice[bulkRows[row].chosen] = chkAutoNotify[row].value();
}

void frmSendNotificationBulk::chooseChannel(Step&, std::size_t channel) {
  if (suppressesClicks_) return;
  choice.channels[channel] = chkNotifyType[channel].value();
  enableFields(channel);
}

/// A letter has no fields.
void frmSendNotificationBulk::enableFields(std::size_t channel) {
  using Fields = std::vector<ComboBox*>;
  const Fields email{&cboTo, &cboCc, &cboBcc}, fax{&cboToFaxNumber, &cboFaxRecipient};
  const Fields phone{&cboPhoneName, &cboPhoneNumber};
  const std::array<Fields, 4> fields{email, fax, {}, phone};
  for (ComboBox* field : fields[channel]) field->setEnabled(choice.channels[channel]);
}

void frmSendNotificationBulk::selectAll(Step&) {
  const bool isAll = cmdSelectAllAuto.caption() == selectAllCaption;
  for (CheckBox& box : chkAutoNotify) box.setValue(isAll);
  cmdSelectAllAuto.setCaption(isAll ? unselectAllCaption : selectAllCaption);
}

// Steps.

void frmSendNotificationBulk::showStep(int page) {
  const StepState& state = stepStates[static_cast<std::size_t>(page - 1)];
  cmdBack.setEnabled(state.back);
  cmdNext.setEnabled(state.next);
  cmdFinish.setEnabled(state.finish);
  fraStep[0].setVisible(state.first);
  fraStep[1].setVisible(state.second);
}

void frmSendNotificationBulk::goNext(Step&) {
  if (fraStep[0].visible()) showStep(2);
}

/// From the second page on it looks for a third one, which there is not: that is reported, and the
/// page stays.
void frmSendNotificationBulk::goBack(Step& step) {
  if (fraStep[0].visible()) return showStep(1);
  step.run([&] {
    throw PlatformError(error_number::subscriptOutOfRange, "Subscript out of range", name());
  });
}

void frmSendNotificationBulk::changeYear(Step&) {
  showStep(3);
}

// The year.

void frmSendNotificationBulk::chooseYear(Step&) {
  checkValidYear();
}

void frmSendNotificationBulk::refuseYear(Step&, bool& keepsFocus) {
  keepsFocus = !checkValidYear();
}

void frmSendNotificationBulk::filterKey(Step& step, int& key, int pressed) {
  step.assign(key, [&] { return generalUtilities().filterKeyPress(pressed); });
}

bool frmSendNotificationBulk::checkValidYear() {
  return procedure(tag("checkValidYear"), suppressesClicks_, [&](Step& step, bool& isValid) {
    if (suppressesClicks_) return;
    const std::int16_t year = yearOf(cboYear.text());
    isValid = step.holds([&] { return validation().isValidYear(year); });
    if (isValid) return setYears(year);
    step.run(showMessage, "You must enter a valid year for the source year.  Please try again",
             message_style::valueRefused);
    chooseEntry(step, cboYear, presentYearEntry);
    step.run(&Control::setFocus, cboYear);
  });
}

// Ending.

void frmSendNotificationBulk::editTemplate(Step& step) {
  const auto chosen =
      std::ranges::find_if(templateOrder, [&](TaskFamily family) { return choice[family]; });
  const Id totalNum = totalNumOf(chosen == templateOrder.end() ? GST : *chosen);
  withWindow<frmTaskAutoNotification>(step, [&](frmTaskAutoNotification& editor) {
    editor.InitializeWithTotalNumAndScheduleNum(totalNum, noId);
  });
}

void frmSendNotificationBulk::organize(Step& step) {
  tmrOrganizeControls.setEnabled(false);
  step.run([&] { styler().organizeControls(this); });
}

void frmSendNotificationBulk::cancel(Step&) {
  cancelFlag = true;
  hide();
}

/// A person's close box cancels; the window stays, to be shown again.
bool frmSendNotificationBulk::queryUnload(CloseReason reason) {
  if (reason != CloseReason::closeBox) return true;
  procedure(tag("cmdCancel_Click"), [&](Step& step) { cancel(step); });
  return false;
}

void frmSendNotificationBulk::finish(Step& step) {
  hide();
  step.run(&Form::repaint, *this);
  yieldToHost(step, 2);
  std::unique_ptr<ProgressDialog>& dialog = autoNotificationsDialog_;
  step.assign(dialog, createHostObject<ProgressDialog>);
  if (!dialog) return;
  step.run([&] { dialog->put_text("Creating automatic notifications, Please wait ..."); });
  step.run([&] { dialog->put_owner(locale().getActiveWindow()); });
  const int tasks = countAutoNotificationss(order());
  step.run([&] { dialog->put_maximum(tasks); });
  step.run([&] { dialog->put_value(0); });
  using Self = frmSendNotificationBulk;
  react(dialog->StartProgress, "autoNotificationsDialog_StartProgress", &Self::runPass);
  step.run([&] { dialog->show(); });
  dialog.reset();
}

void frmSendNotificationBulk::runPass(Step& step) {
  scheduleAutoNotifications(order(), *autoNotificationsDialog_);
  step.run([&] { autoNotificationsDialog_->close(); });
}

BulkOrder frmSendNotificationBulk::order() const {
  BulkOrder order{client_, year_, choice, {}, {}, {}};
  order.email = {cboTo.text(), cboCc.text(), cboBcc.text(), {}, {}};
  order.fax.to = cboFaxRecipient.text();
  order.fax.receiverFax = cboToFaxNumber.text();
  order.phone.to = cboPhoneName.text();
  order.phone.number = cboPhoneNumber.text();
  return order;
}

}  // namespace autonotify
