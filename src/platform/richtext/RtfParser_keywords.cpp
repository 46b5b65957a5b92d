#include <algorithm>
#include <array>
#include <iterator>

#include "platform/richtext/RtfParser.h"

namespace autonotify {
namespace {

constexpr int longestMeasure = 100'000;
constexpr int mostTabStops = 64;
constexpr int largestSize = 3276;
constexpr int symbolCharacterSet = 2;

bool isSwitchedOn(const RtfToken& word) {
  return !word.hasParameter || word.parameter != 0;
}

}  // namespace

/// A destination's name stands at the start of its group; elsewhere it's a stray backslash in a
/// text.
template <RtfParser::Destination destination>
void RtfParser::enter(const RtfToken&, std::string_view) {
  const bool isInText = state_.destination == Destination::body;
  if (atGroupStart_ && (isInText || destination != Destination::listMarker))
    state_.destination = destination;
}

void RtfParser::setHidden(const RtfToken& word, std::string_view) {
  state_.hidden = isSwitchedOn(word);
}

void RtfParser::setPlain(const RtfToken&, std::string_view) {
  state_.hidden = false;
  state_.codePage = documentCodePage_;
  state_.format.characters = {};
}

void RtfParser::setDocumentCodePage(const RtfToken& word, std::string_view) {
  state_.codePage = documentCodePage_ = codePageIndexOf(word.parameter);
}

template <int number>
void RtfParser::setFixedCodePage(const RtfToken&, std::string_view) {
  state_.codePage = documentCodePage_ = codePageIndexOf(number);
}

void RtfParser::setDocumentFont(const RtfToken& word, std::string_view) {
  documentFont_ = word.parameter;
}

void RtfParser::setFont(const RtfToken& word, std::string_view) {
  fontInTable_ = word.parameter;
  state_.format.characters.font = std::max(word.parameter, 0);
  state_.codePage = codePageOf(word.parameter);
}

void RtfParser::setFontCharacterSet(const RtfToken& word, std::string_view) {
  if (state_.destination != Destination::fontTable) return;
  const auto codePage = codePageIndexOfCharacterSet(word.parameter);
  Font& font = fonts_[fontInTable_];
  if (codePage) font.codePage = codePage;
  state_.codePage = codePageOf(fontInTable_);
  font.isSymbol = word.parameter == symbolCharacterSet;
}

void RtfParser::setFontCodePage(const RtfToken& word, std::string_view) {
  if (state_.destination == Destination::fontTable)
    fonts_[fontInTable_].codePage = codePageIndexOf(word.parameter);
}

void RtfParser::setFallbackLength(const RtfToken& word, std::string_view) {
  const int length = word.hasParameter ? word.parameter : 1;
  state_.fallbackLength = static_cast<std::uint8_t>(std::clamp(length, 0, 255));
}

void RtfParser::setSize(const RtfToken& word, std::string_view) {
  const int standard = RtfCharacterFormat{}.halfPoints;
  const int size = word.parameter > 0 ? std::min(word.parameter, largestSize) : standard;
  state_.format.characters.halfPoints = static_cast<std::uint16_t>(size);
}

template <bool RtfCharacterFormat::*flag>
void RtfParser::setFlag(const RtfToken& word, std::string_view) {
  state_.format.characters.*flag = isSwitchedOn(word);
}

void RtfParser::endUnderline(const RtfToken&, std::string_view) {
  state_.format.characters.underline = false;
}

template <Script script>
void RtfParser::setScript(const RtfToken& word, std::string_view) {
  state_.format.characters.script = isSwitchedOn(word) ? script : Script::normal;
}

template <int RtfCharacterFormat::*color>
void RtfParser::setColor(const RtfToken& word, std::string_view) {
  state_.format.characters.*color = word.parameter;
}

template <int byte>
void RtfParser::setColorPart(const RtfToken& word, std::string_view) {
  if (state_.destination != Destination::colorTable) return;
  const RichTextColor part = std::clamp(word.parameter, 0, 255) << (8 * byte);
  nextColor_ = (nextColor_.value_or(0) & ~(255 << (8 * byte))) | part;
}

template <Alignment alignment>
void RtfParser::align(const RtfToken&, std::string_view) {
  state_.format.paragraph.alignment = alignment;
}

template <int RtfParagraphFormat::*measure>
void RtfParser::setMeasure(const RtfToken& word, std::string_view) {
  state_.format.paragraph.*measure = std::clamp(word.parameter, -longestMeasure, longestMeasure);
}

void RtfParser::setPlainParagraph(const RtfToken&, std::string_view) {
  state_.format.paragraph = {};
}

template <TabAlignment alignment>
void RtfParser::alignTab(const RtfToken&, std::string_view) {
  nextTabAlignment_ = alignment;
}

/// Stops form a chain of which each group holds its own end, so that no list is ever copied.
void RtfParser::addTabStop(const RtfToken& word, std::string_view) {
  int& last = state_.format.paragraph.lastTabStop;
  const int count = last < 0 ? 1 : tabStops_[static_cast<std::size_t>(last)].count + 1;
  const TabStop stop{std::clamp(word.parameter, -longestMeasure, longestMeasure),
                     nextTabAlignment_};
  nextTabAlignment_ = TabAlignment::left;
  if (count > mostTabStops) return;
  tabStops_.push_back({last, count, stop});
  last = static_cast<int>(tabStops_.size()) - 1;
}

using P = RtfParser;
using Characters = RtfCharacterFormat;
using ParagraphWords = RtfParagraphFormat;
const P::Keyword P::keywords[] = {
    {"ansicpg", &P::setDocumentCodePage},
    {"b", &P::setFlag<&Characters::bold>},
    {"blue", &P::setColorPart<2>},
    {"bullet", &P::insert, "\u2022"},
    {"cb", &P::setColor<&Characters::background>},
    {"cell", &P::endCell},
    {"cf", &P::setColor<&Characters::color>},
    {"chcbpat", &P::setColor<&Characters::background>},
    {"colortbl", &P::enter<Destination::colorTable>},
    {"column", &P::insert, "\n"},
    {"cpg", &P::setFontCodePage},
    {"deff", &P::setDocumentFont},
    {"deleted", &P::setHidden},
    {"emdash", &P::insert, "\u2014"},
    {"emspace", &P::insert, "\u2003"},
    {"endash", &P::insert, "\u2013"},
    {"enspace", &P::insert, "\u2002"},
    {"f", &P::setFont},
    {"fcharset", &P::setFontCharacterSet},
    {"fi", &P::setMeasure<&ParagraphWords::firstLineIndent>},
    {"filetbl", &P::enter<Destination::skipped>},
    {"fldinst", &P::enter<Destination::skipped>},
    {"fonttbl", &P::enter<Destination::fontTable>},
    {"footer", &P::enter<Destination::skipped>},
    {"footerf", &P::enter<Destination::skipped>},
    {"footerl", &P::enter<Destination::skipped>},
    {"footerr", &P::enter<Destination::skipped>},
    {"footnote", &P::enter<Destination::skipped>},
    {"fs", &P::setSize},
    {"green", &P::setColorPart<1>},
    {"header", &P::enter<Destination::skipped>},
    {"headerf", &P::enter<Destination::skipped>},
    {"headerl", &P::enter<Destination::skipped>},
    {"headerr", &P::enter<Destination::skipped>},
    {"highlight", &P::setColor<&Characters::background>},
    {"i", &P::setFlag<&Characters::italic>},
    {"info", &P::enter<Destination::skipped>},
    {"ldblquote", &P::insert, "\u201C"},
    {"levelnumbers", &P::enter<Destination::skipped>},
    {"leveltext", &P::enter<Destination::skipped>},
    {"li", &P::setMeasure<&ParagraphWords::leftIndent>},
    {"line", &P::insert, "\n"},
    {"listname", &P::enter<Destination::skipped>},
    {"listoverridetable", &P::enter<Destination::skipped>},
    {"listtable", &P::enter<Destination::skipped>},
    {"listtext", &P::enter<Destination::listMarker>},
    {"lquote", &P::insert, "\u2018"},
    {"mac", &P::setFixedCodePage<10000>},
    {"nestcell", &P::endCell},
    {"nestrow", &P::endRow},
    {"nonesttables", &P::enter<Destination::skipped>},
    {"nonshppict", &P::enter<Destination::skipped>},
    {"nosupersub", &P::setScript<Script::normal>},
    {"object", &P::enter<Destination::skipped>},
    {"page", &P::endParagraph},
    {"par", &P::endParagraph},
    {"pard", &P::setPlainParagraph},
    {"pc", &P::setFixedCodePage<437>},
    {"pca", &P::setFixedCodePage<850>},
    {"pict", &P::enter<Destination::skipped>},
    {"plain", &P::setPlain},
    {"pntext", &P::enter<Destination::listMarker>},
    {"pntxta", &P::enter<Destination::skipped>},
    {"pntxtb", &P::enter<Destination::skipped>},
    {"qc", &P::align<Alignment::center>},
    {"qj", &P::align<Alignment::justified>},
    {"ql", &P::align<Alignment::left>},
    {"qmspace", &P::insert, "\u2005"},
    {"qr", &P::align<Alignment::right>},
    {"rdblquote", &P::insert, "\u201D"},
    {"red", &P::setColorPart<0>},
    {"revtbl", &P::enter<Destination::skipped>},
    {"ri", &P::setMeasure<&ParagraphWords::rightIndent>},
    {"row", &P::endRow},
    {"rquote", &P::insert, "\u2019"},
    {"rxe", &P::enter<Destination::skipped>},
    {"sa", &P::setMeasure<&ParagraphWords::spaceAfter>},
    {"sb", &P::setMeasure<&ParagraphWords::spaceBefore>},
    {"sect", &P::endParagraph},
    {"shprslt", &P::enter<Destination::skipped>},
    {"sp", &P::enter<Destination::skipped>},
    {"strike", &P::setFlag<&Characters::strike>},
    {"striked", &P::setFlag<&Characters::strike>},
    {"stylesheet", &P::enter<Destination::skipped>},
    {"sub", &P::setScript<Script::subscript>},
    {"super", &P::setScript<Script::superscript>},
    {"tab", &P::insert, "\t"},
    {"tc", &P::enter<Destination::skipped>},
    {"tcn", &P::enter<Destination::skipped>},
    {"tqc", &P::alignTab<TabAlignment::center>},
    {"tqdec", &P::alignTab<TabAlignment::decimal>},
    {"tqr", &P::alignTab<TabAlignment::right>},
    {"tx", &P::addTabStop},
    {"txe", &P::enter<Destination::skipped>},
    {"u", &P::unicode},
    {"uc", &P::setFallbackLength},
    {"ul", &P::setFlag<&Characters::underline>},
    {"uld", &P::setFlag<&Characters::underline>},
    {"uldash", &P::setFlag<&Characters::underline>},
    {"uldb", &P::setFlag<&Characters::underline>},
    {"ulnone", &P::endUnderline},
    {"ulth", &P::setFlag<&Characters::underline>},
    {"ulw", &P::setFlag<&Characters::underline>},
    {"ulwave", &P::setFlag<&Characters::underline>},
    {"v", &P::setHidden},
    {"xe", &P::enter<Destination::skipped>},
    {"zwj", &P::insert, "\u200D"},
    {"zwnj", &P::insert, "\u200C"},
};

bool P::isDestination(std::string_view name) {
  const Keyword* const keyword = keywordNamed(name);
  if (!keyword) return false;
  for (const auto enters : {&P::enter<Destination::skipped>, &P::enter<Destination::listMarker>,
                            &P::enter<Destination::fontTable>, &P::enter<Destination::colorTable>})
    if (keyword->act == enters) return true;
  return false;
}

/// Finds a word by its length and three of its letters, since most words that programs write are
/// none of these.
class RtfParser::KeywordIndex {
 public:
  KeywordIndex() {
    std::uint8_t number = 0;
    for (const Keyword& keyword : keywords) {
      std::size_t slot = slotOf(keyword.name);
      while (numbers_[slot] != 0) slot = (slot + 1) % slotCount;
      numbers_[slot] = ++number;
    }
  }

