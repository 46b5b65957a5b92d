#include <gtest/gtest.h>

#include <QTextCursor>
#include <random>

#include "richtext/document_conversion.h"

namespace autonotify::desktop {
namespace {

/// Any text that the editor can show: formats, alignments, tabs, lists of two kinds.
RichText randomText(std::mt19937& random) {
  const auto pick = [&](int below) {
    return static_cast<int>(random() % static_cast<unsigned>(below));
  };
  const char* words[] = {"Hello ", "«Name» ", "é—😀", "a\nb", "\tx"};
  const char* fonts[] = {"Arial", "Courier New", "Times New Roman"};
  RichText text;
  text.paragraphs.clear();
  for (int count = 1 + pick(6); count > 0; --count) {
    Paragraph paragraph;
    paragraph.format.alignment = static_cast<Alignment>(pick(4));
    paragraph.format.spaceAfter = pick(3) * 120;
    if (pick(3) == 0) paragraph.format.tabStops = {{1440, TabAlignment::right}, {2880}};
    if (pick(3) == 0) {
      paragraph.format.marker = "\u2022";
      paragraph.format.leftIndent = 720;
      paragraph.format.firstLineIndent = -360;
    } else {
      paragraph.format.leftIndent = pick(3) * 600;
    }
    paragraph.runs.clear();
    for (int runs = 1 + pick(3); runs > 0; --runs) {
      CharacterFormat format;
      // Neighbours differ, or they would be one.
      format.halfPoints = 16 + 2 * runs;
      format.font = fonts[pick(3)];
      format.bold = pick(2);
      format.italic = pick(2);
      format.underline = pick(2);
      format.strike = pick(2);
      format.script = static_cast<Script>(pick(3));
      if (pick(2)) format.color = pick(0x1000000);
      if (pick(2)) format.background = pick(0x1000000);
      paragraph.runs.push_back({words[pick(5)], format});
    }
    text.paragraphs.push_back(paragraph);
  }
  return text;
}

TEST(Documents, KeepAllThatARichTextHolds) {
  std::mt19937 random(7);
  QTextDocument document;
  for (int round = 0; round < 300; ++round) {
    const RichText text = randomText(random);
    showRichText(document, text);
    ASSERT_EQ(plainTextOf(richTextOf(document)), plainTextOf(text)) << "round " << round;
    ASSERT_EQ(writeRichText(richTextOf(document)), writeRichText(text)) << "round " << round;
  }
}

TEST(Documents, ShowEmptyAndNumberedParagraphs) {
  QTextDocument document;
  showRichText(document, {});
  EXPECT_EQ(richTextOf(document), RichText{});
  RichText list;
  list.paragraphs.resize(3);
  list.paragraphs[0].format.marker = "1.";
  list.paragraphs[1].format.marker = "2.";
  list.paragraphs[2].runs[0].text = "no entry";
  showRichText(document, list);
  const RichText back = richTextOf(document);
  EXPECT_EQ(back.paragraphs[0].format.marker, "1.");
  EXPECT_EQ(back.paragraphs[1].format.marker, "2.");
  EXPECT_EQ(back.paragraphs[2].format.marker, "");
}

TEST(Documents, CountCharactersAsTheComponentDoes) {
  QTextDocument document;
  document.setPlainText(QString::fromUtf8("a😀b\nc"));
  const int positions[] = {0, 1, 3, 4, 5, 6};
  for (std::size_t place = 0; place < std::size(positions); ++place) {
    EXPECT_EQ(positionOf(document, place), positions[place]);
    EXPECT_EQ(placeOf(document, positions[place]), place);
  }
  EXPECT_EQ(positionOf(document, 100), 6);
}

}  // namespace
}  // namespace autonotify::desktop
