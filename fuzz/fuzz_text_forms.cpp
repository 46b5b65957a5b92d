// Any bytes as a date, a number, a pattern and a text to search: what is read must read back, and
// finding must agree with folding first.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "platform/PlatformError.h"
#include "platform/Value.h"
#include "platform/date_time_text.h"
#include "platform/format.h"
#include "platform/text.h"

namespace {

using namespace autonotify;

void readDate(std::string_view text) {
  const auto moment = parseDateTime(text);
  if (moment) require(parseDateTime(dateTimeText(*moment)) == moment);
}

void readNumber(const std::string& text) {
  try {
    const double number = toDouble(Value(text));
    require(isNumeric(text) && toDouble(Value(toText(number))) == number);
  } catch (const PlatformError& error) {
    require(error.number() ==
            (isNumeric(text) ? error_number::overflow : error_number::typeMismatch));
  }
}

void search(std::string_view text, std::string_view sought) {
  const std::string folded = lowerCase(upperCase(text));
  if (!isValidUtf8(text) || !isValidUtf8(sought)) {
    findIgnoreCase(text, sought);
    replaceAllIgnoreCase(text, sought, "x");
    return;
  }
  require(findIgnoreCase(text, sought) == folded.find(lowerCase(upperCase(sought))));
  require(characterCount(text) == characterCount(folded));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < sizeof(double)) return 0;
  double number = 0;
  std::memcpy(&number, data, sizeof number);
  const std::string text(reinterpret_cast<const char*>(data) + sizeof number, size - sizeof number);
  readDate(text);
  readNumber(text);
  formatNumber(number, text);
  formatDateTime(DateTime::fromSerial(46142, data[0] * 300), text);
  search(text, std::string_view(text).substr(text.size() - text.size() / 4));
  return 0;
}