  const Keyword* find(std::string_view name) const {
    for (std::size_t slot = slotOf(name); numbers_[slot] != 0; slot = (slot + 1) % slotCount) {
      const Keyword& keyword = keywords[numbers_[slot] - 1];
      if (isSame(keyword.name, name)) return &keyword;
    }
    return nullptr;
  }

 private:
  static constexpr std::size_t slotCount = 1024;

  /// Names are too short for a call to compare them.
  static bool isSame(std::string_view one, std::string_view other) {
    if (one.size() != other.size()) return false;
    for (std::size_t at = 0; at < one.size(); ++at)
      if (one[at] != other[at]) return false;
    return true;
  }

  static std::size_t slotOf(std::string_view name) {
    const auto letter = [&](std::size_t at) { return static_cast<unsigned char>(name[at]); };
    const std::size_t size = name.size();
    return (size + letter(0) * 5U + letter(size / 2) * 37U + letter(size - 1) * 139U) % slotCount;
  }

  /// Of the keywords from 1; 0 in a free slot.
  std::array<std::uint8_t, slotCount> numbers_{};
};

const P::Keyword* P::keywordNamed(std::string_view name) {
  static_assert(std::size(keywords) < 256);
  static const KeywordIndex index;
  return index.find(name);
}

}  // namespace autonotify
