#pragma once

#include "contract/ProgressDialog.h"

namespace autonotify::host {

/// Runs the work at once. A program that has a place to show it overrides what draws.
class HostProgressDialog : public ProgressDialog {
 public:
  void put_text(const std::string& text) override { text_ = text; }
  void put_owner(HostObject*) override {}
  void put_maximum(int maximum) override { maximum_ = maximum; }
  int get_value() override { return value_; }
  void put_value(int value) override {
    value_ = value;
    if (isShown_) draw();
  }
  void show() override {
    isShown_ = true;
    draw();
    if (StartProgress) StartProgress();
    close();
  }
  void close() override {
    if (isShown_) takeAway();
    isShown_ = false;
  }

 protected:
  /// Shows what there is by now; throws PlatformError `cancelled` when the person has had enough.
  virtual void draw() {}
  virtual void takeAway() {}

  const std::string& text() const { return text_; }
  int maximum() const { return maximum_; }
  int value() const { return value_; }

 private:
  std::string text_;
  int maximum_ = 0;
  int value_ = 0;
  bool isShown_ = false;
};

}  // namespace autonotify::host
