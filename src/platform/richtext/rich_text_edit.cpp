#include "platform/richtext/rich_text_edit.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/rich_text.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace autonotify {
namespace {

bool startsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

/// The byte at which the character numbered `place` starts, or the text's size.
std::size_t byteAt(std::string_view utf8, std::size_t place) {
  std::size_t at = 0;
  for (; at < utf8.size(); ++at)
    if (startsCharacter(utf8[at]) && place-- == 0) break;
  return at;
}

const CharacterFormat& formatIn(const Paragraph& paragraph, std::size_t place) {
  const CharacterFormat* format = &paragraph.runs.front().format;
  for (const Run& run : paragraph.runs) {
    if (place == 0) break;
    format = &run.format;
    place -= std::min(place, characterCount(run.text));
  }
  return *format;
}

Paragraph slice(const Paragraph& paragraph, std::size_t from, std::size_t to) {
  Paragraph result{paragraph.format, {}};
  std::size_t start = 0;
  for (const Run& run : paragraph.runs) {
    const std::size_t end = start + characterCount(run.text);
    if (start < to && end > from) {
      const std::size_t first = byteAt(run.text, std::max(from, start) - start);
      const std::size_t last = byteAt(run.text, std::min(to, end) - start);
      result.runs.push_back({run.text.substr(first, last - first), run.format});
    }
    start = end;
  }
  if (result.runs.empty()) result.runs.push_back({{}, formatIn(paragraph, from)});
  return result;
}

/// Calls `visit(paragraph, start, end)` with the places of each paragraph, while it gives True.
template <class Visit>
void forEachParagraph(const RichText& text, Visit&& visit) {
  std::size_t start = 0;
  for (const Paragraph& paragraph : text.paragraphs) {
    const std::size_t end = start + lengthOf(paragraph);
    if (!visit(paragraph, start, end)) return;
    start = end + 1;
  }
}

struct Span {
  std::size_t start;
  std::size_t end;
};

/// Each mark is two bytes, in both spellings.
constexpr std::size_t markSize = 2;

bool isElement(std::string_view text) {
  const bool isDate = text.starts_with('(') && text.ends_with(')');
  return characterCount(text) <= (isDate ? longestTokenDate : longestTokenName);
}

bool isMark(std::string_view pair, std::string_view mark, std::string_view olderMark) {
  return pair == mark || pair == olderMark;
}

/// The bytes of all merge tokens in a paragraph's text.
std::vector<Span> tokensOf(std::string_view text) {
  std::vector<Span> tokens;
  constexpr std::size_t none = std::string_view::npos;
  std::size_t open = none;
  for (std::size_t at = 0; at + markSize <= text.size(); ++at) {
    const std::string_view pair = text.substr(at, markSize);
    if (isMark(pair, "\xC2\xAB", "<<")) {
      open = at;
    } else if (open != none && isMark(pair, "\xC2\xBB", ">>")) {
      const std::string_view element = text.substr(open + markSize, at - open - markSize);
      if (isElement(element)) tokens.push_back({open, at + markSize});
      open = none;
    }
  }
  return tokens;
}

/// Moves the ends of runs out of the tokens: the run in which a token starts takes it whole.
void takeTokensWhole(Paragraph& paragraph) {
  if (paragraph.runs.size() < 2) return;
  std::string text;
  for (const Run& run : paragraph.runs) text += run.text;
  const std::vector<Span> tokens = tokensOf(text);
  auto token = tokens.begin();
  std::size_t oldEnd = 0;
  std::size_t start = 0;
  for (Run& run : paragraph.runs) {
    oldEnd += run.text.size();
    while (token != tokens.end() && token->end <= oldEnd) ++token;
    std::size_t end = std::max(start, oldEnd);
    if (token != tokens.end() && token->start < end) end = token->end;
    run.text = text.substr(start, end - start);
    start = end;
  }
}

}  // namespace

std::size_t lengthOf(const Paragraph& paragraph) {
  std::size_t length = 0;
  for (const Run& run : paragraph.runs) length += characterCount(run.text);
  return length;
}

std::size_t lengthOf(const RichText& text) {
  std::size_t length = text.paragraphs.size() - 1;
  for (const Paragraph& paragraph : text.paragraphs) length += lengthOf(paragraph);
  return length;
}

RichText extract(const RichText& text, std::size_t from, std::size_t to) {
  const std::size_t length = lengthOf(text);
  from = std::min(from, length);
  to = std::clamp(to, from, length);
  RichText result{{}};
  forEachParagraph(text, [&](const Paragraph& paragraph, std::size_t start, std::size_t end) {
    if (end >= from && start <= to)
      result.paragraphs.push_back(
          slice(paragraph, std::max(from, start) - start, std::min(to, end) - start));
    return start <= to;
  });
  return result;
}

void append(RichText& text, RichText piece) {
  Paragraph& last = text.paragraphs.back();
  Paragraph& first = piece.paragraphs.front();
  if (last.isEmpty() && !first.isEmpty()) {
    last = std::move(first);
  } else {
    std::move(first.runs.begin(), first.runs.end(), std::back_inserter(last.runs));
  }
  tidyRuns(last);
  std::move(std::next(piece.paragraphs.begin()), piece.paragraphs.end(),
            std::back_inserter(text.paragraphs));
}

void replace(RichText& text, std::size_t from, std::size_t to, RichText piece) {
  RichText tail = extract(text, std::max(from, to), lengthOf(text));
  text = extract(text, 0, from);
  append(text, std::move(piece));
  append(text, std::move(tail));
}

CharacterFormat characterFormatAt(const RichText& text, std::size_t place) {
  return extract(text, place, place).paragraphs.front().runs.front().format;
}

ParagraphFormat paragraphFormatAt(const RichText& text, std::size_t place) {
  return extract(text, place, place).paragraphs.front().format;
}

RichText richTextOf(std::string_view plainText, const CharacterFormat& characters,
                    const ParagraphFormat& paragraph) {
  const Paragraph empty{paragraph, {{{}, characters}}};
  RichText result{{empty}};
  for (std::size_t at = 0; at < plainText.size();) {
    const Utf8Step step = utf8StepAt(plainText, at);
    const char c = plainText[at];
    at += step.length;
    std::string& text = result.paragraphs.back().runs.front().text;
    if (c == '\r' || c == '\n') {
      if (c == '\r' && plainText.substr(at).starts_with('\n')) ++at;
      result.paragraphs.push_back(empty);
    } else if (step.isWellFormed()) {
      if (c != '\0') text.append(plainText.substr(at - step.length, step.length));
    } else {
      appendUtf8(text, characterOfCodePage1252(static_cast<unsigned char>(c)));
    }
  }
  return result;
}

void tidyRuns(Paragraph& paragraph) {
  takeTokensWhole(paragraph);
  std::vector<Run> tidy;
  for (Run& run : paragraph.runs) {
    if (run.text.empty()) continue;
    if (!tidy.empty() && tidy.back().format == run.format) {
      tidy.back().text += run.text;
    } else {
      tidy.push_back(std::move(run));
    }
  }
  if (tidy.empty()) tidy.push_back(std::move(paragraph.runs.front()));
  paragraph.runs = std::move(tidy);
}

}  // namespace autonotify
