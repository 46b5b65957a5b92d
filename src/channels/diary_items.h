#pragma once

#include <cstdint>
#include <string>

#include "contract/enumerations.h"
#include "contract/rows.h"

namespace autonotify {

/// What the kinds of diary items differ in: where they stand, and their words.
struct DiaryKind {
  CurrentDayTimerType value;
  const char* table;
  const char* key;
  /// Whether the text of an id is a number that an item may have.
  bool (*isValidId)(const std::string& id);
  /// The column of ClientNotification that names the item.
  const char* link;
  /// Begins the subject of a notification; the item's day follows.
  const char* subject;
  /// Begins the text after its greeting; the firm's name follows where `namesFirm` is set.
  const char* opening;
  bool namesFirm;
  /// The sentence on the item's length, around the minutes.
  const char* beforeMinutes;
  const char* afterMinutes;
  /// Begins the sentence that ends with the item's own subject.
  const char* about;
};

/// The row of the kind. For a kind that is none of the three all is empty, also the table's name,
/// and no id is judged.
const DiaryKind& diaryKind(std::int32_t kind);

/// The statement for all columns of one item.
std::string itemStatement(const DiaryKind& kind);

/// The subject of a notification, of an item that exists.
std::string itemSubject(Step& step, const DiaryKind& kind, Id itemId);

}  // namespace autonotify
