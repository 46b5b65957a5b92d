#include "platform/controls/RichTextBox.h"

#include <algorithm>
#include <utility>

#include "platform/rich_text.h"
#include "platform/richtext/rich_text_edit.h"
#include "platform/text.h"

namespace autonotify {
namespace {

std::string withCarriageReturns(const std::string& text) {
  return replaceAll(text, "\n", "\r\n");
}

/// Spells the characters above ASCII as the RTF does, and leaves all others alone.
std::string withEscapedCharacters(std::string_view piece) {
  std::string result;
  while (!piece.empty()) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    const auto end = std::find_if_not(piece.begin(), piece.end(), isAscii);
    const auto next = std::find_if(end, piece.end(), isAscii);
    result.append(piece.begin(), end).append(escapeForRichText({end, next}));
    piece = {next, piece.end()};
  }
  return result;
}

/// Whether the place lies within a control word or right behind one, where a blank is no text.
bool isInControlWord(std::string_view rtf, std::size_t place) {
  const auto skipBack = [&](auto&& isPart) {
    while (place > 0 && isPart(rtf[place - 1])) --place;
  };
  skipBack([](char c) { return isAsciiDigit(c) || c == '-'; });
  skipBack(isAsciiLetter);
  const std::size_t wordBegin = place;
  skipBack([](char c) { return c == '\\'; });
  return (wordBegin - place) % 2 == 1;
}

/// The first place where the RTF has the piece as text, in any case; npos for none.
std::size_t findPiece(std::string_view rtf, std::string_view piece) {
  const std::string folded = lowerCase(rtf);
  const std::string sought = lowerCase(piece);
  std::size_t at = folded.find(sought);
  while (at != std::string::npos && isInControlWord(rtf, at)) at = folded.find(sought, at + 1);
  return at;
}

}  // namespace

std::string RichTextBox::text() const {
  return withCarriageReturns(plainTextOf(content_));
}

void RichTextBox::setText(std::string_view plainText) {
  setContent(richTextOf(plainText, characterFormatAt(content_, 0)));
}

void RichTextBox::setContent(RichText content) {
  acceptSelection(0);
  if (change(content_, std::move(content), Aspect::value)) raise(onChange);
}

void RichTextBox::select(std::size_t start, std::size_t length) {
  acceptSelection(start, length);
  render(Aspect::value);
}

std::string RichTextBox::selectedText() const {
  RichText selected = extract(content_, selection().start, selection().end);
  for (Paragraph& paragraph : selected.paragraphs) paragraph.format.marker.clear();
  return withCarriageReturns(plainTextOf(selected));
}

void RichTextBox::insertTextAt(std::string_view plainText, std::size_t place) {
  putText(plainText, {place, place});
}

void RichTextBox::replaceSelection(std::string_view plainText) {
  putText(plainText, selection());
}

void RichTextBox::putText(std::string_view plainText, Range range) {
  range.start = std::min(range.start, lengthOf(content_));
  RichText piece = richTextOf(plainText, characterFormatAt(content_, range.start),
                              paragraphFormatAt(content_, range.start));
  acceptSelection(range.start + lengthOf(piece));
  replace(content_, range.start, range.end, std::move(piece));
  showChange();
}

void RichTextBox::formatSelection(const std::function<void(CharacterFormat&)>& change) {
  if (selLength_ == 0) return;
  changeCharacters(content_, selection().start, selection().end, change);
  showChange();
}

void RichTextBox::formatParagraphs(const std::function<void(ParagraphFormat&)>& change) {
  changeParagraphs(content_, selection().start, selection().end, change);
  showChange();
}

bool RichTextBox::removeRichText(std::string_view piece) {
  const std::string rtf = textRTF();
  const std::string sought = withEscapedCharacters(piece);
  const std::size_t at = findPiece(rtf, sought);
  if (sought.empty() || at == std::string::npos) return false;
  setTextRTF(rtf.substr(0, at) + rtf.substr(at + sought.size()));
  return true;
}

bool RichTextBox::acceptText(const std::string& plainText) {
  if (plainText != text()) setText(plainText);
  return true;
}

void RichTextBox::acceptContent(RichText content) {
  if (content == content_) return;
  content_ = std::move(content);
  raise(onChange);
}

void RichTextBox::acceptSelection(std::optional<std::size_t> start, std::size_t length) {
  selStart_ = start;
  selLength_ = length;
}

void RichTextBox::showChange() {
  render(Aspect::value);
  raise(onChange);
}

}  // namespace autonotify
