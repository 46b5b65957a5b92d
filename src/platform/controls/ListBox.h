#pragma once

#include "platform/controls/ItemList.h"

namespace autonotify {

/// A list of entries of which one can be chosen.
class ListBox : public ItemList {
 public:
  using ItemList::ItemList;

  bool acceptMove(int index) override {
    if (index < 0 || index >= listCount()) return false;
    moveTo(index);
    return true;
  }
};

}  // namespace autonotify
