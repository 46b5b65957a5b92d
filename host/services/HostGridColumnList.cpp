#include "host/services/HostGridColumnList.h"

#include <algorithm>
#include <utility>

#include "host/services/grid_column_text.h"
#include "platform/PlatformError.h"

namespace autonotify::host {
namespace {

[[noreturn]] void failOutOfRange() {
  throw PlatformError(error_number::subscriptOutOfRange, "Subscript out of range",
                      GridColumnList::className);
}

/// Position of an item within its entry.
std::size_t columnOf(int item) {
  if (item < 1 || item > GridColumnList::maxItems) failOutOfRange();
  return static_cast<std::size_t>(item) - 1;
}

/// The key of the entry at `position` in a list whose keys run from 1.
Value runningKey(std::size_t position) {
  return static_cast<std::int64_t>(position) + 1;
}

}  // namespace

void HostGridColumnList::clearEntries() {
  keys_.clear();
  for (std::vector<Value>& item : items_) item.clear();
  width_ = 0;
  current_ = noEntry;
  hasRunningKeys_ = true;
}

void HostGridColumnList::addEntry(const Value& key, std::span<const Value> items) {
  if (items.size() > maxItems) {
    throw PlatformError(error_number::invalidProcedureCall, "Too many items", className);
  }
  widen(items.size());
  hasRunningKeys_ = hasRunningKeys_ && key == runningKey(keys_.size());
  // The key last: where memory runs out there is no entry yet.
  for (std::size_t i = 0; i < width_; ++i) items_[i].resize(keys_.size() + 1);
  for (std::size_t i = 0; i < width_; ++i) items_[i].back() = i < items.size() ? items[i] : Value();
  keys_.push_back(key);
}

int HostGridColumnList::getEntryCount() {
  return static_cast<int>(keys_.size());
}

bool HostGridColumnList::moveFirst() {
  current_ = 0;
  return !keys_.empty();
}

void HostGridColumnList::moveNext() {
  if (current_ < keys_.size()) ++current_;
}

bool HostGridColumnList::isAtEnd() {
  return current_ >= keys_.size();
}

bool HostGridColumnList::selectEntry(const Value& key) {
  std::size_t position = keys_.size();
  if (hasRunningKeys_) {
    const auto* number = key.getIf<std::int64_t>();
    if (number && *number >= 1) position = static_cast<std::size_t>(*number) - 1;
  } else {
    position = static_cast<std::size_t>(std::find(keys_.begin(), keys_.end(), key) - keys_.begin());
  }
  if (position >= keys_.size()) return false;
  current_ = position;
  return true;
}

int HostGridColumnList::findEntry(int item, const Value& value) {
  const std::size_t column = columnOf(item);
  for (std::size_t entry = 0; entry < keys_.size(); ++entry) {
    if (column < width_ ? items_[column][entry] == value : value.isNull()) {
      current_ = entry;
      return static_cast<int>(entry);
    }
  }
  return -1;
}

Value HostGridColumnList::getItem(int item) {
  const std::size_t column = columnOf(item);
  const std::size_t entry = currentEntry();
  return column < width_ ? items_[column][entry] : Value();
}

void HostGridColumnList::setItem(int item, const Value& value) {
  const std::size_t column = columnOf(item);
  const std::size_t entry = currentEntry();
  widen(column + 1);
  items_[column][entry] = value;
}

Value HostGridColumnList::getEntryKey() {
  return keys_[currentEntry()];
}

std::string HostGridColumnList::toText() {
  std::vector<GridColumnEntry> entries;
  for (std::size_t entry = 0; entry < keys_.size(); ++entry)
    entries.push_back({keys_[entry], itemsOf(entry)});
  return gridColumnText(entries);
}

bool HostGridColumnList::fromText(const std::string& text) {
  clearEntries();
  const auto entries = parseGridColumnText(text);
  if (!entries) return false;
  for (const GridColumnEntry& entry : *entries) addEntry(entry.key, entry.items);
  return true;
}

std::size_t HostGridColumnList::currentEntry() const {
  if (current_ >= keys_.size()) failOutOfRange();
  return current_;
}

std::vector<Value> HostGridColumnList::itemsOf(std::size_t entry) const {
  std::vector<Value> items;
  for (std::size_t i = 0; i < width_; ++i) items.push_back(items_[i][entry]);
  return items;
}

void HostGridColumnList::widen(std::size_t width) {
  if (items_.size() < width) items_.resize(width);
  for (; width_ < width; ++width_) items_[width_].resize(keys_.size());
}

}  // namespace autonotify::host
