#pragma once

#include <functional>
#include <utility>

#include "contract/PlatformServices.h"

namespace autonotify::host {

/// A host without a screen: it shows no window but one that the program knows what to do in, and no
/// message ever waits.
class HeadlessFormHost : public FormHost {
 public:
  using Act = std::function<void(Form&)>;

  void showModal(Form& form, HostObject* owner) override {
    const auto act = std::exchange(act_, {});
    act ? act(form) : FormHost::showModal(form, owner);
  }
  void pumpMessages() override {}

 private:
  friend class NextWindow;
  Act act_;
};

/// What is done in the next window that comes up while this lives, in place of a person, who hides
/// it in the end.
class NextWindow {
 public:
  NextWindow(HeadlessFormHost& forms, HeadlessFormHost::Act act) : forms_(forms) {
    forms_.act_ = std::move(act);
  }
  ~NextWindow() { forms_.act_ = nullptr; }
  NextWindow(const NextWindow&) = delete;
  NextWindow& operator=(const NextWindow&) = delete;

 private:
  HeadlessFormHost& forms_;
};

}  // namespace autonotify::host
