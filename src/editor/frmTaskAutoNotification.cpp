#include "editor/frmTaskAutoNotification.h"

#include "contract/ScheduleTreeService.h"
#include "contract/windows.h"
#include "editor/frmTestComment.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_list_kinds.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/schedule_kinds.h"

namespace autonotify {
namespace {

constexpr std::array<const char*, 4> commandCaptions{
    "Save", "Test", "Reset to Default",
    "Reset All Unsent Client Notifications Of This Type To Use This Template Comment"};

constexpr const char* explanation =
    "Customize your notification templates that will be used when you notify your clients of their "
    "upcoming tasks.";
constexpr const char* lossQuestion =
    "Are you sure you want to exit without saving your notification template?";
constexpr const char* defaultQuestion =
    "Are you sure you want to reset this comment to the default comment?";

std::string carryQuestion(const std::string& kind) {
  return "Are you sure you want to reset all scheduled unsent " + kind +
         " client notifications to use the above template comment?";
}

std::string keyOf(Id scheduleTypeID) {
  return ScheduleTreeService::kindKey + std::to_string(scheduleTypeID);
}

}  // namespace

/// A click on the tree or a command is being worked on.
class frmTaskAutoNotification::Work {
 public:
  explicit Work(bool& isBusy) : isBusy_(isBusy) { isBusy_ = true; }
  ~Work() { isBusy_ = false; }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;

