#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace autonotify {

// A rich text as people see it: paragraphs of runs. All texts are UTF-8.

/// Red in the lowest byte, then green, then blue.
using RichTextColor = std::int32_t;

enum class Script : std::uint8_t { normal, superscript, subscript };

/// How characters look. The defaults are those of a new text.
struct CharacterFormat {
  std::string font = "Arial";
  int halfPoints = 20;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strike = false;
  Script script = Script::normal;
  /// Unset: the colours of the window.
  std::optional<RichTextColor> color;
  std::optional<RichTextColor> background;

  bool operator==(const CharacterFormat&) const = default;
};

enum class Alignment : std::uint8_t { left, center, right, justified };
enum class TabAlignment : std::uint8_t { left, center, right, decimal };

struct TabStop {
  /// Twips from the left margin.
  int position = 0;
  TabAlignment alignment = TabAlignment::left;

  bool operator==(const TabStop&) const = default;
};

/// How a paragraph looks; measures are twips (1440 an inch).
struct ParagraphFormat {
  Alignment alignment = Alignment::left;
  int leftIndent = 0;
  int rightIndent = 0;
  int firstLineIndent = 0;
  int spaceBefore = 0;
  int spaceAfter = 0;
  std::vector<TabStop> tabStops;
  /// What stands before a list entry, such as "•" or "3."; empty for an ordinary paragraph. No part
  /// of the paragraph's characters.
  std::string marker;

  bool operator==(const ParagraphFormat&) const = default;
};

struct Run {
  /// A line feed is a line end within the paragraph.
  std::string text;
  CharacterFormat format;

  bool operator==(const Run&) const = default;
};

/// A paragraph has at least one run; a run without text stands in an empty paragraph alone.
struct Paragraph {
  ParagraphFormat format;
  std::vector<Run> runs{1};

  bool isEmpty() const { return runs.front().text.empty(); }
  bool operator==(const Paragraph&) const = default;
};

/// At least one paragraph. Every paragraph but the last is ended.
struct RichText {
  std::vector<Paragraph> paragraphs{1};

  bool operator==(const RichText&) const = default;
};

/// Reads an RTF text as plainTextOf does and with the formats besides. A text that is no RTF comes
/// as plain text in the default formats. Merge tokens are whole: see tidyRuns.
RichText readRichText(std::string_view rtf);

/// Compact RTF that reads back equal. Each paragraph's end is "\par \r\n", with nothing behind it
/// as long as the formats stay, so that a text of several paragraphs can be found in it;
/// characters are spelled as escapeForRichText does. Word processors, which count for themselves,
/// show the entries of lists with the markers that they have here.
std::string writeRichText(const RichText& text);

/// The plain text: list markers with a tab behind them, paragraphs and lines ended by line feeds.
/// Equals plainTextOf the RTF that the text was read from.
std::string plainTextOf(const RichText& text);

}  // namespace autonotify
