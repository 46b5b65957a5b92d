#pragma once

#include <unistd.h>

#include <iostream>
#include <string>

namespace autonotify::console {

/// One line on a terminal, written over and over and taken away at the end; nothing elsewhere.
class ProgressLine {
 public:
  ProgressLine() = default;
  ~ProgressLine() {
    if (isShown_) std::cerr << takeAway << std::flush;
  }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void show(const std::string& text) {
    if (!isTerminal_) return;
    std::cerr << takeAway << text << std::flush;
    isShown_ = true;
  }

 private:
  static constexpr const char* takeAway = "\r\033[K";

  bool isTerminal_ = isatty(STDERR_FILENO) != 0;
  bool isShown_ = false;
};

}  // namespace autonotify::console
