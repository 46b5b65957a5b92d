#include "platform/rich_text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/code_pages.h"
#include "platform/rtf_reader.h"
#include "platform/utf8.h"

namespace autonotify {
namespace {

constexpr bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

/// Follows the tokens of an RTF text and keeps what a reader of the document would see.
class PlainTextWriter {
 public:
  std::string write(std::string_view richText);

 private:
  struct Keyword {
    std::string_view name;
    void (PlainTextWriter::*act)(const RtfToken&, const Keyword&);
    std::string_view text = {};
    int codePage = 0;
  };
  static const Keyword keywords[];
  static const Keyword* keywordNamed(std::string_view name);

  enum class Destination : std::uint8_t { body, fontTable, skipped };

  /// What a group inherits and gives back at its end. Small, since groups may be nested without
  /// limit.
  struct State {
    Destination destination = Destination::body;
    bool hidden = false;
    std::uint8_t fallbackLength = 1;
    CodePageIndex codePage = codePage1252;
  };

  void handle(const RtfToken& token);
  void handleWord(const RtfToken& word);
  void handleSymbol(char symbol);
  void startGroup();
  void endGroup();
  bool takeFallback(const RtfToken& token);

  void insert(const RtfToken&, const Keyword& keyword) { put(keyword.text); }
  void endRow(const RtfToken&, const Keyword&);
  void endCell(const RtfToken&, const Keyword&);
  void skipGroup(const RtfToken&, const Keyword&);
  void startFontTable(const RtfToken&, const Keyword&);
  void setHidden(const RtfToken& word, const Keyword&);
  void setPlain(const RtfToken&, const Keyword&);
  void setDocumentCodePage(const RtfToken& word, const Keyword&);
  void setFixedCodePage(const RtfToken&, const Keyword& keyword);
  void setFont(const RtfToken& word, const Keyword&);
  void setFontCharacterSet(const RtfToken& word, const Keyword&);
  void setFontCodePage(const RtfToken& word, const Keyword&);
  void setFallbackLength(const RtfToken& word, const Keyword&);
  void unicode(const RtfToken& word, const Keyword&);

  bool isVisible() const { return state_.destination == Destination::body && !state_.hidden; }
  void put(std::string_view text);
  void putCharacter(char32_t character);
  void putRun(std::string_view run);
  void flushSurrogate();

