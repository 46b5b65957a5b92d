#pragma once

#include <memory>

#include "ProgressLine.h"
#include "host/services/HostProgressDialog.h"

namespace autonotify::console {

/// "Creating automatic notifications, Please wait ... [####      ] 12 of 30" on a terminal, nothing
/// elsewhere.
class TerminalProgress : public host::HostProgressDialog {
 protected:
  void draw() override {
    if (maximum() < 1) return;
    const auto done = static_cast<std::size_t>(width * value() / maximum());
    std::string bar(width, ' ');
    bar.replace(0, done, done, '#');
    line_->show(text() + " [" + bar + "] " + std::to_string(value()) + " of " +
                std::to_string(maximum()));
  }
  void takeAway() override { line_.reset(); }

 private:
  static constexpr int width = 20;
  std::unique_ptr<ProgressLine> line_ = std::make_unique<ProgressLine>();
};

}  // namespace autonotify::console
