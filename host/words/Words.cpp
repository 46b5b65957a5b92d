#include "host/words/Words.h"

#include <atomic>
#include <cerrno>

namespace autonotify::host {
namespace {

std::atomic<Words::Translation> spokenThrough = nullptr;

/// In one pass, so that the values stay as they are. A place without a value stays too.
std::string filled(std::string_view text, std::initializer_list<std::string_view> values) {
  std::string result;
  while (!text.empty()) {
    const std::size_t place = text.find('%');
    result += text.substr(0, place);
    if (place == text.npos) break;
    text.remove_prefix(place);
    const std::size_t value = text.size() > 1 ? static_cast<std::size_t>(text[1] - '1') : text.npos;
    const bool isFilled = value < values.size();
    result += isFilled ? values.begin()[value] : text.substr(0, 1);
    text.remove_prefix(isFilled ? 2 : 1);
  }
  return result;
}

}  // namespace

void Words::speak(Translation translation) {
  spokenThrough = translation;
}

std::string Words::tr(const char* text, std::initializer_list<std::string_view> values) {
  const int error = errno;
  const Translation translation = spokenThrough;
  std::string said = filled(translation ? translation(text) : text, values);
  errno = error;
  return said;
}

}  // namespace autonotify::host