  std::string text_;
  State state_;
  std::vector<State> outer_;
  CodePageIndex documentCodePage_ = codePage1252;
  std::unordered_map<int, CodePageIndex> fontCodePages_;
  int fontInTable_ = 0;
  bool atGroupStart_ = false;
  /// Characters still to be passed over, since a `\u` has said the same already.
  int fallbackLeft_ = 0;
  /// The first half of a surrogate pair that waits for the second; 0 when none does.
  char32_t highSurrogate_ = 0;
  /// Where the text ended after the cell read last: the row's end takes the place of that cell's
  /// tab.
  std::size_t cellEnd_ = std::string::npos;
};

// In the order of the names.
using Writer = PlainTextWriter;
const Writer::Keyword Writer::keywords[] = {
    {"ansicpg", &Writer::setDocumentCodePage},
    {"bullet", &Writer::insert, "\u2022"},
    {"cell", &Writer::endCell},
    {"colortbl", &Writer::skipGroup},
    {"column", &Writer::insert, "\n"},
    {"cpg", &Writer::setFontCodePage},
    {"deleted", &Writer::setHidden},
    {"emdash", &Writer::insert, "\u2014"},
    {"emspace", &Writer::insert, "\u2003"},
    {"endash", &Writer::insert, "\u2013"},
    {"enspace", &Writer::insert, "\u2002"},
    {"f", &Writer::setFont},
    {"fcharset", &Writer::setFontCharacterSet},
    {"filetbl", &Writer::skipGroup},
    {"fldinst", &Writer::skipGroup},
    {"fonttbl", &Writer::startFontTable},
    {"footer", &Writer::skipGroup},
    {"footerf", &Writer::skipGroup},
    {"footerl", &Writer::skipGroup},
    {"footerr", &Writer::skipGroup},
    {"footnote", &Writer::skipGroup},
    {"header", &Writer::skipGroup},
    {"headerf", &Writer::skipGroup},
    {"headerl", &Writer::skipGroup},
    {"headerr", &Writer::skipGroup},
    {"info", &Writer::skipGroup},
    {"ldblquote", &Writer::insert, "\u201C"},
    {"line", &Writer::insert, "\n"},
    {"lquote", &Writer::insert, "\u2018"},
    {"nestcell", &Writer::endCell},
    {"nestrow", &Writer::endRow},
    {"nonesttables", &Writer::skipGroup},
    {"nonshppict", &Writer::skipGroup},
    {"object", &Writer::skipGroup},
    {"page", &Writer::insert, "\n"},
    {"par", &Writer::insert, "\n"},
    {"pc", &Writer::setFixedCodePage, {}, 437},
    {"pca", &Writer::setFixedCodePage, {}, 850},
    {"pict", &Writer::skipGroup},
    {"plain", &Writer::setPlain},
    {"qmspace", &Writer::insert, "\u2005"},
    {"rdblquote", &Writer::insert, "\u201D"},
    {"revtbl", &Writer::skipGroup},
    {"row", &Writer::endRow},
    {"rquote", &Writer::insert, "\u2019"},
    {"rxe", &Writer::skipGroup},
    {"sect", &Writer::insert, "\n"},
    {"stylesheet", &Writer::skipGroup},
    {"tab", &Writer::insert, "\t"},
    {"tc", &Writer::skipGroup},
    {"tcn", &Writer::skipGroup},
    {"txe", &Writer::skipGroup},
    {"u", &Writer::unicode},
    {"uc", &Writer::setFallbackLength},
    {"v", &Writer::setHidden},
    {"xe", &Writer::skipGroup},
    {"zwj", &Writer::insert, "\u200D"},
    {"zwnj", &Writer::insert, "\u200C"},
};

const Writer::Keyword* Writer::keywordNamed(std::string_view name) {
  const Keyword* const found = std::lower_bound(
      std::begin(keywords), std::end(keywords), name,
      [](const Keyword& keyword, std::string_view sought) { return keyword.name < sought; });
  return found != std::end(keywords) && found->name == name ? found : nullptr;
}

std::string Writer::write(std::string_view richText) {
  RtfReader reader(richText);
  for (RtfToken token = reader.next(); token.kind != RtfToken::Kind::end; token = reader.next())
    handle(token);
  flushSurrogate();
  return std::move(text_);
}

void Writer::handle(const RtfToken& token) {
  using Kind = RtfToken::Kind;
  if (token.kind == Kind::groupStart) return startGroup();
  if (token.kind == Kind::groupEnd) return endGroup();
  if (state_.destination == Destination::skipped) return;
  if (token.kind == Kind::text) {
    putRun(token.text);
  } else if (!takeFallback(token)) {
    if (token.kind == Kind::word) handleWord(token);
    if (token.kind == Kind::symbol) handleSymbol(token.text[0]);
    if (token.kind == Kind::hexByte)
      putCharacter(characterOf(static_cast<unsigned char>(token.parameter), state_.codePage));
  }
  atGroupStart_ = false;
}

void Writer::startGroup() {
  outer_.push_back(state_);
  fallbackLeft_ = 0;
  atGroupStart_ = true;
}

/// A closing brace too many closes nothing, so that text behind it isn't lost.
void Writer::endGroup() {
  fallbackLeft_ = 0;
  atGroupStart_ = false;
  if (outer_.empty()) return;
  state_ = outer_.back();
  outer_.pop_back();
}

/// Every control counts as one character of a fallback, but for another `\u`: no fallback holds
/// one.
bool Writer::takeFallback(const RtfToken& token) {
  if (fallbackLeft_ == 0) return false;
  if (token.kind == RtfToken::Kind::word && token.text == "u") return false;
  --fallbackLeft_;
  return true;
}

void Writer::handleWord(const RtfToken& word) {
  if (const Keyword* keyword = keywordNamed(word.text)) (this->*keyword->act)(word, *keyword);
}

void Writer::handleSymbol(char symbol) {
  switch (symbol) {
    case '*':
      if (atGroupStart_) state_.destination = Destination::skipped;
      return;
    case '~':
      return put("\u00A0");
    case '_':
      return put("\u2011");
    case '\n':
    case '\t':
      return put({&symbol, 1});
  }
}

void Writer::endCell(const RtfToken&, const Keyword&) {
  put("\t");
  if (isVisible()) cellEnd_ = text_.size();
}

void Writer::endRow(const RtfToken&, const Keyword&) {
  if (isVisible() && cellEnd_ == text_.size()) text_.pop_back();
  put("\n");
}

/// A destination's name stands at the start of its group; elsewhere it's a stray backslash in a
/// text.
void Writer::skipGroup(const RtfToken&, const Keyword&) {
  if (atGroupStart_) state_.destination = Destination::skipped;
}

void Writer::startFontTable(const RtfToken&, const Keyword&) {
  if (atGroupStart_) state_.destination = Destination::fontTable;
}

void Writer::setHidden(const RtfToken& word, const Keyword&) {
  state_.hidden = !word.hasParameter || word.parameter != 0;
}

void Writer::setPlain(const RtfToken&, const Keyword&) {
  state_.hidden = false;
  state_.codePage = documentCodePage_;
}

void Writer::setDocumentCodePage(const RtfToken& word, const Keyword&) {
  state_.codePage = documentCodePage_ = codePageIndexOf(word.parameter);
}

void Writer::setFixedCodePage(const RtfToken&, const Keyword& keyword) {
  state_.codePage = documentCodePage_ = codePageIndexOf(keyword.codePage);
}

void Writer::setFont(const RtfToken& word, const Keyword&) {
  fontInTable_ = word.parameter;
  const auto found = fontCodePages_.find(word.parameter);
  state_.codePage = found == fontCodePages_.end() ? documentCodePage_ : found->second;
}

void Writer::setFontCharacterSet(const RtfToken& word, const Keyword&) {
  const auto codePage = codePageIndexOfCharacterSet(word.parameter);
  if (codePage && state_.destination == Destination::fontTable)
    fontCodePages_[fontInTable_] = *codePage;
}

void Writer::setFontCodePage(const RtfToken& word, const Keyword&) {
  if (state_.destination == Destination::fontTable)
    fontCodePages_[fontInTable_] = codePageIndexOf(word.parameter);
}

void Writer::setFallbackLength(const RtfToken& word, const Keyword&) {
  const int length = word.hasParameter ? word.parameter : 1;
  state_.fallbackLength = static_cast<std::uint8_t>(std::clamp(length, 0, 255));
}

void Writer::unicode(const RtfToken& word, const Keyword&) {
  if (!word.hasParameter) return;
  fallbackLeft_ = state_.fallbackLength;
  if (!isVisible()) return;
  const auto unit =
      static_cast<char32_t>(word.parameter < 0 ? word.parameter + 0x10000 : word.parameter);
  if (isLowSurrogate(unit) && highSurrogate_ != 0) {
    const char32_t high = std::exchange(highSurrogate_, 0);
    return putCharacter(0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
  }
  if (!isHighSurrogate(unit)) return putCharacter(unit);
  flushSurrogate();
  highSurrogate_ = unit;
}

void Writer::flushSurrogate() {
  if (std::exchange(highSurrogate_, 0) != 0) appendUtf8(text_, replacementCharacter);
}

void Writer::put(std::string_view text) {
  if (!isVisible()) return;
  flushSurrogate();
  text_ += text;
}

void Writer::putCharacter(char32_t character) {
  if (!isVisible() || character == 0) return;
  flushSurrogate();
  appendUtf8(text_, character);
}

/// Bytes above 0x7F that form UTF-8 are taken as such, since values go into a rich text as they
/// stand; all others belong to the code page.
void Writer::putRun(std::string_view run) {
  for (; fallbackLeft_ > 0 && !run.empty(); --fallbackLeft_)
    run.remove_prefix(utf8StepAt(run, 0).length);
  if (!isVisible()) return;
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  while (!run.empty()) {
    const auto end = std::find_if_not(run.begin(), run.end(), isAscii);
    const auto asciiLength = static_cast<std::size_t>(end - run.begin());
    if (asciiLength > 0) put(run.substr(0, asciiLength));
    run.remove_prefix(asciiLength);
    if (run.empty()) return;
    const Utf8Step step = utf8StepAt(run, 0);
    putCharacter(step.isWellFormed()
                     ? step.value
                     : characterOf(static_cast<unsigned char>(run[0]), state_.codePage));
    run.remove_prefix(step.length);
  }
}

}  // namespace

bool isRichText(std::string_view text) {
  return text.starts_with("{\\rtf");
}

std::string plainTextOf(std::string_view richText) {
  if (!isRichText(richText)) return std::string(richText);
  return PlainTextWriter().write(richText);
}

}  // namespace autonotify
