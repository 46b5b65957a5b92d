#include "scheduling/clsAutoNotifyTemplate.h"

#include "contract/tags.h"
#include "scheduling/schedule_kinds.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotifyTemplate", name>;

constexpr std::int32_t longestPeriod = 365;

const char* const defaultComment =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\r\n"
    "\\viewkind4\\uc1\\pard\\f0\\fs20 Hi \\'abContact Display Name\\'bb,\r\n"
    "\\par\r\n"
    "\\par Your \\'abTask Name\\'bb is due on \\'ab(Task Due Date, dddd, mmmm d yyyy)\\'bb.\r\n"
    "\\par\r\n"
    "\\par Please arrange to submit to us all paper work that we need to allow us to complete the "
    "return.  The following is a list of what we need from you:\r\n"
    "\\par\r\n"
    "\\par \\'abClient Documents & Instructions\\'bb\r\n"
    "\\par\r\n"
    "\\par This represents all paperwork in the period of \\'abPeriod Description\\'bb.\r\n"
    "\\par\r\n"
    "\\par Please submit to us all the required documents we need by "
    "\\'ab(Task Client Info Deadline Date, mmmm d yyyy)\\'bb as per our agreement and to make sure "
    "we can get your return completed in a timely manner.\r\n"
    "\\par\r\n"
    "\\par You can call our office if you need any assistance or have any questions.\r\n"
    "\\par\r\n"
    "}";

constexpr const char* kindById =
    "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.ScheduleTypeID=";
constexpr const char* kindByScheme =
    "SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.CustomTaskSchemeIDNum "
    "FROM ScheduleTypes WHERE ScheduleTypes.CustomTaskSchemeIDNum=";

Id findKind(Step& step, const std::string& sql) {
  const Rows kind(step, sql, keysetRead);
  return kind ? kind.id("ScheduleTypeID") : noId;
}

/// A 16-bit column, or `fallback` when it is empty or a statement is skipped.
std::int16_t readShort(const Row& row, const char* column, std::int16_t fallback) {
  const Value value = row.value(column);
  if (isEmpty(row.step(), value)) return fallback;
  return row.step().value(fallback, toInteger16, value);
}

}  // namespace

clsAutoNotifyTemplate::clsAutoNotifyTemplate() {
  resetAllValues();
}

const std::string& clsAutoNotifyTemplate::get_notificationComment() {
  if (columns_.notificationComment.empty()) {
    columns_.notificationComment = getDefaultNotificationComment();
  }
  return columns_.notificationComment;
}

void clsAutoNotifyTemplate::put_notificationPeriod(std::int16_t value) {
  change(columns_.notificationPeriod,
         verifyNotificationPeriod(value) ? value : defaultNotificationPeriod);
}

void clsAutoNotifyTemplate::resetAllValues() {
  Columns fresh;
  fresh.customTaskSchemeIDNum = columns_.customTaskSchemeIDNum;
  fresh.totalNum = columns_.totalNum;
  fresh.ScheduleNum = columns_.ScheduleNum;
  columns_ = fresh;
  isSavedFlag = false;
  isDirtyFlag = false;
  exactOnly_ = false;
}

bool clsAutoNotifyTemplate::openWithTotalNumAndScheduleNum(Id totalNum, Id scheduleNum,
                                                           bool exactOnly) {
  return procedure(tagOf<"openWithTotalNumAndScheduleNum">, false, [&](Step& step, bool& result) {
    columns_.totalNum = totalNum;
    columns_.ScheduleNum = scheduleNum;
    exactOnly_ = exactOnly;
    if (!isDatabaseOpen(step)) return;
    const std::string sql =
        getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(totalNum, scheduleNum, exactOnly_);
    const Id found = findKind(step, sql);
    if (found >= 0) result = openExistingScheduleType(found);
  });
}

bool clsAutoNotifyTemplate::openExistingScheduleType(Id scheduleTypeID) {
  return procedure(tagOf<"openExistingScheduleType">, true, [&](Step& step, bool&) {
    resetAllValues();
    columns_.scheduleTypeID = scheduleTypeID;
    if (!isDatabaseOpen(step)) return;
    const Rows kind(step, statementFor(kindById, scheduleTypeID), keysetUpdate);
    if (kind) readColumns(kind);
  });
}

