#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// A field of plain text, UTF-8. Every change raises onChange.
class TextBox : public Control {
 public:
  using Control::Control;

  const std::string& text() const { return text_; }
  void setText(std::string text) {
    if (change(text_, std::move(text), Aspect::value)) raise(onChange);
  }
  bool acceptText(const std::string& text) override {
    setText(text);
    return true;
  }

 private:
  std::string text_;
};

}  // namespace autonotify
