#include "channels/modChannelNotifications.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "settings/modUserSettings.h"
#include "support/told_acts.h"

namespace autonotify::test {
namespace {

class SchedulingScripts : public Scripted<HostTest> {
 protected:
  SchedulingScripts() {
    addTemplateActs();
    acts.merge(Acts{
        {"period", act(getNotificationPeriod)},
        {"date", act(determineNotificationDate)},
        {"sibling", act(getLastUsedNotificationDate)},
        {"friday", act(adjustDateToFridayIfWeekendOrHoliday)},
        {"refresh", act(refreshNotificationDate)},
        {"add letter", act([](Id entry, DateTime due) {
           return addNewLetterNotificationFromScheduleNameAndDueDate({entry, {}, "GST", due, ""});
         })},
        {"text of an entry", act(generateClientAutoNotifyComment)},
        {"template of a kind", act(getNotificationComment)},
        {"merge", act(generateCommentFromTemplate)},
        {"merge for a task", act([](std::string text, Id entry, Id task) {
           return generateComment(text, entry, task, noId, noId);
         })},
        {"email preview", act(getShowEmailPreview)},
        {"put email preview", act(putShowEmailPreview)},
        {"preview", act(getShowMVPreview)},
        {"put preview", act(putShowMVPreview)},
        {"confirms arming", act(getAutoSendWizardConfirmation)},
        {"asks before cancelling", act(getCancelAutoNotification)}});
  }

 private:
  void begin() {
    kind_ = std::make_unique<clsAutoNotifyTemplate>();
    kind_->notificationDatePeriodError = [this](const std::string& text) { message_ = text; };
  }
  /// All that the kind tells but its comment.
  std::string toldKind() const {
    std::string all;
    const auto add = [&](const std::string& word) { all += (all.empty() ? "" : " ") + word; };
    for (const Id each : {kind_->get_scheduleTypeID(), Id{kind_->get_ScheduleTypeNum()},
                          kind_->get_customTaskSchemeIDNum(), kind_->get_totalNum(),
                          kind_->get_ScheduleNum(), Id{kind_->get_notificationPeriod()}})
      add(std::to_string(each));
    if (!kind_->get_scheduleTypeName().empty()) add(kind_->get_scheduleTypeName());
    if (kind_->get_locked()) add("locked");
    if (kind_->isSavedFlag) add("saved");
    if (kind_->isDirtyFlag) add("dirty");
    if (kind_->useUpperCaseStart) add("upper");
    return all;
  }
  void copy() {
    const auto original = std::exchange(kind_, std::make_unique<clsAutoNotifyTemplate>());
    kind_->copyConstructor(*original);
  }
  void addTemplateActs() {
    begin();
    acts.merge(Acts{
        {"new kind", act([this] { begin(); })},
        {"open", act([this](Id row) { return kind_->openExistingScheduleType(row); })},
        {"open kind", act([this](Id total, Id number, bool exactOnly) {
           return kind_->openWithTotalNumAndScheduleNum(total, number, exactOnly);
         })},
        {"open scheme", act([this](Id scheme) {
           return kind_->findAndOpenScheduleTypeByCustomTaskSchemeIDNum(scheme);
         })},
        {"kind", act([this] { return toldKind(); })},
        {"comment", act([this] { return kind_->get_notificationComment(); })},
        {"has the default comment", act([this] {
           return kind_->get_notificationComment() == kind_->getDefaultNotificationComment();
         })},
        {"raise flags", act([this] {
           kind_->useUpperCaseStart = kind_->isSavedFlag = kind_->isDirtyFlag = true;
         })},
        {"put row", act([this](Id row) { kind_->put_scheduleTypeID(row); })},
        {"put total", act([this](Id total) { kind_->put_totalNum(total); })},
        {"put locked", act([this](bool locked) { kind_->put_locked(locked); })},
        {"put period", act([this](std::int16_t days) { kind_->put_notificationPeriod(days); })},
        {"message", act([this] { return std::exchange(message_, {}); })},
        {"restore", act([this] { kind_->restoreNotificationComment(); })},
        {"reset", act([this] { kind_->resetAllValues(); })},
        {"copy", act([this] { copy(); })},
        {"save", act([this] { return kind_->saveScheduleTypeInfo(); })}});
  }

  std::unique_ptr<clsAutoNotifyTemplate> kind_;
  std::string message_;
};

constexpr const char* scripts = "scheduling_scripts.txt";

TEST_P(SchedulingScripts, GiveWhatTheyTell) {
  follow(scripts);
}
INSTANTIATE_TEST_SUITE_P(Scheduling, SchedulingScripts,
                         testing::ValuesIn(rowsOf(scripts, "scripts", 1)));

}  // namespace
}  // namespace autonotify::test
