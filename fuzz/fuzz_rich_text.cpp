// Any bytes as a rich text: reading must end without a fault, a text made of UTF-8 must stay UTF-8,
// what is escaped must read back, and what was read must come back equal from what is written.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "platform/rich_text.h"
#include "platform/richtext/rich_text_edit.h"
#include "platform/text.h"

namespace {

using namespace autonotify;

/// The text as a document shows it: one kind of line end, no NUL bytes.
std::string shown(std::string_view text) {
  const std::string lines = replaceAll(replaceAll(text, "\r\n", "\n"), "\r", "\n");
  return replaceAll(lines, std::string_view("\0", 1), "");
}

void checkRoundTrip(const std::string& rtf) {
  const RichText text = readRichText(rtf);
  const std::string plain = plainTextOf(rtf);
  require(isValidUtf8(plain));
  require(plainTextOf(text) == plain);
  const std::string written = writeRichText(text);
  require(readRichText(written) == text);
  require(plainTextOf(written) == plain);
}

/// What is cut in two and put together again is what it was.
void checkEdits(const std::string& rtf, std::size_t place) {
  const RichText text = readRichText(rtf);
  const std::size_t length = lengthOf(text);
  RichText head = extract(text, 0, place % (length + 1));
  append(head, extract(text, place % (length + 1), length));
  require(head == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  checkRoundTrip("{\\rtf1" + std::string(input));
  if (isRichText(input)) checkRoundTrip(std::string(input));
  if (size > 0) checkEdits("{\\rtf1" + std::string(input), data[0]);
  if (isValidUtf8(input))
    require(plainTextOf("{\\rtf1 " + escapeForRichText(input) + "}") == shown(input));
  return 0;
}
