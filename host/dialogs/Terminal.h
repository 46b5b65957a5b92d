#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <string_view>

namespace autonotify::host {

/// Where a person without windows is met. Neither stream is owned.
struct Terminal {
  /// Null in a batch run: nobody is there to be asked.
  std::istream* in = nullptr;
  /// Null to say nothing.
  std::ostream* out = nullptr;

  bool isInteractive() const { return in != nullptr; }
  void say(std::string_view line);
  /// Asks until one of the letters or digits in `answers` is given, in any case; gives its
  /// position, or `whenGone` when the input has ended.
  std::size_t ask(std::string_view question, std::string_view answers, std::size_t whenGone);
};

/// The text with control characters other than line feed and tab shown as "?": what stands in a
/// client's record cannot drive the terminal.
std::string terminalText(std::string_view text);

}  // namespace autonotify::host
