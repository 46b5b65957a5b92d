#include <gtest/gtest.h>

#include <QTextCursor>

#include "host/mail/html_page.h"
#include "platform/text.h"
#include "qt_text.h"
#include "richtext/document_conversion.h"
#include "support/random_rich_text.h"

namespace autonotify::desktop {
namespace {

/// The lists have the bullets and the indents that the editor gives to its own.
RichText asEdited(RichText text) {
  for (Paragraph& paragraph : text.paragraphs) {
    ParagraphFormat& format = paragraph.format;
    if (format.marker.empty()) continue;
    format.marker = "\u2022";
    format.leftIndent = 720;
    format.firstLineIndent = -360;
  }
  return text;
}

TEST(Documents, KeepAllThatARichTextHolds) {
  QTextDocument document;
  for (unsigned round = 0; round < 300; ++round) {
    const RichText text = asEdited(test::RandomRichText(round).make());
    showRichText(document, text);
    ASSERT_EQ(plainTextOf(richTextOf(document)), plainTextOf(text)) << "round " << round;
    ASSERT_EQ(writeRichText(richTextOf(document)), writeRichText(text)) << "round " << round;
  }
}

/// What of a text a document can take from HTML: fonts' names are those that a style can hold, and
/// markers that make no list are words.
RichText asMailed(RichText text) {
  CharacterFormat usual;
  usual.font = replaceAll(text.paragraphs.front().runs.front().format.font, "{", "");
  usual.halfPoints = text.paragraphs.front().runs.front().format.halfPoints;
  for (Paragraph& paragraph : text.paragraphs) {
    auto& [format, runs] = paragraph;
    for (Run& run : runs) run.format.font = replaceAll(run.format.font, "{", "");
    const bool isEntry = format.marker == "•" || format.marker == "1." || format.marker == "2.";
    if (isEntry && format.alignment == Alignment::justified) format.alignment = Alignment::left;
    if (!isEntry) runs.insert(runs.begin(), {format.marker, usual});
  }
  return text;
}

/// How paragraphs are aligned, and how each character that is no blank looks.
std::string seenIn(RichText text) {
  for (Paragraph& paragraph : text.paragraphs) {
    const Alignment alignment = paragraph.format.alignment;
    paragraph.format = {};
    paragraph.format.alignment = alignment;
    for (Run& run : paragraph.runs)
      for (const char* blank : {" ", "\t", "\n", "\x01", "\u00A0", "\u2003"})
        run.text = replaceAll(run.text, blank, "");
    tidyRuns(paragraph);
    if (paragraph.isEmpty()) paragraph.runs = {1, Run{}};
  }
  return writeRichText(text);
}

TEST(Documents, ShowThePageOfAnEmailAsItsTextWasSeen) {
  QTextDocument document;
  for (unsigned round = 0; round < 300; ++round) {
    const RichText text = test::RandomRichText(round).make();
    document.setHtml(shown(host::pageOf(text)));
    ASSERT_EQ(seenIn(richTextOf(document)), seenIn(asMailed(text))) << host::pageOf(text);
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
