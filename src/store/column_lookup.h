#pragma once

#include <array>
#include <string>
#include <string_view>

#include "contract/rows.h"

// The one pattern of all lookups and validators of the notification store.

namespace autonotify {

/// A statement that wants an id behind it, and the column to read from its first row.
struct ColumnSource {
  std::string_view statement = {};
  std::string_view column = {};
};

/// A lookup procedure: where it reads, and where it goes on when there is no row; the second source
/// may be absent.
struct ColumnLookup {
  std::string_view tag;
  ColumnSource first;
  ColumnSource second = {};
};

/// The whole row of a notification.
inline constexpr const char* notificationById =
    "SELECT ClientNotification.* FROM ClientNotification WHERE ClientNotificationID=";

/// The column of the first source that has a row. Null when neither has one, for an id below 0, and
/// for a NULL.
Value readColumn(Step& step, const ColumnSource& first, const ColumnSource& second, Id id);

/// The whole procedure: the column as an id, or -1.
Id lookUpId(const ColumnLookup& lookup, Id id);
/// The whole procedure: the column as a text, or the empty text.
std::string lookUpText(const ColumnLookup& lookup, Id id);
/// The whole procedure: the column as a date, or the zero date.
DateTime lookUpDate(const ColumnLookup& lookup, Id id);

/// The kinds of items that a notification may be linked to, each with where it is read.
template <class Source>
using ItemTable = std::array<Source, 4>;

/// An item that a notification is linked to: false when it is linked to none.
template <class Source>
struct LinkedItem {
  const Source* source = nullptr;
  Id id = noId;

  explicit operator bool() const { return source != nullptr; }
};

/// The first item that is linked, an id not below 0, in the order schedule entry, task,
/// appointment, time entry.
template <class Source>
LinkedItem<Source> firstItem(const ItemTable<Source>& table, const ItemTable<Id>& ids) {
  for (std::size_t i = 0; i < ids.size(); ++i) {
    if (ids[i] >= 0) return {&table[i], ids[i]};
  }
  return {};
}

/// The whole procedure: True when the text is a number that is above 0 as an integer.
bool isPositiveIdText(std::string_view tag, const std::string& text);

}  // namespace autonotify
