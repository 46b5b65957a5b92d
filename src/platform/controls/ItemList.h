#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// What list boxes and combo boxes share: entries of a text and a number of the program's own, and
/// the position of the chosen one.
class ItemList : public Control {
 public:
  struct Entry {
    std::string text;
    int itemData = 0;
    bool operator==(const Entry&) const = default;
  };

  using Control::Control;

  virtual void clear() {
    entries_.clear();
    newIndex_ = -1;
    listIndex_ = -1;
    render(Aspect::list);
  }
  /// Appends an entry; its position is newIndex() until the next call.
  void addItem(std::string text, int itemData = 0) {
    entries_.push_back({std::move(text), itemData});
    newIndex_ = listCount() - 1;
    renderRows({RowChange::Kind::added, newIndex_});
  }
  /// The chosen entry stays chosen, unless it is the one that goes. Requires: 0 <= index <
  /// listCount().
  void removeItem(int index) {
    at(index);
    entries_.erase(entries_.begin() + index);
    newIndex_ = -1;
    if (index < listIndex_) {
      --listIndex_;
    } else if (index == listIndex_) {
      listIndex_ = -1;
      onMoved();
    }
    renderRows({RowChange::Kind::removed, index});
  }
  /// Takes over the entries of another list, with none chosen.
  void copyEntries(const ItemList& other) {
    clear();
    for (const Entry& entry : other.entries_) addItem(entry.text, entry.itemData);
  }

  /// Position of the entry added last, from 0; -1 when there is none.
  int newIndex() const { return newIndex_; }
  int listCount() const { return static_cast<int>(entries_.size()); }
  const std::vector<Entry>& entries() const { return entries_; }
  /// Requires, as the next three: 0 <= index < listCount().
  const std::string& list(int index) const { return at(index).text; }
  int itemData(int index) const { return at(index).itemData; }
  void setList(int index, std::string text) {
    entries_.at(static_cast<std::size_t>(index)).text = std::move(text);
    renderRows({RowChange::Kind::changed, index});
  }
  void setItemData(int index, int data) {
    entries_.at(static_cast<std::size_t>(index)).itemData = data;
  }

  /// Position of the chosen entry, -1 when none is.
  int listIndex() const { return listIndex_; }
  /// Chooses an entry, or none by -1; a change raises the click. Requires: index < listCount().
  void setListIndex(int index) {
    if (index == listIndex_) return;
    moveTo(index);
    raise(onClick);
  }
  /// A person's choice raises the click also when it is the entry chosen before.
  bool acceptChoice(int index) override {
    if (index < 0 || index >= listCount()) return false;
    moveTo(index);
    return raise(onClick);
  }

 protected:
  /// The chosen entry has changed; the click follows.
  virtual void onMoved() {}
  void setPositionAlone(int index) { listIndex_ = index; }
  void moveTo(int index) {
    if (index >= 0) at(index);
    listIndex_ = index;
    onMoved();
    render(Aspect::value);
  }

 private:
  const Entry& at(int index) const { return entries_.at(static_cast<std::size_t>(index)); }

  std::vector<Entry> entries_;
  int newIndex_ = -1;
  int listIndex_ = -1;
};

}  // namespace autonotify
