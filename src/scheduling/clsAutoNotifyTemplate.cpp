#include "scheduling/clsAutoNotifyTemplate.h"

#include "scheduling/schedule_kinds.h"

namespace autonotify {
namespace {

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

std::string rowSql(Id scheduleTypeID) {
  return statementFor(
      "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.ScheduleTypeID=",
      scheduleTypeID);
}

/// A 16-bit column of the current row, or `fallback` when it is empty or a statement is skipped.
std::int16_t readShort(Step& step, RecordsetHandle handle, const char* column,
                       std::int16_t fallback) {
  const Value value = readField(step, handle, column);
  if (isEmpty(step, value)) return fallback;
  return step.value(fallback, [&] { return toInteger16(value); });
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
  return procedure("Morvane.exe-clsAutoNotifyTemplate-openWithTotalNumAndScheduleNum", false,
                   [&](Step& step, bool& result) {
                     columns_.totalNum = totalNum;
                     columns_.ScheduleNum = scheduleNum;
                     exactOnly_ = exactOnly;
                     if (!isDatabaseOpen(step)) return;
                     const std::string sql = getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(
                         totalNum, scheduleNum, exactOnly_);
                     Id found = noId;
                     withFirstRow(step, sql, keysetRead, [&](RecordsetHandle handle) {
                       found = readId(step, handle, "ScheduleTypeID");
                     });
                     if (found >= 0) result = openExistingScheduleType(found);
                   });
}

bool clsAutoNotifyTemplate::openExistingScheduleType(Id scheduleTypeID) {
  return procedure("Morvane.exe-clsAutoNotifyTemplate-openExistingScheduleType", true,
                   [&](Step& step, bool&) {
                     resetAllValues();
                     columns_.scheduleTypeID = scheduleTypeID;
                     if (!isDatabaseOpen(step)) return;
                     withFirstRow(step, rowSql(scheduleTypeID), keysetUpdate,
                                  [&](RecordsetHandle handle) { readColumns(step, handle); });
                   });
}

bool clsAutoNotifyTemplate::findAndOpenScheduleTypeByCustomTaskSchemeIDNum(Id schemeID) {
  return procedure(
      "Morvane.exe-clsAutoNotifyTemplate-findAndOpenScheduleTypeByCustomTaskSchemeIDNum", false,
      [&](Step& step, bool& result) {
        if (!isDatabaseOpen(step)) return;
        const char* const statement =
            "SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.CustomTaskSchemeIDNum "
            "FROM ScheduleTypes WHERE ScheduleTypes.CustomTaskSchemeIDNum=";
        withRow(step, statement, schemeID, keysetRead, [&](RecordsetHandle handle) {
          result = openExistingScheduleType(readId(step, handle, "ScheduleTypeID"));
        });
      });
}

Id clsAutoNotifyTemplate::saveScheduleTypeInfo() {
  procedure("Morvane.exe-clsAutoNotifyTemplate-saveScheduleTypeInfo", [&](Step& step) {
    isSavedFlag = true;
    isDirtyFlag = false;
    if (!isDatabaseOpen(step)) return;
    const bool isNew = columns_.scheduleTypeID < 0;
    if (isNew) addScheduleType(step);
    RecordsetHandle handle = openRow(step);
    if (!isNew && step.value(false, [&] { return !database().hasRecords(handle); })) {
      step.run([&] { database().closeRecordset(handle); });
      addScheduleType(step);
      handle = openRow(step);
    }
    if (step.value(false, [&] { return database().hasRecords(handle); })) {
      writeColumns(step, handle);
    }
    step.run([&] { database().closeRecordset(handle); });
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
  return procedure("Morvane.exe-clsAutoNotifyTemplate-verifyNotificationPeriod", false,
                   [&](Step& step, bool& result) {
                     result = days >= -longestPeriod && days <= longestPeriod;
                     if (result || !notificationDatePeriodError) return;
                     step.run([&] {
                       notificationDatePeriodError("You must enter a number between -365 and 365");
                     });
                   });
}

std::string clsAutoNotifyTemplate::getDefaultNotificationComment() const {
  return defaultComment;
}

void clsAutoNotifyTemplate::restoreNotificationComment() {
  put_notificationComment(getDefaultNotificationComment());
}

/// Straight into the columns: what is read is no edit, and a period is taken as it stands.
void clsAutoNotifyTemplate::readColumns(Step& step, RecordsetHandle handle) {
  Columns& to = columns_;
  to.ScheduleTypeNum = readShort(step, handle, "ScheduleTypeNum", to.ScheduleTypeNum);
  to.customTaskSchemeIDNum =
      readId(step, handle, "CustomTaskSchemeIDNum", to.customTaskSchemeIDNum);
  to.totalNum = readId(step, handle, "TotalNum", to.totalNum);
  to.ScheduleNum = readId(step, handle, "ScheduleNum", to.ScheduleNum);
  to.notificationPeriod = readShort(step, handle, "NotificationPeriod", to.notificationPeriod);
  to.scheduleTypeName = readText(step, handle, "ScheduleTypeName");
  to.notificationComment = readText(step, handle, "NotificationComment");
  step.assign(to.locked, [&] { return toFlag(database().getFieldValue(handle, "Locked")); });
}

void clsAutoNotifyTemplate::writeColumns(Step& step, RecordsetHandle handle) {
  const auto write = [&](const char* column, const Value& value) {
    writeField(step, handle, column, [&] { return toText(value); });
  };
  write("ScheduleTypeNum", columns_.ScheduleTypeNum);
  write("CustomTaskSchemeIDNum", columns_.customTaskSchemeIDNum);
  write("TotalNum", columns_.totalNum);
  write("ScheduleNum", columns_.ScheduleNum);
  write("ScheduleTypeName", columns_.scheduleTypeName);
  write("NotificationComment", get_notificationComment());
  write("NotificationPeriod", columns_.notificationPeriod);
  write("Locked", columns_.locked);
}

RecordsetHandle clsAutoNotifyTemplate::openRow(Step& step) const {
  return step.value(noRecordset, [&] {
    return openRecordset(rowSql(columns_.scheduleTypeID), CursorMode::keyset, LockMode::updatable);
  });
}

void clsAutoNotifyTemplate::addScheduleType(Step& step) {
  addRow(step, columns_.scheduleTypeID, "ScheduleTypes", "ScheduleTypeID",
         [&](RecordsetHandle handle) {
           setField(step, handle, "TotalNum", [&] { return std::to_string(columns_.totalNum); });
         });
}

}  // namespace autonotify
