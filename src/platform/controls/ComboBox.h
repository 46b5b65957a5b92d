#pragma once

#include "platform/controls/ItemList.h"

namespace autonotify {

/// A text with a list to choose it from. Choosing an entry puts its text into the field and raises
/// the click; a text typed or set by the program raises onChange and leaves no entry chosen, except
/// the chosen one's own text.
class ComboBox : public ItemList {
 public:
  using ItemList::ItemList;

  const std::string& text() const { return text_; }
  void setText(std::string text) {
    if (text == text_) return;
    setPositionAlone(-1);
    change(text_, std::move(text), Aspect::value);
    raise(onChange);
  }
  /// True, as at first, when other texts than the entries' can be typed.
  bool isEditable() const { return isEditable_; }
  void setEditable(bool editable) { change(isEditable_, editable, Aspect::state); }

  /// Empties the list and the field.
  void clear() override {
    text_.clear();
    ItemList::clear();
  }
  bool acceptText(const std::string& text) override {
    if (isEditable_) setText(text);
    return isEditable_;
  }

 protected:
  void onMoved() override { text_ = listIndex() < 0 ? std::string{} : list(listIndex()); }

 private:
  std::string text_;
  bool isEditable_ = true;
};

}  // namespace autonotify
