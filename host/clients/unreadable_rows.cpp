#include "host/clients/unreadable_rows.h"

#include <algorithm>

#include "host/clients/record_rows.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

constexpr std::size_t longestShown = 40;
constexpr const char* tooLarge = Words::later("%1 is out of range");

/// As a line of a message has room for it.
std::string shown(const Value& held) {
  std::string text = toText(held);
  std::ranges::replace(text, '\n', ' ');
  if (text.size() > longestShown) {
    std::size_t end = longestShown;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    text = text.substr(0, end) + "…";
  }
  return held.getIf<std::string>() ? '"' + text + '"' : text;
}

template <class T>
T readAs(T (*convert)(const Value&), const char* otherwise, const std::string& column,
         const Value& held, T fallback) {
  if (held.isNull()) return fallback;
  try {
    return convert(held);
  } catch (const PlatformError& fault) {
    const bool isTooLarge = fault.number() == error_number::overflow;
    throw UnreadableValue(fault.number(), column,
                          Words::tr(isTooLarge ? tooLarge : otherwise, {shown(held)}));
  }
}

}  // namespace

Id idOf(const std::string& column, const Value& held, Id fallback) {
  return readAs(toInteger, Words::later("%1 is no number"), column, held, fallback);
}

bool flagOf(const std::string& column, const Value& held) {
  return readAs(toFlag, Words::later("%1 is neither true nor false"), column, held, false);
}

DateTime dateOf(const std::string& column, const Value& held) {
  return readAs(toDateTime, Words::later("%1 is no date"), column, held, DateTime{});
}

}  // namespace autonotify::host
