#pragma once

#include <functional>
#include <utility>

#include "contract/PlatformServices.h"

namespace autonotify::host {

/// A host without a screen: it shows no window but one that the program knows what to do in, and no
/// message ever waits.
class HeadlessFormHost : public FormHost {
 public:
  /// What is done in the next window, in place of a person, who hides it in the end.
  void actInNextWindow(std::function<void(Form&)> act) { act_ = std::move(act); }

  void showModal(Form& form, HostObject* owner) override {
    const auto act = std::exchange(act_, {});
    act ? act(form) : FormHost::showModal(form, owner);
  }
  void pumpMessages() override {}

 private:
  std::function<void(Form&)> act_;
};

}  // namespace autonotify::host
