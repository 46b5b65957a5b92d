#pragma once

#include <optional>
#include <span>
#include <string>

#include "contract/enumerations.h"
#include "host/desk/Desk.h"
#include "host/desk/rows/readable_rows.h"

namespace autonotify::host {

/// A kind of diary item as people call it, and where its rows are.
struct DiaryKind {
  /// "time-entry", as it is typed.
  const char* word;
  CurrentDayTimerType kind;
  WorkItem claim;
  const char* table;
  const char* key;
};

std::span<const DiaryKind> diaryKinds();
const DiaryKind& diaryKind(CurrentDayTimerType kind);

/// An appointment, a time entry or a task of the diary.
struct DiaryItem {
  CurrentDayTimerType kind = Appointments;
  Id id = noId;
  Id companyId = noId;
  Id contactId = noId;
  /// Of a task; its channels are that entry's.
  Id scheduleId = noId;
  std::string subject;
  std::optional<DateTime> day;
  std::optional<DateTime> from;
  std::optional<DateTime> to;
  int channels = 0;
};

/// Which items.
struct DiaryQuery {
  /// Unset: appointments and time entries.
  std::optional<CurrentDayTimerType> kind;
  DateTime since;
  std::optional<DateTime> until;
  std::optional<Id> company;
  std::optional<Id> contact;
};

/// The items by day and time.
ReadableRows<DiaryItem> readDiary(Desk& desk, const DiaryQuery& query);
/// Throws UnreadableRow.
std::optional<DiaryItem> findDiaryItem(Desk& desk, CurrentDayTimerType kind, Id id);

/// The company's or the contact's name; empty when it has neither.
std::string clientName(Desk& desk, const DiaryItem& item);
/// "time entry 12"
std::string subjectOf(const DiaryItem& item);
/// "09:00-09:45"; what is not known is left out.
std::string timeText(const DiaryItem& item);

}  // namespace autonotify::host
