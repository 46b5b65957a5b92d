#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// Pages of which one is in front. The controls of a page name it with setContainer(tabs, page).
/// A change of page raises the click, the program's too. A page without a caption is not offered.
class TabControl : public Control {
 public:
  using Control::Control;

  const std::vector<std::string>& pages() const { return pages_; }
  void setPages(std::vector<std::string> captions) {
    change(pages_, std::move(captions), Aspect::list);
  }
  /// The page in front, from 0.
  int tab() const { return tab_; }
  void setTab(int page) {
    if (change(tab_, page, Aspect::value)) raise(onClick);
  }
  bool showsInside(int page) const override { return isShown() && page == tab_; }
  bool acceptChoice(int page) override {
    if (page < 0 || page >= static_cast<int>(pages_.size())) return false;
    if (pages_[static_cast<std::size_t>(page)].empty()) return false;
    setTab(page);
    return true;
  }

 private:
  std::vector<std::string> pages_;
  int tab_ = 0;
};

}  // namespace autonotify
