#include "platform/controls/RichTextBox.h"

#include <functional>
#include <map>

#include "platform/rich_text.h"
#include "support/text_table.h"

namespace autonotify {
namespace {

constexpr const char* boxScripts = "rich_text_boxes.txt";
constexpr const char* letter =
    "{\\rtf1\\ansi{\\fonttbl{\\f0 Times;}}\\qc\\b\\f0\\fs24 Zo\\'e9\\b0\\par {\\pntext "
    "o\\tab}b\\par}";

class RichTextBoxTest : public testing::Test {
 protected:
  RichTextBoxTest() {
    box.setTextRTF(letter);
    box.onChange = [this] { ++changes; };
    box.onRender = [this](Aspect aspect) { drawn += aspect == Aspect::value; };
  }

  RichTextBox box;
  int changes = 0, drawn = 0;
};

/// Scripts of rich_text_boxes.txt, each row an act or a look, what it is about, and what it gives.
class RichTextBoxScripts : public RichTextBoxTest,
                           public testing::WithParamInterface<std::vector<std::string>> {
 protected:
  std::string look(std::size_t paragraph, std::size_t run) const {
    const Paragraph& held = box.content().paragraphs.at(paragraph);
    const CharacterFormat& format = held.runs.at(run).format;
    return std::string(held.format.alignment == Alignment::center ? "center " : "") +
           (format.bold ? "bold " : "") + (format.italic ? "italic " : "") + format.font;
  }
  std::string outcome(const std::vector<std::string>& told) {
    const std::string& text = told[1];
    const auto number = [&](std::size_t cell) { return std::stoul(told[cell]); };
    const std::map<std::string, std::function<std::string()>> acts = {
        {"set rtf", [&] { return box.setTextRTF(text), ""; }},
        {"set rtf again", [&] { return box.setTextRTF(box.textRTF()), ""; }},
        {"set text", [&] { return box.setText(text), ""; }},
        {"select", [&] { return box.select(number(1), number(2)), ""; }},
        {"replace", [&] { return box.replaceSelection(text), ""; }},
        {"insert", [&] { return box.insertTextAt(text, number(2)), ""; }},
        {"italic", [&] { return box.formatSelection([](auto& look) { look.italic = true; }), ""; }},
        {"bullet", [&] { return box.formatParagraphs([](auto& look) { look.marker = "•"; }), ""; }},
        {"person selects", [&] { return box.acceptSelection(number(1), number(2)), ""; }},
        {"person types", [&] { return box.acceptText(text) ? "" : "refused"; }},
        {"text", [&] { return box.text(); }},
        {"selected", [&] { return box.selectedText(); }},
        {"caret",
         [&] { return std::to_string(*box.selStart()) + " " + std::to_string(box.selLength()); }},
        {"look", [&] { return look(number(1), number(2)); }},
        {"runs", [&] { return std::to_string(box.content().paragraphs[number(1)].runs.size()); }},
        {"changes", [&] { return std::to_string(changes); }},
        {"drawn", [&] { return std::to_string(drawn); }}};
    return acts.at(told[0])();
  }
};

TEST_P(RichTextBoxScripts, GiveWhatTheyTell) {
  for (const auto& told : test::rowsOf(boxScripts, GetParam()[0], 4))
    EXPECT_EQ(outcome(told), told[3]) << told[0] << " " << told[1];
}

INSTANTIATE_TEST_SUITE_P(RichTextBoxes, RichTextBoxScripts,
                         testing::ValuesIn(test::rowsOf(boxScripts, "scripts", 1)));

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

TEST_F(RichTextBoxTest, whatAPersonEditsIsNotDrawnAgain) {
  RichText edited = box.content();
  edited.paragraphs.pop_back();
  for (int i = 0; i < 2; ++i) box.acceptContent(edited);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(drawn, 0);
}

}  // namespace
}  // namespace autonotify
