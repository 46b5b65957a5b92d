#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/richtext/RichText.h"

namespace autonotify {

// Places in a rich text are counted in characters from 0; the end of a paragraph counts one, list
// markers count nothing. Places behind the end mean the end. All functions are linear in the size.

/// The greatest place of the text, of the paragraph.
std::size_t lengthOf(const RichText& text);
std::size_t lengthOf(const Paragraph& paragraph);

/// The text from one place to another, with its formats.
RichText extract(const RichText& text, std::size_t from, std::size_t to);

/// Puts the piece behind the text: its first paragraph goes on with the text's last one, whose
/// paragraph format it takes unless that one is empty.
void append(RichText& text, RichText piece);

/// Puts the piece in place of what stands from one place to another.
void replace(RichText& text, std::size_t from, std::size_t to, RichText piece);

/// How a character typed at the place looks: as the one before it in the paragraph, otherwise as
/// the paragraph's first one.
CharacterFormat characterFormatAt(const RichText& text, std::size_t place);
ParagraphFormat paragraphFormatAt(const RichText& text, std::size_t place);

/// A text of one look. Every kind of line end ends a paragraph; a byte that is no UTF-8 becomes its
/// character in code page 1252, and NUL bytes are left out.
RichText richTextOf(std::string_view plainText, const CharacterFormat& characters = {},
                    const ParagraphFormat& paragraph = {});

/// The most characters between the marks of a merge token: of a name, and of a date's name and
/// format in brackets.
inline constexpr std::size_t longestTokenName = 40;
inline constexpr std::size_t longestTokenDate = 61;

/// Joins runs that look alike and leaves out empty ones. A merge token, from « to » or from << to
/// >> and no longer than a valid one, takes the format of its first character, so that no format
/// word stands inside it in the RTF.
void tidyRuns(Paragraph& paragraph);

/// Changes the look of what stands from one place to another: `change(CharacterFormat&)`.
template <class Change>
void changeCharacters(RichText& text, std::size_t from, std::size_t to, Change&& change) {
  RichText piece = extract(text, from, to);
  for (Paragraph& paragraph : piece.paragraphs)
    for (Run& run : paragraph.runs) change(run.format);
  replace(text, from, to, std::move(piece));
}

/// The same for each paragraph that the range touches: `change(ParagraphFormat&)`.
template <class Change>
void changeParagraphs(RichText& text, std::size_t from, std::size_t to, Change&& change) {
  std::size_t start = 0;
  for (Paragraph& paragraph : text.paragraphs) {
    const std::size_t end = start + lengthOf(paragraph);
    if (start <= to && end >= from) change(paragraph.format);
    start = end + 1;
  }
}

}  // namespace autonotify