 private:
  bool& isBusy_;
};

frmTaskAutoNotification::frmTaskAutoNotification()
    : Window(formHost(), "frmTaskAutoNotification", "Edit Notification Templates") {
  using Self = frmTaskAutoNotification;
  react(tvwTasks.onClick, "tvwTasks_Click", &Self::clickTree);
  react(tvwTasks.onDoubleClick, "tvwTasks_DblClick", &Self::clickTree);
  react(RichTextBox.onKeyPress, "RichTextBox_KeyPress", &Self::noteKey);
  react(FieldList.onClick, "FieldList_Click", &Self::clickField);
  for (std::size_t i = 0; i < commandCaptions.size(); ++i) {
    cmdNotifyComment[i].setCaption(commandCaptions[i]);
    reactAt(i, cmdNotifyComment[i].onClick, "cmdNotifyComment_Click", &Self::clickCommand);
  }
  react(cmdClose.onClick, "cmdClose_Click", &Self::close);
  lblExplanation.setCaption(explanation);
  lblChanged.setVisible(false);
}

frmTaskAutoNotification::~frmTaskAutoNotification() = default;

// Opening.

void frmTaskAutoNotification::Initialize(Id scheduleTypeID) {
  procedure(tag("Initialize"), [&](Step& step) {
    createTemplate();
    show(step, scheduleTypeID >= 0 && template_->openExistingScheduleType(scheduleTypeID));
  });
}

void frmTaskAutoNotification::InitializeWithTotalNumAndScheduleNum(Id totalNum, Id scheduleNum) {
  procedure(tag("InitializeWithTotalNumAndScheduleNum"), [&](Step& step) {
    createTemplate();
    show(step, template_->openWithTotalNumAndScheduleNum(totalNum, scheduleNum, false));
  });
}

void frmTaskAutoNotification::createTemplate() {
  setChanged(false);
  template_ = std::make_unique<clsAutoNotifyTemplate>();
  react(template_->startResetNotificationComments, "AutoNotifyClass_startResetNotificationComments",
        &frmTaskAutoNotification::startReset);
  template_->incResetNotificationComments = [this] { countReset(); };
}

void frmTaskAutoNotification::show(Step& step, bool isOpen) {
  if (!isOpen) {
    template_->openWithTotalNumAndScheduleNum(fallbackTotalNum, fallbackScheduleNum, false);
  }
  scheduleTypeID_ = template_->get_scheduleTypeID();
  createMergeFields();
  setupForm();
  step.run(autonotify::showModal, *this);
}

void frmTaskAutoNotification::createMergeFields() {
  mergeFields_ = std::make_unique<clsInsertFieldsInRTB>();
  mergeFields_->listBox = &FieldList;
  mergeFields_->RTB = &RichTextBox;
  mergeFields_->put_MergeFieldListUse(field_list_use::merging);
  mergeFields_->ListType = field_list_type::task;
  react(mergeFields_->testErrorComment, "mergeFields_testErrorComment",
        &frmTaskAutoNotification::showFault);
  bool noListBox = false;
  bool clearListBox = true;
  mergeFields_->createDefaultFieldListStructure(noListBox, clearListBox);
}

void frmTaskAutoNotification::setupForm() {
  procedure(tag("setupForm"), [&](Step& step) {
    fillTree(step);
    selectKindOnShow(step);
    openKindOnShow();
  });
}

void frmTaskAutoNotification::fillTree(Step& step) {
  std::unique_ptr<ScheduleTreeService> service;
  step.assign(service, createHostObject<ScheduleTreeService>);
  if (!service) return;
  step.run([&] { service->put_DatabaseReference(&database()); });
  step.run([&] { service->populateFirstScheduleTypes(tvwTasks); });
}

/// Nothing is selected for a kind that the tree does not hold.
void frmTaskAutoNotification::selectKindOnShow(Step& step) {
  step.run([&] { tvwTasks.select(tvwTasks.find(keyOf(scheduleTypeID_))); });
}

void frmTaskAutoNotification::openKindOnShow() {
  template_->resetAllValues();
  template_->openExistingScheduleType(scheduleTypeID_);
  populateScheduleTypeInformation();
}

void frmTaskAutoNotification::populateScheduleTypeInformation() {
  procedure(tag("populateScheduleTypeInformation"), [&](Step& step) {
    lblTaskName.setCaption(template_->get_scheduleTypeName());
    const std::string& stored = template_->get_notificationComment();
    const std::string text = mergeFields_->convertProvinceFields(stored);
    step.run([&] { RichTextBox.setTextRTF(text); });
    setChanged(false);
  });
}

void frmTaskAutoNotification::setChanged(bool isChanged) {
  isChanged_ = isChanged;
  lblChanged.setVisible(isChanged);
}

// What a person does.

bool frmTaskAutoNotification::isKindSelected() const {
  const TreeView::Node* node = tvwTasks.selectedNode();
  return node && node->parent >= 0;
}

/// Where the person does not get on to the other kind, the one on show stays the selected one.
void frmTaskAutoNotification::clickTree(Step& step) {
  if (isBusy_) return selectKindOnShow(step);
  const Work work(isBusy_);
  if (!isKindSelected()) return;
  if (!saveInfo()) return selectKindOnShow(step);
  const std::string& key = tvwTasks.selectedNode()->key;
  step.assign(scheduleTypeID_, [&] {
    return toInteger(Value(key.substr(std::string_view(ScheduleTreeService::kindKey).size())));
  });
  openKindOnShow();
}

void frmTaskAutoNotification::clickCommand(Step& step, std::size_t command) {
  using Self = frmTaskAutoNotification;
  constexpr Command commands[]{&Self::save, &Self::test, &Self::restoreDefault, &Self::resetUnsent};
  if (isBusy_) return;
  const Work work(isBusy_);
  if (isKindSelected()) (this->*commands[command])(step);
}

void frmTaskAutoNotification::clickField(Step&) {
  if (FieldList.listIndex() < 0) return;
  int itemData = FieldList.itemData(FieldList.listIndex());
  mergeFields_->onListClick(itemData);
  setChanged(true);
}

void frmTaskAutoNotification::noteKey(Step&, int& accepted, int keyCode) {
  accepted = keyCode;
  setChanged(true);
}

void frmTaskAutoNotification::close(Step&) {
  unload(CloseReason::closeBox);
}

/// While a command is at work the window stays: it needs the template.
bool frmTaskAutoNotification::queryUnload(CloseReason reason) {
  if (isBusy_) return false;
  if (reason != CloseReason::closeBox) return true;
  return procedure(tag("Form_QueryUnload"), !isChanged_, [&](Step& step, bool& mayGo) {
    if (mayGo) return;
    mayGo = step.holds(askQuestion, lossQuestion, message_style::inputRefused);
  });
}

void frmTaskAutoNotification::onUnload() {
  template_.reset();
  mergeFields_.reset();
}

// The commands.

/// False where the text did not reach its row: what is not saved stays changed.
bool frmTaskAutoNotification::saveInfo() {
  return procedure(tag("saveInfo"), false, [&](Step& step, bool& result) {
    step.run([&] { template_->put_notificationComment(RichTextBox.textRTF()); });
    keepId(template_->saveScheduleTypeInfo());
    if (!template_->isCommentSaved()) return;
    setChanged(false);
    result = true;
  });
}

/// Where its row had gone, the kind has another one now, which its node stands for.
void frmTaskAutoNotification::keepId(Id scheduleTypeID) {
  const int node = tvwTasks.find(keyOf(scheduleTypeID_));
  if (node >= 0) tvwTasks.setKey(node, keyOf(scheduleTypeID));
  scheduleTypeID_ = scheduleTypeID;
}

void frmTaskAutoNotification::save(Step& step) {
  if (!saveInfo()) return;
  step.run(showMessage, "The notification template was successfully saved.", message_style::notice);
}

/// The plain text is looked at as if it were rich text, in which bare marks are none: a test merges
/// whatever stands there.
bool frmTaskAutoNotification::hasFault() {
  return mergeFields_->testRTBComment(RichTextBox.text(), true, true, false);
}

void frmTaskAutoNotification::showFault(Step& step, const std::string& message) {
  step.run(showMessage, message, message_style::notice);
}

void frmTaskAutoNotification::test(Step& step) {
  if (hasFault()) return;
  mergeFields_->TemplateText = RichTextBox.text();
  mergeFields_->TestComment = true;
  mergeFields_->ConvertStrToRTF = false;
  const std::string merged = mergeFields_->parseRTBComment();
  withWindow<frmTestComment>(step, [&](frmTestComment& window) { window.Initialize(merged); });
}

void frmTaskAutoNotification::restoreDefault(Step& step) {
  if (!step.holds(askQuestion, defaultQuestion, message_style::warning)) return;
  step.run([&] { RichTextBox.setTextRTF(template_->getDefaultNotificationComment()); });
  setChanged(false);
}

void frmTaskAutoNotification::resetUnsent(Step& step) {
  if (!saveInfo() || hasFault()) return;
  const std::string question = carryQuestion(template_->get_scheduleTypeName());
  if (step.holds(askQuestion, question, message_style::warning)) verifyTableInformation();
}

// Carrying the template into what is unsent. The template tells how many rows there are and when
// one is done, and nothing at the end.

void frmTaskAutoNotification::verifyTableInformation() {
  procedure(tag("verifyTableInformation"), [&](Step& step) {
    reset_ = {};
    step.assign(reset_.dialog, createHostObject<ProgressDialog>);
    carry(step);
    if (!reset_.isDone || reset_.isCancelled) return;
    step.run(showMessage,
             "The tasks' notification comments were successfully adjusted for those notifications "
             "that have not been sent yet.",
             message_style::notice);
  });
  reset_.dialog.reset();
}

/// However it ends, the pointer is the standard one behind it.
void frmTaskAutoNotification::carry(Step& step) {
  try {
    showProgress(step);
  } catch (...) {
    step.run(setPointer, Pointer::standard);
    throw;
  }
  step.run(setPointer, Pointer::standard);
}

void frmTaskAutoNotification::showProgress(Step& step) {
  if (!reset_.dialog) {
    reset_.isDone = template_->resetNotificationComments();
    return;
  }
  ProgressDialog& dialog = *reset_.dialog;
  react(dialog.StartProgress, "resetNotificationCommentsDialog_StartProgress",
        &frmTaskAutoNotification::runReset);
  step.run([&] { dialog.put_text("Resetting notification comments, Please wait ..."); });
  step.run([&] { dialog.put_owner(locale().getActiveWindow()); });
  step.run([&] { dialog.show(); });
}

void frmTaskAutoNotification::runReset(Step& step) {
  reset_.isDone = template_->resetNotificationComments();
  step.run([&] { reset_.dialog->close(); });
}

void frmTaskAutoNotification::startReset(Step& step, std::int32_t rowCount) {
  step.run(setPointer, Pointer::busy);
  if (reset_.dialog) step.run([&] { reset_.dialog->put_maximum(rowCount); });
}

/// No procedure of its own: a person who cancels leaves the reset.
void frmTaskAutoNotification::countReset() {
  if (!reset_.dialog) return;
  reset_.isCancelled = false;
  try {
    reset_.dialog->put_value(reset_.dialog->get_value() + 1);
  } catch (const PlatformError& error) {
    reset_.isCancelled = error.number() == ProgressDialog::cancelled;
    throw;
  }
}

}  // namespace autonotify