bool clsAutoNotifyTemplate::findAndOpenScheduleTypeByCustomTaskSchemeIDNum(Id schemeID) {
  const auto open = [&](Step& step, bool& result) {
    if (!isDatabaseOpen(step)) return;
    const Rows kind(step, kindByScheme, schemeID, keysetRead);
    if (kind) result = openExistingScheduleType(kind.id("ScheduleTypeID"));
  };
  return procedure(tagOf<"findAndOpenScheduleTypeByCustomTaskSchemeIDNum">, false, open);
}

Id clsAutoNotifyTemplate::saveScheduleTypeInfo() {
  procedure(tagOf<"saveScheduleTypeInfo">, [&](Step& step) {
    isSavedFlag = true;
    isDirtyFlag = false;
    isCommentSaved_ = false;
    if (!isDatabaseOpen(step)) return;
    const bool isNew = columns_.scheduleTypeID < 0;
    if (isNew) addScheduleType(step);
    Row row = openRow(step);
    if (!isNew && !row.exists(true)) {
      row.close();
      addScheduleType(step);
      row = openRow(step);
    }
    if (row.exists()) writeColumns(row);
    row.close();
  });
  return columns_.scheduleTypeID;
}

void clsAutoNotifyTemplate::copyConstructor(const clsAutoNotifyTemplate& other) {
  resetAllValues();
  isSavedFlag = other.isSavedFlag;
  isDirtyFlag = other.isDirtyFlag;
  columns_ = other.columns_;
}

bool clsAutoNotifyTemplate::verifyNotificationPeriod(std::int32_t days) {
  return procedure(tagOf<"verifyNotificationPeriod">, false, [&](Step& step, bool& result) {
    result = days >= -longestPeriod && days <= longestPeriod;
    if (result || !notificationDatePeriodError) return;
    step.run(notificationDatePeriodError, "You must enter a number between -365 and 365");
  });
}

std::string clsAutoNotifyTemplate::getDefaultNotificationComment() const {
  return defaultComment;
}

void clsAutoNotifyTemplate::restoreNotificationComment() {
  put_notificationComment(getDefaultNotificationComment());
}

/// Straight into the columns: what is read is no edit, and a period is taken as it stands.
void clsAutoNotifyTemplate::readColumns(const Row& row) {
  Columns& to = columns_;
  to.ScheduleTypeNum = readShort(row, "ScheduleTypeNum", to.ScheduleTypeNum);
  to.customTaskSchemeIDNum = row.id("CustomTaskSchemeIDNum", to.customTaskSchemeIDNum);
  to.totalNum = row.id("TotalNum", to.totalNum);
  to.ScheduleNum = row.id("ScheduleNum", to.ScheduleNum);
  to.notificationPeriod = readShort(row, "NotificationPeriod", to.notificationPeriod);
  to.scheduleTypeName = row.text("ScheduleTypeName");
  to.notificationComment = row.text("NotificationComment");
  row.read(to.locked, "Locked", toFlag);
}

void clsAutoNotifyTemplate::writeColumns(const Row& row) {
  row.write("ScheduleTypeNum", columns_.ScheduleTypeNum);
  row.write("CustomTaskSchemeIDNum", columns_.customTaskSchemeIDNum);
  row.write("TotalNum", columns_.totalNum);
  row.write("ScheduleNum", columns_.ScheduleNum);
  row.write("ScheduleTypeName", columns_.scheduleTypeName);
  row.step().assign(isCommentSaved_, [&] {
    updateField(row.handle(), "NotificationComment", get_notificationComment());
    return true;
  });
  row.write("NotificationPeriod", columns_.notificationPeriod);
  row.write("Locked", columns_.locked ? "True" : "0");
}

Row clsAutoNotifyTemplate::openRow(Step& step) const {
  const std::string sql = statementFor(kindById, columns_.scheduleTypeID);
  return {step, step.value(noRecordset, openRecordset, sql, keysetUpdate)};
}

void clsAutoNotifyTemplate::addScheduleType(Step& step) {
  NewRow row(step, "ScheduleTypes");
  row.set("TotalNum", columns_.totalNum);
  row.save(columns_.scheduleTypeID, "ScheduleTypeID");
}

}  // namespace autonotify
