#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "contract/rows.h"
#include "platform/Value.h"

namespace autonotify {

/// Days before the due date when nothing else is told.
inline constexpr std::int16_t defaultNotificationPeriod = 15;

/// The notification template of one kind of schedule entry: how many days before a due date a
/// client is told, and the rich text of the message. Maps one row of `ScheduleTypes`.
///
/// Open it, change it, save it; nothing locks the row against a second editor. With the database
/// closed it holds its defaults and saves nothing, without a message. Failures are settled at the
/// error dialog.
class clsAutoNotifyTemplate {
 public:
  clsAutoNotifyTemplate();
  clsAutoNotifyTemplate(const clsAutoNotifyTemplate&) = delete;
  clsAutoNotifyTemplate& operator=(const clsAutoNotifyTemplate&) = delete;

  // Properties, each a column of the same name unless told otherwise. A write makes the template
  // dirty.

  /// The key; -1 for a template without a row.
  Id get_scheduleTypeID() const { return columns_.scheduleTypeID; }
  void put_scheduleTypeID(Id value) { change(columns_.scheduleTypeID, value); }
  std::int16_t get_ScheduleTypeNum() const { return columns_.ScheduleTypeNum; }
  void put_ScheduleTypeNum(std::int16_t value) { change(columns_.ScheduleTypeNum, value); }
  Id get_customTaskSchemeIDNum() const { return columns_.customTaskSchemeIDNum; }
  void put_customTaskSchemeIDNum(Id value) { change(columns_.customTaskSchemeIDNum, value); }
  Id get_totalNum() const { return columns_.totalNum; }
  void put_totalNum(Id value) { change(columns_.totalNum, value); }
  Id get_ScheduleNum() const { return columns_.ScheduleNum; }
  void put_ScheduleNum(Id value) { change(columns_.ScheduleNum, value); }
  const std::string& get_scheduleTypeName() const { return columns_.scheduleTypeName; }
  void put_scheduleTypeName(const std::string& value) { change(columns_.scheduleTypeName, value); }
  /// RTF with merge tokens. An empty one is first filled with the default, which is no edit.
  const std::string& get_notificationComment();
  void put_notificationComment(const std::string& value) {
    change(columns_.notificationComment, value);
  }
  /// Days before the due date, negative for days after it.
  std::int16_t get_notificationPeriod() const { return columns_.notificationPeriod; }
  /// A value that verifyNotificationPeriod refuses becomes 15.
  void put_notificationPeriod(std::int16_t value);
  bool get_locked() const { return columns_.locked; }
  void put_locked(bool value) { change(columns_.locked, value); }

  /// Kept for the host; not a column, and no edit.
  bool useUpperCaseStart = false;
  /// True once saved; opening leaves it False.
  bool isSavedFlag = false;
  /// True after any edit since the template was opened or saved.
  bool isDirtyFlag = false;

  // Events.

  std::function<void(const std::string& message)> notificationDatePeriodError;
  std::function<void(std::int32_t rowCount)> startResetNotificationDates;
  /// Once for each schedule row.
  std::function<void()> incResetNotificationDates;
  std::function<void()> endResetNotificationDates;
  std::function<void(std::int32_t rowCount)> startResetNotificationComments;
  /// Once for each notification row.
  std::function<void()> incResetNotificationComments;
  /// Never raised: the listener closes its progress by count.
  std::function<void()> endResetNotificationComments;

  // Opening and saving.

  /// Back to a template without a row, not saved and not dirty. `customTaskSchemeIDNum`,
  /// `totalNum`, `ScheduleNum` and `useUpperCaseStart` stay.
  void resetAllValues();

  /// Opens the row of a kind, by the fallbacks of
  /// getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum; `exactOnly` is its `familyRow`. False
  /// when there is none.
  bool openWithTotalNumAndScheduleNum(Id totalNum, Id scheduleNum, bool exactOnly);

  /// Opens the row; a template without that row keeps its defaults under the given id. Always True.
  bool openExistingScheduleType(Id scheduleTypeID);

  /// False when no row has the scheme.
  bool findAndOpenScheduleTypeByCustomTaskSchemeIDNum(Id schemeID);

  /// Writes all columns, one by one, to the row of `scheduleTypeID`, or to a new row when there is
  /// none. Gives the id.
  Id saveScheduleTypeInfo();
  /// Whether the last save wrote the comment.
  bool isCommentSaved() const { return isCommentSaved_; }

  /// Takes over all values of `other` but `useUpperCaseStart`, flags included.
  void copyConstructor(const clsAutoNotifyTemplate& other);

  /// True from -365 to 365; raises notificationDatePeriodError otherwise.
  bool verifyNotificationPeriod(std::int32_t days);

  // Carrying a changed template into notifications that have not been sent. The host has its turn
  // after each row; nobody may change the template meanwhile.

  /// Always True. As the statement over the schedule entries does not select their due dates, each
  /// entry leads to the error dialog; nothing in the program calls this.
  bool resetNotificationDates();
  /// Composes the texts of all unsent notifications of the template's kind anew, of the whole
  /// family when `ScheduleNum` is -1. Always True.
  bool resetNotificationComments();
  /// Composes one text anew, whether it was sent or not. That of a client who is a contact only
  /// stays.
  void changeNotificationComment(Id notificationID);
  /// The text that this would write; empty where it would write none.
  std::string composeNotificationComment(Id notificationID);

  // The default comment, RTF.

  std::string getDefaultNotificationComment() const;
  /// Sets the comment to the default.
  void restoreNotificationComment();

 private:
  struct Columns {
    Id scheduleTypeID = noId;
    std::int16_t ScheduleTypeNum = -1;
    Id customTaskSchemeIDNum = 0;
    Id totalNum = 0;
    Id ScheduleNum = 0;
    std::string scheduleTypeName;
    std::string notificationComment;
    std::int16_t notificationPeriod = defaultNotificationPeriod;
    bool locked = false;
  };

  template <class T>
  void change(T& column, const T& value) {
    column = value;
    isDirtyFlag = true;
  }
  void readColumns(const Row& row);
  void writeColumns(const Row& row);
  /// To be closed by the caller.
  Row openRow(Step& step) const;
  void addScheduleType(Step& step);
  void resetDatesOfKind(Step& step);
  void resetCommentOf(const Row& notification);
  bool coversScheduleEntry(Id scheduleID) const;
  std::optional<std::string> textFor(Step& step, Id notificationID);

  Columns columns_;
  /// A missing member is looked up as the row of the family itself.
  bool exactOnly_ = false;
  bool isCommentSaved_ = false;
};

}  // namespace autonotify
