#pragma once

#include <string>
#include <string_view>

namespace autonotify {

/// True for a text that starts as RTF does ("{\rtf").
bool isRichText(std::string_view text);

/// The plain text of a rich text, UTF-8: paragraphs and lines end in a line feed, tabs stay, `\'hh`
/// is read in the declared code page (the font's, the document's, or else 1252), bare bytes as
/// UTF-8 where they are that and else in the code page, `\uN` with its fallback skipped, cells
/// separated by tabs and rows ended by a line feed, hidden text, pictures and `\*` destinations
/// left out but for the results of fields, rows of nested tables and texts of frames. The marker of
/// a list entry comes with one tab behind it, a bullet of a symbol font as "•". A text that is no
/// RTF comes back unchanged. Never fails: broken RTF gives what can be read, also between a brace
/// too many and the last one. Time is linear in the size.
std::string plainTextOf(std::string_view richText);

/// The text as RTF content: backslash and braces escaped, line ends as "\par \r\n", characters of
/// code page 1252 above 127 as `\'hh`, all others as `\uN?`.
std::string escapeForRichText(std::string_view plainText);

/// How the breaks of a text are spelled in RTF.
struct RichTextBreaks {
  std::string_view line;
  std::string_view tab;
};
/// Lines within a paragraph.
inline constexpr RichTextBreaks richTextLineBreaks{"\\line ", "\\tab "};
/// The same as above with these breaks.
std::string escapeForRichText(std::string_view plainText, const RichTextBreaks& breaks);

/// One character's byte in code page 1252, or -1 when it has none.
int codePage1252Of(char32_t character);
/// The character of a byte in code page 1252.
char32_t characterOfCodePage1252(unsigned char byte);

}  // namespace autonotify
