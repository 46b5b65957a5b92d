#pragma once

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "host/words/Words.h"
#include "platform/PlatformError.h"
#include "platform/Value.h"

namespace autonotify::host {

/// A column holds what cannot be read as what belongs there.
class UnreadableValue : public PlatformError {
 public:
  /// `fault` says what it holds: "99999999999 is out of range".
  UnreadableValue(int number, std::string column, std::string fault)
      : PlatformError(number, Words::tr("%1 cannot be read: %2", {column, fault})),
        column_(std::move(column)),
        fault_(std::move(fault)) {}

  const std::string& column() const noexcept { return column_; }
  const std::string& fault() const noexcept { return fault_; }

 private:
  std::string column_;
  std::string fault_;
};

/// A row that cannot be read for one of its values. The description is for people.
class UnreadableRow : public PlatformError {
 public:
  /// `row` names the row by its table and key: "Schedule 12".
  UnreadableRow(std::string row, const UnreadableValue& value)
      : PlatformError(value.number(), Words::tr("%1 cannot be read until its %2 is mended: %3",
                                                {row, value.column(), value.fault()})),
        row_(std::move(row)),
        column_(value.column()) {}

  const std::string& row() const noexcept { return row_; }
  const std::string& column() const noexcept { return column_; }

 private:
  std::string row_;
  std::string column_;
};

/// The rows that were passed over because they cannot be read, each once.
class UnreadableRows {
 public:
  bool empty() const { return rows_.empty(); }
  std::size_t size() const { return rows_.size(); }
  auto begin() const { return rows_.begin(); }
  auto end() const { return rows_.end(); }

  /// Runs `read`; when it meets a row that cannot be read it ends there, and the row is named.
  template <class Read>
  void orName(Read&& read) {
    try {
      read();
    } catch (const UnreadableRow& row) {
      name(row);
    }
  }
  void name(const UnreadableRow& row) {
    if (known_.insert(row.what()).second) rows_.push_back(row);
  }
  void name(const UnreadableRows& others) {
    for (const UnreadableRow& row : others) name(row);
  }

 private:
  std::vector<UnreadableRow> rows_;
  std::unordered_set<std::string> known_;
};

/// The value of the column as a number; `fallback` for NULL. Throws UnreadableValue.
Id idOf(const std::string& column, const Value& held, Id fallback = noId);
/// The same as a flag; False for NULL.
bool flagOf(const std::string& column, const Value& held);
/// The same as a date; the zero date for NULL.
DateTime dateOf(const std::string& column, const Value& held);

}  // namespace autonotify::host
