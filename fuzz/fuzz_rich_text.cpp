// Any bytes as a rich text: reading must end without a fault, a text made of UTF-8 must stay UTF-8,
// and what is escaped must read back.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/rich_text.h"
#include "platform/text.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

/// The text as a document shows it: one kind of line end, no NUL bytes.
std::string shown(std::string_view text) {
  using namespace autonotify;
  const std::string lines = replaceAll(replaceAll(text, "\r\n", "\n"), "\r", "\n");
  return replaceAll(lines, std::string_view("\0", 1), "");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace autonotify;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::string text = plainTextOf("{\\rtf1" + std::string(input));
  require(isValidUtf8(text));
  plainTextOf(input);
  if (isValidUtf8(input))
    require(plainTextOf("{\\rtf1 " + escapeForRichText(input) + "}") == shown(input));
  return 0;
}
