#include <array>
#include <map>
#include <utility>
#include <vector>

#include "platform/rich_text.h"
#include "platform/richtext/RichText.h"
#include "platform/text.h"

namespace autonotify {
namespace {

struct NamedMeasure {
  const char* word;
  int ParagraphFormat::*measure;
};
constexpr std::array measures{
    NamedMeasure{"\\li", &ParagraphFormat::leftIndent},
    NamedMeasure{"\\ri", &ParagraphFormat::rightIndent},
    NamedMeasure{"\\fi", &ParagraphFormat::firstLineIndent},
    NamedMeasure{"\\sb", &ParagraphFormat::spaceBefore},
    NamedMeasure{"\\sa", &ParagraphFormat::spaceAfter},
};

struct NamedFlag {
  const char* on;
  const char* off;
  bool CharacterFormat::*flag;
};
constexpr std::array flags{
    NamedFlag{"\\b", "\\b0", &CharacterFormat::bold},
    NamedFlag{"\\i", "\\i0", &CharacterFormat::italic},
    NamedFlag{"\\ul", "\\ulnone", &CharacterFormat::underline},
    NamedFlag{"\\strike", "\\strike0", &CharacterFormat::strike},
};

constexpr std::array alignmentWords{"", "\\qc", "\\qr", "\\qj"};
constexpr std::array tabAlignmentWords{"", "\\tqc", "\\tqr", "\\tqdec"};

/// Their characters are pictures, which no other font shows.
constexpr std::array<std::string_view, 4> symbolFonts{"Symbol", "Wingdings", "Webdings", "Marlett"};

bool isSymbolFont(std::string_view name) {
  for (const std::string_view symbolFont : symbolFonts)
    if (name.starts_with(symbolFont)) return true;
  return false;
}

/// Numbers in the order of first use.
template <class Key>
class NumberedSet {
 public:
  int number(const Key& key) {
    const auto [found, isNew] = numbers_.try_emplace(key, static_cast<int>(keys_.size()));
    if (isNew) keys_.push_back(&found->first);
    return found->second;
  }
  const std::vector<const Key*>& keys() const { return keys_; }

 private:
  std::map<Key, int> numbers_;
  std::vector<const Key*> keys_;
};

class RichTextWriter {
 public:
  std::string write(const RichText& text) {
    // List markers are written in font 0, and a symbol font would change them.
    if (isSymbolFont(text.paragraphs.front().runs.front().format.font))
      fonts_.number(CharacterFormat{}.font);
    for (const Paragraph& paragraph : text.paragraphs) {
      if (&paragraph != &text.paragraphs.front()) endParagraph();
      writeParagraph(paragraph);
    }
    return header() + body_ + "}\r\n";
  }

 private:
  void word(std::string_view name) { words_ += name; }
  void word(std::string_view name, int parameter) {
    words_.append(name).append(std::to_string(parameter));
  }
  /// A blank behind the words keeps them apart from the text.
  void flushWords() {
    if (words_.empty()) return;
    body_.append(words_).append(" ");
    words_.clear();
  }
  void endParagraph() {
    flushWords();
    body_ += "\\par \r\n";
  }
  void writeParagraph(const Paragraph& paragraph);
  void writeParagraphFormat(const ParagraphFormat& format);
  void writeListMarker(const std::string& marker);
  void writeCharacterFormat(const CharacterFormat& format);
  std::string header() const;

  std::string body_;
  /// Format words that are not in the body yet.
  std::string words_;
  const ParagraphFormat* paragraphFormat_ = nullptr;
  const CharacterFormat* format_ = nullptr;
  NumberedSet<std::string> fonts_;
  NumberedSet<RichTextColor> colors_;
};

void RichTextWriter::writeParagraph(const Paragraph& paragraph) {
  if (!paragraphFormat_ || *paragraphFormat_ != paragraph.format)
    writeParagraphFormat(paragraph.format);
  paragraphFormat_ = &paragraph.format;
  if (!paragraph.format.marker.empty()) {
    body_ += std::exchange(words_, {});
    body_.append("{\\pntext\\f0 ")
        .append(escapeForRichText(paragraph.format.marker, richTextLineBreaks))
        .append("\\tab}");
  }
  for (const Run& run : paragraph.runs) {
    writeCharacterFormat(run.format);
    flushWords();
    body_ += escapeForRichText(run.text, richTextLineBreaks);
  }
}

void RichTextWriter::writeParagraphFormat(const ParagraphFormat& format) {
  word("\\pard");
  if (!format.marker.empty()) writeListMarker(format.marker);
  word(alignmentWords[static_cast<std::size_t>(format.alignment)]);
  for (const auto& [name, measure] : measures)
    if (format.*measure != 0) word(name, format.*measure);
  for (const TabStop& stop : format.tabStops) {
    word(tabAlignmentWords[static_cast<std::size_t>(stop.alignment)]);
    word("\\tx", stop.position);
  }
}

/// Tells editors that the paragraph belongs to a list; all others show the text of the entry.
void RichTextWriter::writeListMarker(const std::string& marker) {
  words_.append("{\\*\\pn\\pnlvlblt\\pnf0{\\pntxtb ")
      .append(escapeForRichText(marker, richTextLineBreaks))
      .append("}}");
}

void RichTextWriter::writeCharacterFormat(const CharacterFormat& format) {
  const CharacterFormat* const old = format_;
  const int font = fonts_.number(format.font);
  if (!old || old->font != format.font) word("\\f", font);
  if (!old || old->halfPoints != format.halfPoints) word("\\fs", format.halfPoints);
  for (const auto& [on, off, flag] : flags)
    if (format.*flag != (old && old->*flag)) word(format.*flag ? on : off);
  const auto colorNumber = [&](std::optional<RichTextColor> color) {
    return color ? colors_.number(*color) + 1 : 0;
  };
  if (format.color != (old ? old->color : std::nullopt)) word("\\cf", colorNumber(format.color));
  if (format.background != (old ? old->background : std::nullopt))
    word("\\highlight", colorNumber(format.background));
  format_ = &format;
}

std::string RichTextWriter::header() const {
  std::string text = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl";
  int number = 0;
  for (const std::string* font : fonts_.keys()) {
    const int characterSet = isSymbolFont(*font) ? 2 : 0;
    text += "{\\f" + std::to_string(number++) + "\\fnil\\fcharset" + std::to_string(characterSet);
    text += " " + escapeForRichText(replaceAll(*font, ";", "")) + ";}";
  }
  text += "}\r\n";
  if (colors_.keys().empty()) return text + "\\uc1";
  text += "{\\colortbl ;";
  for (const RichTextColor* color : colors_.keys()) {
    const auto part = [&](int byte) { return std::to_string(*color >> (8 * byte) & 255); };
    text += "\\red" + part(0) + "\\green" + part(1) + "\\blue" + part(2) + ";";
  }
  return text + "}\r\n\\uc1";
}

}  // namespace

std::string writeRichText(const RichText& text) {
  return RichTextWriter().write(text);
}

}  // namespace autonotify
