#include "host/dialogs/Terminal.h"

#include <algorithm>

#include "platform/text.h"

namespace autonotify::host {
namespace {

/// A byte that no terminal takes for an order, whatever stands before it.
bool isHarmless(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= 0x20 && code != 0x7F && code != 0x9B;
}

}  // namespace

void Terminal::say(std::string_view line) {
  if (out) *out << terminalText(line) << std::endl;
}

std::size_t Terminal::ask(std::string_view question, std::string_view answers,
                          std::size_t whenGone) {
  std::string line;
  for (;;) {
    if (out) *out << terminalText(question) << ' ' << std::flush;
    if (!in || !std::getline(*in, line)) return whenGone;
    const std::string given = lowerCase(line.substr(0, line.find_last_not_of(" \t\r") + 1));
    const std::size_t position = given.size() == 1 ? lowerCase(answers).find(given) : given.npos;
    if (position != given.npos) return position;
  }
}

std::string terminalText(std::string_view text) {
  if (std::ranges::all_of(text, isHarmless)) return std::string(text);
  std::string shown;
  for (const char byte : text) {
    const auto code = static_cast<unsigned char>(byte);
    if (byte == '\r') continue;
    shown += (code < 0x20 && byte != '\n' && byte != '\t') || code == 0x7F ? '?' : byte;
  }
  return replaceAll(shown, "\xC2\x9B", "?");
}

}  // namespace autonotify::host
