#include <array>
#include <map>
#include <utility>
#include <vector>

#include "platform/rich_text.h"
#include "platform/richtext/RichText.h"
#include "platform/richtext/RtfLists.h"
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
constexpr std::array scriptWords{"\\nosupersub", "\\super", "\\sub"};

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
  void writeCharacterFormat(const CharacterFormat& format);
  void writeScript(Script script);
  std::string header() const;
  std::string colorTable() const;

  std::string body_;
  /// Format words that are not in the body yet.
  std::string words_;
  const ParagraphFormat* paragraphFormat_ = nullptr;
  /// Of that paragraph.
  int list_ = 0;
  RtfLists lists_;
  const CharacterFormat* format_ = nullptr;
  Script script_ = Script::normal;
  NumberedSet<std::string> fonts_;
  NumberedSet<RichTextColor> colors_;
};

void RichTextWriter::writeParagraph(const Paragraph& paragraph) {
  // Word processors can lose raised text that the group of a marker comes behind.
  if (!paragraph.format.marker.empty()) writeScript(Script::normal);
  const int list = lists_.listOf(paragraph.format.marker);
  const bool isNew = std::exchange(list_, list) != list || !paragraphFormat_ ||
                     *paragraphFormat_ != paragraph.format;
  if (isNew) writeParagraphFormat(paragraph.format);
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
  // Word processors go by the list, editors by what comes before it, all others by the text of the
  // entry.
  word(lists_.wordsOf(list_));
  word(alignmentWords[static_cast<std::size_t>(format.alignment)]);
  for (const auto& [name, measure] : measures)
    if (format.*measure != 0) word(name, format.*measure);
  for (const TabStop& stop : format.tabStops) {
    word(tabAlignmentWords[static_cast<std::size_t>(stop.alignment)]);
    word("\\tx", stop.position);
  }
}

void RichTextWriter::writeCharacterFormat(const CharacterFormat& format) {
  const CharacterFormat* const old = format_;
  const int font = fonts_.number(format.font);
  if (!old || old->font != format.font) word("\\f", font);
  if (!old || old->halfPoints != format.halfPoints) word("\\fs", format.halfPoints);
  for (const auto& [on, off, flag] : flags)
    if (format.*flag != (old && old->*flag)) word(format.*flag ? on : off);
  writeScript(format.script);
  const auto colorNumber = [&](std::optional<RichTextColor> color) {
    return color ? colors_.number(*color) + 1 : 0;
  };
  if (format.color != (old ? old->color : std::nullopt)) word("\\cf", colorNumber(format.color));
  if (format.background != (old ? old->background : std::nullopt))
    word("\\highlight", colorNumber(format.background));
  format_ = &format;
}

void RichTextWriter::writeScript(Script script) {
  if (std::exchange(script_, script) != script) word(scriptWords[static_cast<std::size_t>(script)]);
}

std::string RichTextWriter::header() const {
  std::string text = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl";
  int number = 0;
  for (const std::string* font : fonts_.keys()) {
    const int characterSet = isSymbolFont(*font) ? 2 : 0;
    text += "{\\f" + std::to_string(number++) + "\\fnil\\fcharset" + std::to_string(characterSet);
    text += " " + escapeForRichText(replaceAll(*font, ";", "")) + ";}";
  }
  return text + "}\r\n" + colorTable() + lists_.tables() + "\\uc1";
}

std::string RichTextWriter::colorTable() const {
  if (colors_.keys().empty()) return {};
  std::string text = "{\\colortbl ;";
  for (const RichTextColor* color : colors_.keys()) {
    const auto part = [&](int byte) { return std::to_string(*color >> (8 * byte) & 255); };
    text += "\\red" + part(0) + "\\green" + part(1) + "\\blue" + part(2) + ";";
  }
  return text + "}\r\n";
}

}  // namespace

std::string writeRichText(const RichText& text) {
  return RichTextWriter().write(text);
}

}  // namespace autonotify
