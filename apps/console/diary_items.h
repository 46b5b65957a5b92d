#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include "Session.h"
#include "contract/enumerations.h"
#include "host/desk/claims.h"

namespace autonotify::console {

/// A kind of diary item as people call it.
struct DiaryWord {
  /// "time-entry", as it is typed, and "time entry", as it is told.
  const char* word;
  const char* name;
  CurrentDayTimerType kind;
  host::WorkItem claim;
  const char* table;
  const char* key;
};

std::span<const DiaryWord> diaryWords();
const DiaryWord& diaryWord(CurrentDayTimerType kind);

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

/// Which items, by day and time.
struct DiaryQuery {
  /// Unset: appointments and time entries.
  std::optional<CurrentDayTimerType> kind;
  DateTime since;
  std::optional<DateTime> until;
  std::optional<Id> company;
  std::optional<Id> contact;
};

std::vector<DiaryItem> readDiary(Session& session, const DiaryQuery& query);

/// Throws Refusal when there is no such item.
DiaryItem loadDiaryItem(Session& session, CurrentDayTimerType kind, Id id);

/// The company's or the contact's name; empty when it has neither.
std::string clientName(Session& session, const DiaryItem& item);

/// "09:00-09:45"; what is not known is left out.
std::string timeText(const DiaryItem& item);

}  // namespace autonotify::console
