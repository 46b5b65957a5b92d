#include "platform/richtext/RtfParser.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "platform/text.h"
#include "platform/utf8.h"

namespace autonotify {
namespace {

constexpr bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

/// How many bytes at the start are ASCII; eight are looked at together.
std::size_t asciiPrefix(std::string_view bytes) {
  std::size_t at = 0;
  for (std::uint64_t eight = 0; at + sizeof eight <= bytes.size(); at += sizeof eight) {
    std::memcpy(&eight, bytes.data() + at, sizeof eight);
    if ((eight & 0x8080808080808080U) != 0) break;
  }
  while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80) ++at;
  return at;
}

/// The result of a field, the rows of a nested table, a frame with its text.
constexpr std::array<std::string_view, 3> shownOptionals{"fldrslt", "nesttableprops", "shpinst"};

constexpr std::string_view blanks = " \t\r\n";

bool isBlank(std::string_view text) {
  return text.find_first_not_of(blanks) == std::string_view::npos;
}

std::string_view withoutBlanks(std::string_view text) {
  if (isBlank(text)) return {};
  const auto first = text.find_first_not_of(blanks);
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace

void RtfParser::parse(std::string_view rtf) {
  reader_ = RtfReader(rtf);
  for (;;) {
    // Made in its place each time: copying a token costs more than reading most of them.
    const RtfToken token = reader_.next();
    if (token.kind == RtfToken::Kind::end) break;
    handle(token);
  }
  finish();
}

void RtfParser::handle(const RtfToken& token) {
  using Kind = RtfToken::Kind;
  if (token.kind == Kind::groupStart) return startGroup();
  if (token.kind == Kind::groupEnd) return endGroup();
  if (isSkipping()) return enterOptional(token);
  if (token.kind == Kind::text) {
    if (atGroupStart_ && isBeforeDestination(token.text)) return;
    putBytes(token.text);
  } else if (!takeFallback(token)) {
    if (token.kind == Kind::word) {
      if (const Keyword* keyword = keywordNamed(token.text))
        (this->*keyword->act)(token, keyword->text);
    }
    if (token.kind == Kind::symbol) handleSymbol(token.text[0]);
    if (token.kind == Kind::hexByte) putByte(static_cast<unsigned char>(token.parameter));
  }
  atGroupStart_ = false;
}

void RtfParser::startGroup() {
  outer_.push_back(state_);
  fallbackLeft_ = 0;
  atGroupStart_ = true;
}

/// A closing brace too many closes nothing, so that text between it and the last one isn't lost.
void RtfParser::endGroup() {
  fallbackLeft_ = 0;
  atGroupStart_ = false;
  if (outer_.empty()) return;
  const State inner = std::exchange(state_, outer_.back());
  outer_.pop_back();
  if (outer_.empty()) {
    lastFormat_ = inner.format;
    reader_.endAtLastBrace();
  }
  if (inner.destination == Destination::listMarker &&
      state_.destination != Destination::listMarker) {
    const Font* font = fontNumbered(inner.format.characters.font);
    putListMarker(font && font->isSymbol);
  }
}

/// Blanks between a brace and the name of its destination are no text.
bool RtfParser::isBeforeDestination(std::string_view text) const {
  if (!isBlank(text)) return false;
  RtfReader ahead = reader_;
  const RtfToken next = ahead.next();
  if (next.kind == RtfToken::Kind::symbol) return next.text == "*";
  return next.kind == RtfToken::Kind::word && isDestination(next.text);
}

/// Of the destinations that a reader may pass over, a person sees these alone.
void RtfParser::enterOptional(const RtfToken& token) {
  if (state_.destination == Destination::skipped || isBlank(token.text)) return;
  const bool isShown = token.kind == RtfToken::Kind::word &&
                       std::ranges::find(shownOptionals, token.text) != shownOptionals.end();
  state_.destination = isShown ? outer_.back().destination : Destination::skipped;
}

/// Every control counts as one character of a fallback, but for another `\u`: no fallback holds
/// one.
bool RtfParser::takeFallback(const RtfToken& token) {
  if (fallbackLeft_ == 0) return false;
  if (token.kind == RtfToken::Kind::word && token.text == "u") return false;
  --fallbackLeft_;
  return true;
}

void RtfParser::handleSymbol(char symbol) {
  switch (symbol) {
    case '*':
      if (atGroupStart_) state_.destination = Destination::optional;
      return;
    case '~':
      return put("\u00A0");
    case '_':
      return put("\u2011");
    case '\n':
      return endParagraph({}, {});
    case '\t':
      return put("\t");
  }
}

void RtfParser::finish() {
  flushHalf();
  if (state_.destination == Destination::listMarker) putListMarker(false);
  flushCell();
  content_.onEnd(outer_.empty() ? lastFormat_ : state_.format);
}

void RtfParser::endParagraph(const RtfToken&, std::string_view) {
  if (!isBodyVisible()) return;
  flushHalf();
  flushCell();
  content_.onParagraphEnd(state_.format);
  atParagraphStart_ = true;
}

void RtfParser::endCell(const RtfToken&, std::string_view) {
  if (!isBodyVisible()) return;
  flushHalf();
  flushCell();
  cellEnded_ = true;
  atParagraphStart_ = false;
}

void RtfParser::endRow(const RtfToken&, std::string_view) {
  if (!isBodyVisible()) return;
  flushHalf();
  cellEnded_ = false;
  endParagraph({}, {});
}

void RtfParser::unicode(const RtfToken& word, std::string_view) {
  if (!word.hasParameter) return;
  fallbackLeft_ = state_.fallbackLength;
  if (state_.hidden) return;
  const auto unit =
      static_cast<char32_t>(word.parameter < 0 ? word.parameter + 0x10000 : word.parameter);
  if (isLowSurrogate(unit) && highSurrogate_ != 0) {
    const char32_t high = std::exchange(highSurrogate_, 0);
    return putCharacter(0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
  }
  if (!isHighSurrogate(unit)) return putCharacter(unit);
  flushHalf();
  highSurrogate_ = unit;
}

/// Programs give symbol fonts the character set of a page of pairs, and write the document's bytes.
void RtfParser::flushHalf() {
  if (highSurrogate_ == 0 && firstByte_ == 0) return;
  const char32_t left =
      firstByte_ == 0 ? replacementCharacter : characterOf(firstByte_, documentCodePage_);
  highSurrogate_ = 0;
  firstByte_ = 0;
  putCharacter(left == firstOfPair ? replacementCharacter : left);
}

void RtfParser::flushCell() {
  if (std::exchange(cellEnded_, false)) content_.onText("\t", state_.format);
}

void RtfParser::put(std::string_view utf8) {
  if (state_.hidden) return;
  flushHalf();
  switch (state_.destination) {
    case Destination::body:
      return putInBody(utf8);
    case Destination::listMarker:
      listMarker_ += utf8;
      return;
    case Destination::fontTable:
      return putFontName(utf8);
    case Destination::colorTable:
      return putColorEnds(utf8);
    case Destination::skipped:
    case Destination::optional:
      return;
  }
}

void RtfParser::putInBody(std::string_view utf8) {
  flushCell();
  content_.onText(utf8, state_.format);
  atParagraphStart_ = false;
}

void RtfParser::putCharacter(char32_t character) {
  if (character == 0) return;
  std::string utf8;
  // A line end that comes as a character doesn't end the paragraph.
  appendUtf8(utf8, character == U'\r' ? U'\n' : character);
  put(utf8);
}

/// Bytes above 0x7F that form UTF-8 are taken as such, since values go into a rich text as they
/// stand; all others belong to the code page.
void RtfParser::putBytes(std::string_view bytes) {
  for (; fallbackLeft_ > 0 && !bytes.empty(); --fallbackLeft_)
    bytes.remove_prefix(utf8StepAt(bytes, 0).length);
  if (state_.hidden) return;
  while (!bytes.empty()) {
    const std::size_t asciiLength = firstByte_ == 0 ? asciiPrefix(bytes) : 0;
    if (asciiLength > 0) put(bytes.substr(0, asciiLength));
    bytes.remove_prefix(asciiLength);
    if (bytes.empty()) return;
    const Utf8Step step = utf8StepAt(bytes, 0);
    if (step.length == 1) {
      putByte(static_cast<unsigned char>(bytes[0]));
    } else {
      putCharacter(step.value);
    }
    bytes.remove_prefix(step.length);
  }
}

/// A first byte waits for the second; an ordinary character behind it is none.
void RtfParser::putByte(unsigned char byte) {
  if (state_.hidden) return;
  if (firstByte_ != 0) {
    const char32_t pair = characterOf(firstByte_, byte, state_.codePage);
    if (pair == replacementCharacter && byte < 0x80) flushHalf();
    if (std::exchange(firstByte_, 0) != 0) return putCharacter(pair);
  }
  const char32_t character = characterOf(byte, state_.codePage);
  if (character != firstOfPair) return putCharacter(character);
  firstByte_ = byte;
}

/// A name ends in a semicolon; what follows belongs to no font until the next `\f`.
void RtfParser::putFontName(std::string_view utf8) {
  Font& font = fonts_[fontInTable_];
  for (const char c : utf8) {
    if (c == ';') font.hasName = true;
    const bool isControl = static_cast<unsigned char>(c) < 0x20;
    if (!font.hasName && !isControl) font.name += c;
  }
}

void RtfParser::putColorEnds(std::string_view utf8) {
  for (const char c : utf8)
    if (c == ';') colors_.push_back(std::exchange(nextColor_, std::nullopt));
}

/// The bullets of symbol fonts have codes of their own: all are shown as the one that every font
/// has.
void RtfParser::putListMarker(bool isSymbol) {
  const std::string collected = std::exchange(listMarker_, {});
  const std::string_view marker = withoutBlanks(collected);
  if (marker.empty()) return;
  if (!atParagraphStart_) return putInBody(collected);
  content_.onListMarker(isSymbol ? "\u2022" : marker);
  atParagraphStart_ = false;
}

const RtfParser::Font* RtfParser::fontNumbered(int font) const {
  const auto found = fonts_.find(font == RtfCharacterFormat::documentFont ? documentFont_ : font);
  return found == fonts_.end() ? nullptr : &found->second;
}

CodePageIndex RtfParser::codePageOf(int font) const {
  const auto found = fonts_.find(font);
  return found == fonts_.end() ? documentCodePage_
                               : found->second.codePage.value_or(documentCodePage_);
}

std::string_view RtfParser::fontName(int font) const {
  const Font* const found = fontNumbered(font);
  return found ? withoutBlanks(found->name) : std::string_view{};
}

std::optional<RichTextColor> RtfParser::colorOf(int color) const {
  const auto index = static_cast<std::size_t>(color);
  return color >= 0 && index < colors_.size() ? colors_[index] : std::nullopt;
}

std::optional<RichTextColor> RtfParser::backgroundOf(int color) const {
  return color == 0 ? std::nullopt : colorOf(color);
}

std::vector<TabStop> RtfParser::tabStopsOf(const RtfParagraphFormat& format) const {
  std::vector<TabStop> stops;
  for (int at = format.lastTabStop; at >= 0;) {
    const TabStopLink& link = tabStops_[static_cast<std::size_t>(at)];
    stops.push_back(link.stop);
    at = link.previous;
  }
  std::reverse(stops.begin(), stops.end());
  return stops;
}

}  // namespace autonotify
