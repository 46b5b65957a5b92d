#pragma once

#include <array>
#include <random>
#include <string>

#include "platform/rich_text.h"
#include "platform/richtext/rich_text_edit.h"

namespace autonotify::test {

/// Makes any text, in the shape that tidyRuns gives.
class RandomRichText {
 public:
  explicit RandomRichText(unsigned seed) : random_(seed) {}

  RichText make() {
    RichText text{{}};
    for (int count = below(6); count >= 0; --count) text.paragraphs.push_back(paragraph());
    return text;
  }
  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

 private:
  Paragraph paragraph() {
    Paragraph result{{}, {}};
    result.format.alignment = static_cast<Alignment>(below(4));
    result.format.leftIndent = below(3) * 360;
    result.format.firstLineIndent = below(3) * -180;
    result.format.spaceAfter = below(3) * 120;
    for (int count = below(3); count > 0; --count)
      result.format.tabStops.push_back({below(9000), static_cast<TabAlignment>(below(4))});
    if (below(3) == 0)
      result.format.marker = std::array{"•", "1.", "2.", "a.", "(é)", "😀", "1\t;"}[below(7)];
    for (int count = below(5); count >= 0; --count) result.runs.push_back({words(), format()});
    tidyRuns(result);
    return result;
  }
  std::string words() {
    static const std::array pieces{"a",  " ", "\t", "\n", "é",    "«",  "»",
                                   "Ж",  "😀", "\\", "{",  "}b",   "<<", ">>",
                                   "-1", "€", ";",  "'",  "\x01", "x0", "\u00A0"};
    std::string result;
    for (int count = below(9); count > 0; --count)
      result += pieces[static_cast<std::size_t>(below(pieces.size()))];
    return result;
  }
  CharacterFormat format() {
    CharacterFormat result;
    result.font = std::array{"Arial", "Times New Roman", "Wingdings", "Ünï{code"}[below(4)];
    result.halfPoints = 16 + below(3) * 4;
    for (bool* flag : {&result.bold, &result.italic, &result.underline, &result.strike})
      *flag = below(3) == 0;
    result.script = static_cast<Script>(below(9) % 4 % 3);
    if (below(3) == 0) result.color = below(1 << 24);
    if (below(5) == 0) result.background = below(2);
    return result;
  }

  std::mt19937 random_;
};

}  // namespace autonotify::test
