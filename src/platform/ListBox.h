#pragma once

#include <functional>
#include <string>
#include <vector>

namespace autonotify {

/// The model of a list box: entries of a text and a number of the program's own.
class ListBox {
 public:
  struct Entry {
    std::string text;
    int itemData = 0;
  };

  void clear() {
    entries_.clear();
    newIndex_ = -1;
  }
  /// Appends an entry; its position is newIndex() until the next call.
  void addItem(std::string text) {
    entries_.push_back({std::move(text)});
    newIndex_ = static_cast<int>(entries_.size()) - 1;
  }
  /// Position of the entry added last, from 0; -1 when there is none.
  int newIndex() const { return newIndex_; }
  /// Requires: 0 <= index < entries().size().
  void setItemData(int index, int data) {
    entries_.at(static_cast<std::size_t>(index)).itemData = data;
  }
  const std::vector<Entry>& entries() const { return entries_; }

  /// Asks whoever renders the box to draw it anew.
  void refresh() {
    if (onRefresh) onRefresh();
  }
  std::function<void()> onRefresh;

 private:
  std::vector<Entry> entries_;
  int newIndex_ = -1;
};

}  // namespace autonotify
