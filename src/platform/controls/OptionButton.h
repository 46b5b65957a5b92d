#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// One of several options: those of one window in the same container. Choosing one clears the
/// others and raises its click, also when the program does it; being cleared raises nothing.
class OptionButton : public Control {
 public:
  using Control::Control;

  bool value() const { return value_; }
  void setValue(bool chosen) {
    if (!change(value_, chosen, Aspect::value) || !chosen) return;
    clearOthers();
    raise(onClick);
  }
  bool acceptClick() override {
    setValue(true);
    return true;
  }

 private:
  void clearOthers() {
    if (!owner()) return;
    for (Control* control : owner()->controls()) {
      auto* option = dynamic_cast<OptionButton*>(control);
      if (option && option != this && option->container() == container()) option->setValue(false);
    }
  }

  bool value_ = false;
};

/// The position of the chosen option in an array of them; -1 when none is chosen.
template <class Options>
int chosenOption(const Options& options) {
  for (std::size_t i = 0; i < options.size(); ++i) {
    if (options[i].value()) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace autonotify
