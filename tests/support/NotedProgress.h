#pragma once

#include <string>

#include "contract/ProgressDialog.h"

namespace autonotify::test {

/// A dialog that notes what it shows: "text of 2: 1 2 closed".
class NotedProgress : public ProgressDialog {
 public:
  struct Notes {
    std::string shown;
    /// The person cancels once, when this value is to be shown; 0 for never, -1 at the end.
    int cancelAt = 0;
  };
  explicit NotedProgress(Notes& notes) : notes_(notes) {}

  void put_text(const std::string& text) override { notes_.shown += text; }
  void put_owner(HostObject*) override {}
  void put_maximum(int maximum) override { notes_.shown += " of " + std::to_string(maximum) + ":"; }
  int get_value() override { return value_; }
  void put_value(int value) override {
    if (notes_.cancelAt > 0 && value >= notes_.cancelAt) cancel();
    notes_.shown += " " + std::to_string(value);
    value_ = value;
  }
  void show() override {
    StartProgress();
    if (notes_.cancelAt < 0) cancel();
  }
  void close() override { notes_.shown += " closed"; }

 private:
  void cancel() {
    notes_.cancelAt = 0;
    throw PlatformError(cancelled, "Cancelled");
  }

  Notes& notes_;
  int value_ = 0;
};

}  // namespace autonotify::test
