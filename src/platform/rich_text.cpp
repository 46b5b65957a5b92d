#include "platform/rich_text.h"

#include <utility>

#include "platform/richtext/RtfParser.h"

namespace autonotify {
namespace {

/// Keeps what a reader of the document would see, without its formats.
class PlainTextContent final : public RtfContent {
 public:
  /// Half the size of a letter is words that no reader sees.
  explicit PlainTextContent(std::size_t rtfSize) { text_.reserve(rtfSize / 2); }

  void onText(std::string_view utf8, const RtfFormat&) override { text_ += utf8; }
  void onParagraphEnd(const RtfFormat&) override { text_ += '\n'; }
  void onListMarker(std::string_view utf8) override { (text_ += utf8) += '\t'; }
  void onEnd(const RtfFormat&) override {}

  std::string take() { return std::move(text_); }

 private:
  std::string text_;
};

}  // namespace

bool isRichText(std::string_view text) {
  return text.starts_with("{\\rtf");
}

std::string plainTextOf(std::string_view richText) {
  if (!isRichText(richText)) return std::string(richText);
  PlainTextContent content(richText.size());
  RtfParser(content).parse(richText);
  return content.take();
}

}  // namespace autonotify
