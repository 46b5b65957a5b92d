#include <gtest/gtest.h>

#include "platform/controls/RichTextBox.h"
#include "platform/rich_text.h"
#include "platform/text.h"

namespace autonotify {
namespace {

constexpr const char* letter =
    "{\\rtf1\\ansi{\\fonttbl{\\f0 Times;}}\\qc\\b\\f0\\fs24 Zo\\'e9\\b0\\par {\\pntext "
    "o\\tab}b\\par}";

class RichTextBoxTest : public testing::Test {
 protected:
  RichTextBoxTest() {
    box.setTextRTF(letter);
    box.onChange = [this] { ++changes; };
    box.onRender = [this](Aspect aspect) { rendered += aspect == Aspect::value; };
  }

  CharacterFormat formatOf(std::size_t paragraph, std::size_t run = 0) const {
    return box.content().paragraphs.at(paragraph).runs.at(run).format;
  }

  RichTextBox box;
  int changes = 0, rendered = 0;
};

TEST_F(RichTextBoxTest, plainTextHasLinesAndMarkers) {
  EXPECT_EQ(box.text(), "Zoé\r\no\tb\r\n");
  box.setText("one\ntwo\r\nthree");
  EXPECT_EQ(box.text(), "one\r\ntwo\r\nthree");
  EXPECT_EQ(formatOf(2).font, "Times");
  EXPECT_TRUE(formatOf(2).bold);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(rendered, 1);
  box.setTextRTF(box.textRTF());
  EXPECT_EQ(changes, 1);
  box.setTextRTF("plain");
  EXPECT_EQ(box.text(), "plain");
  box.setTextRTF("");
  EXPECT_EQ(box.text(), "");
}

TEST_F(RichTextBoxTest, placesAreCharacters) {
  box.select(2, 3);
  EXPECT_EQ(box.selectedText(), "é\r\nb");
  box.replaceSelection("e!");
  EXPECT_EQ(box.text(), "Zoe!\r\n");
  EXPECT_EQ(box.selStart(), 4u);
  EXPECT_EQ(box.selLength(), 0u);
  box.insertTextAt("x", 0);
  box.insertTextAt("y\r\nz", 99);
  EXPECT_EQ(box.text(), "xZoe!\r\ny\r\nz");
  EXPECT_EQ(box.selStart(), 9u);
  EXPECT_TRUE(formatOf(0).bold);
  EXPECT_FALSE(formatOf(1).bold);
  EXPECT_EQ(box.content().paragraphs[0].runs.size(), 1u);
  EXPECT_EQ(changes, 3);
}

TEST_F(RichTextBoxTest, formatsGoToTheSelectionAlone) {
  box.formatSelection([](CharacterFormat& format) { format.italic = true; });
  EXPECT_EQ(changes, 0);
  box.select(1, 1);
  box.formatSelection([](CharacterFormat& format) { format.italic = true; });
  ASSERT_EQ(box.content().paragraphs[0].runs.size(), 3u);
  EXPECT_TRUE(formatOf(0, 1).italic && !formatOf(0, 2).italic);
  EXPECT_EQ(box.selectedText(), "o");
  box.select(4);
  box.formatParagraphs([](ParagraphFormat& format) { format.marker = "•"; });
  EXPECT_EQ(box.text(), "Zoé\r\n•\tb\r\n");
  EXPECT_EQ(box.content().paragraphs[0].format.alignment, Alignment::center);
  EXPECT_EQ(changes, 2);
}

TEST_F(RichTextBoxTest, aHeadingIsFoundAgainWhereItWasPutIn) {
  const std::string heading =
      " May 1, 2026\r\n\r\nAcmé Ltd.\r\n1 Main St.\r\n\r\nDear Zoé,\r\n\r\n";
  const std::string inRtf = replaceAll(heading, "\r\n", "\\par \r\n");
  for (const char* body : {" ", letter, "{\\rtf1\\ansi\\pard\\li20\\b\\par \\i x}"}) {
    box.setTextRTF(body);
    const RichText before = box.content();
    box.insertTextAt(heading, 0);
    EXPECT_TRUE(box.text().starts_with(heading));
    EXPECT_TRUE(box.removeRichText(lowerCase(inRtf)));
    EXPECT_EQ(box.content(), before) << box.textRTF();
    EXPECT_FALSE(box.removeRichText(inRtf));
    EXPECT_FALSE(box.removeRichText(""));
    EXPECT_EQ(box.content(), before);
  }
}

TEST_F(RichTextBoxTest, aBlankThatEndsAControlWordIsNoPartOfAHeading) {
  for (const char* body :
       {"{\\rtf1\\ansi\\b May 1\\par and more}", "{\\rtf1\\ansi\\fs20 May 1\\par 2026}"}) {
    box.setTextRTF(body);
    const RichText before = box.content();
    EXPECT_FALSE(box.removeRichText(" May 1\\par \r\n"));
    EXPECT_FALSE(box.removeRichText("b May"));
    EXPECT_EQ(box.content(), before);
    EXPECT_TRUE(box.removeRichText("May 1\\par \r\n"));
    EXPECT_FALSE(box.text().starts_with("May"));
  }
}

TEST_F(RichTextBoxTest, whatAPersonDoesIsNotDrawnAgain) {
  RichText edited = box.content();
  edited.paragraphs.pop_back();
  box.acceptContent(edited);
  box.acceptContent(edited);
  box.acceptSelection(1, 1);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(rendered, 0);
  EXPECT_EQ(box.selectedText(), "o");
  EXPECT_TRUE(box.acceptText("Zoé\r\no\tb"));
  EXPECT_EQ(changes, 1);
  EXPECT_TRUE(box.acceptText("typed"));
  EXPECT_EQ(box.text(), "typed");
  EXPECT_EQ(changes, 2);
}

}  // namespace
}  // namespace autonotify
