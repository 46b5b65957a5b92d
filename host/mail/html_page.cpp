#include "host/mail/html_page.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "host/mail/mail_message.h"

namespace autonotify::host {
namespace {

constexpr double twipsPerPoint = 20;
constexpr const char* noBreakSpace = "&nbsp;";

struct Escape {
  char byte;
  const char* text;
};
constexpr Escape escapes[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'\n', "<br>\n"}, {'\t', "&emsp;"}};

/// Of a font's name what cannot end the place where it stands.
std::string safeName(std::string_view font) {
  std::string name = cleanLine(font);
  std::erase_if(name, [](char byte) {
    constexpr std::string_view unsafe = "\"'\\<>&;:{}()";
    return unsafe.find(byte) != std::string_view::npos;
  });
  return name;
}

std::string colorText(RichTextColor color) {
  return fmt::format("#{:02x}{:02x}{:02x}", color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
}

std::string fontStyle(const CharacterFormat& format) {
  return fmt::format("font-family:'{}',sans-serif;font-size:{}pt", safeName(format.font),
                     format.halfPoints / 2.0);
}

/// In the order of Alignment.
constexpr std::array<const char*, 4> alignments{"left", "center", "right", "justify"};

const char* alignmentOf(const ParagraphFormat& format) {
  return alignments.at(static_cast<std::size_t>(format.alignment));
}

/// A list indents its entries by itself.
std::string paragraphStyle(const ParagraphFormat& format, bool isEntry) {
  const std::pair<const char*, int> measures[] = {
      {"margin-top", format.spaceBefore},
      {"margin-bottom", format.spaceAfter},
      {"margin-left", isEntry ? 0 : format.leftIndent},
      {"margin-right", format.rightIndent},
      {"text-indent", isEntry ? 0 : format.firstLineIndent}};
  std::string style = "margin:0";
  for (const auto& [name, twips] : measures)
    if (twips != 0) style += fmt::format(";{}:{}pt", name, twips / twipsPerPoint);
  if (format.alignment != Alignment::left)
    style += fmt::format(";text-align:{}", alignmentOf(format));
  return style;
}

/// What a paragraph is an entry of: a list of bullets, one of numbers, or none.
struct Entry {
  /// Empty for none.
  std::string_view list;
  int number = 0;
};

/// Other markers stand in the text, as they are.
Entry entryOf(const std::string& marker) {
  if (marker == "•") return {"ul"};
  Entry entry;
  const char* const end = marker.data() + marker.size();
  const auto [stop, error] = std::from_chars(marker.data(), end, entry.number);
  const bool isNumber = error == std::errc() && stop + 1 == end && *stop == '.';
  return isNumber && entry.number > 0 ? Entry{"ol", entry.number} : Entry{};
}

class PageWriter {
 public:
  /// The page has the font that the text begins with.
  explicit PageWriter(const RichText& text) : usual_(text.paragraphs.front().runs.front().format) {
    html_ = fmt::format(
        "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"></head>\n<body style=\"{}\">\n",
        fontStyle(usual_));
  }

  void add(const Paragraph& paragraph) {
    const Entry entry = entryOf(paragraph.format.marker);
    enter(entry.list);
    const std::string style = paragraphStyle(paragraph.format, !entry.list.empty());
    if (entry.list.empty()) {
      // Older programs know the attribute alone.
      const char* alignment = alignmentOf(paragraph.format);
      html_ += fmt::format("<p align=\"{}\" style=\"{}\">", alignment, style);
    } else {
      const std::string number = entry.number ? fmt::format(" value=\"{}\"", entry.number) : "";
      html_ += fmt::format("<li{} style=\"{}\">", number, style);
    }
    addContent(paragraph, entry);
    html_ += entry.list.empty() ? "</p>\n" : "</li>\n";
  }

  std::string finish() {
    enter({});
    return std::move(html_) + "</body></html>\n";
  }

 private:
  void enter(std::string_view list) {
    if (list == list_) return;
    if (!list_.empty()) html_ += fmt::format("</{}>\n", list_);
    if (!list.empty()) html_ += fmt::format("<{} style=\"margin:0\">\n", list);
    list_ = list;
  }

  void addContent(const Paragraph& paragraph, const Entry& entry) {
    isBehindBlank_ = true;
    const std::string& marker = paragraph.format.marker;
    if (entry.list.empty() && !marker.empty()) html_ += escaped(marker + '\t');
    for (const Run& run : paragraph.runs) addRun(run);
    // An empty paragraph would take no room, and neither would a line end that is the last.
    if (paragraph.isEmpty() || paragraph.runs.back().text.ends_with('\n')) html_ += "<br>";
  }

  void addRun(const Run& run) {
    const CharacterFormat& format = run.format;
    const std::pair<bool, const char*> elements[] = {{format.bold, "b"},
                                                     {format.italic, "i"},
                                                     {format.underline, "u"},
                                                     {format.strike, "s"},
                                                     {format.script == Script::superscript, "sup"},
                                                     {format.script == Script::subscript, "sub"}};
    std::string html = escaped(run.text);
    if (html.empty()) return;
    for (const auto& [isOn, name] : elements)
      if (isOn) html = fmt::format("<{0}>{1}</{0}>", name, html);
    const std::string style = styleOf(format);
    html_ += style.empty() ? html : fmt::format("<span style=\"{}\">{}</span>", style, html);
  }

  /// What the page does not say already.
  std::string styleOf(const CharacterFormat& format) const {
    std::string style;
    const auto add = [&](const std::string& rule) { style += (style.empty() ? "" : ";") + rule; };
    const bool isUsual = format.font == usual_.font && format.halfPoints == usual_.halfPoints;
    if (!isUsual) add(fontStyle(format));
    if (format.color) add("color:" + colorText(*format.color));
    if (format.background) add("background-color:" + colorText(*format.background));
    return style;
  }

  /// Blanks that a browser would take for one are kept apart.
  std::string escaped(std::string_view text) {
    std::string html;
    for (const char byte : cleanText(text)) {
      const auto* escape = std::ranges::find(escapes, byte, &Escape::byte);
      if (escape != std::end(escapes)) {
        html += escape->text;
      } else if (byte == ' ' && isBehindBlank_) {
        html += noBreakSpace;
      } else {
        html += byte;
      }
      isBehindBlank_ = byte == ' ' || byte == '\n' || byte == '\t';
    }
    return html;
  }

  const CharacterFormat& usual_;
  std::string html_;
  /// The one that is open; empty for none.
  std::string_view list_;
  bool isBehindBlank_ = true;
};

}  // namespace

std::string pageOf(const RichText& text) {
  PageWriter page(text);
  for (const Paragraph& paragraph : text.paragraphs) page.add(paragraph);
  return page.finish();
}

}  // namespace autonotify::host
