#include <utility>

#include "platform/rich_text.h"
#include "platform/richtext/RtfParser.h"
#include "platform/richtext/rich_text_edit.h"

namespace autonotify {
namespace {

/// Builds paragraphs from what the parser finds.
class RichTextBuilder final : public RtfContent {
 public:
  RichText build(std::string_view rtf) {
    parser_.parse(rtf);
    return std::move(text_);
  }

  void onText(std::string_view utf8, const RtfFormat& format) override {
    paragraphFormat_ = format.paragraph;
    useFormat(format.characters);
    if (paragraph_.runs.empty() || paragraph_.runs.back().format != characters_)
      paragraph_.runs.push_back({{}, characters_});
    paragraph_.runs.back().text += utf8;
  }

  void onParagraphEnd(const RtfFormat& format) override {
    paragraphFormat_ = format.paragraph;
    endParagraph(format);
  }

  void onListMarker(std::string_view utf8) override { paragraph_.format.marker = utf8; }

  /// A last paragraph that has text and no end keeps the format that its text was written in.
  void onEnd(const RtfFormat& format) override {
    if (paragraph_.runs.empty()) paragraphFormat_ = format.paragraph;
    endParagraph(format);
  }

 private:
  void endParagraph(const RtfFormat& format) {
    ParagraphFormat& target = paragraph_.format;
    target.alignment = paragraphFormat_.alignment;
    target.leftIndent = paragraphFormat_.leftIndent;
    target.rightIndent = paragraphFormat_.rightIndent;
    target.firstLineIndent = paragraphFormat_.firstLineIndent;
    target.spaceBefore = paragraphFormat_.spaceBefore;
    target.spaceAfter = paragraphFormat_.spaceAfter;
    target.tabStops = parser_.tabStopsOf(paragraphFormat_);
    if (paragraph_.runs.empty()) {
      useFormat(format.characters);
      paragraph_.runs.push_back({{}, characters_});
    }
    tidyRuns(paragraph_);
    text_.paragraphs.push_back(std::exchange(paragraph_, {{}, {}}));
  }

  /// Texts come in many pieces of one format: numbers are looked up when they change.
  void useFormat(const RtfCharacterFormat& format) {
    if (isFormatKnown_ && format == format_) return;
    isFormatKnown_ = true;
    format_ = format;
    const std::string_view font = parser_.fontName(format.font);
    characters_.font = font.empty() ? CharacterFormat{}.font : std::string(font);
    characters_.halfPoints = format.halfPoints;
    characters_.bold = format.bold;
    characters_.italic = format.italic;
    characters_.underline = format.underline;
    characters_.strike = format.strike;
    characters_.script = format.script;
    characters_.color = parser_.colorOf(format.color);
    characters_.background = parser_.backgroundOf(format.background);
  }

  RtfParser parser_{*this};
  RichText text_{{}};
  Paragraph paragraph_{{}, {}};
  RtfParagraphFormat paragraphFormat_;
  bool isFormatKnown_ = false;
  RtfCharacterFormat format_;
  CharacterFormat characters_;
};

}  // namespace

RichText readRichText(std::string_view rtf) {
  if (!isRichText(rtf)) return richTextOf(rtf);
  return RichTextBuilder().build(rtf);
}

std::string plainTextOf(const RichText& text) {
  std::string result;
  for (const Paragraph& paragraph : text.paragraphs) {
    if (&paragraph != &text.paragraphs.front()) result += '\n';
    if (!paragraph.format.marker.empty()) (result += paragraph.format.marker) += '\t';
    for (const Run& run : paragraph.runs) result += run.text;
  }
  return result;
}

}  // namespace autonotify
