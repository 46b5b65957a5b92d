#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "contract/GridColumnList.h"

namespace autonotify::host {

/// Entries item by item, each item of all entries in one block of memory: a list of hundreds costs
/// few allocations, and whoever asks all of them for one item finds it side by side. Clearing keeps
/// the blocks.
///
/// A new or cleared list has no current entry until it is moved or an entry is found; adding leaves
/// the current entry alone. A list without a current entry is at its end. Keys and items equal by
/// kind and content; of several entries with one key the first is meant. Keys that run 1, 2, 3 ...
/// are found at once, others by looking through.
class HostGridColumnList : public GridColumnList {
 public:
  void clearEntries() override;
  /// Throws PlatformError (5) for more than maxItems.
  void addEntry(const Value& key, std::span<const Value> items) override;
  int getEntryCount() override;
  bool moveFirst() override;
  /// Stays where it is at the end.
  void moveNext() override;
  bool isAtEnd() override;
  bool selectEntry(const Value& key) override;
  /// The current entry stays when nothing is found.
  int findEntry(int item, const Value& value) override;
  /// Throws PlatformError (9) for an item outside 1 to maxItems.
  Value getItem(int item) override;
  void setItem(int item, const Value& value) override;
  Value getEntryKey() override;
  /// One line for each entry behind a first line with their number: see grid_column_text.h. The
  /// current entry is no part of it.
  std::string toText() override;
  /// No entry is current afterwards. A text that toText did not make, or that was cut, leaves the
  /// list empty.
  bool fromText(const std::string& text) override;

 private:
  /// Behind all that there may be.
  static constexpr std::size_t noEntry = std::numeric_limits<std::size_t>::max();

  std::size_t currentEntry() const;
  std::vector<Value> itemsOf(std::size_t entry) const;
  /// Gives each entry so many items, if it has less.
  void widen(std::size_t width);

  std::vector<Value> keys_;
  /// Item i of entry e stands at [i - 1][e].
  std::vector<std::vector<Value>> items_;
  std::size_t width_ = 0;  // items of an entry; behind them none is in use
  std::size_t current_ = noEntry;
  bool hasRunningKeys_ = true;
};

}  // namespace autonotify::host
