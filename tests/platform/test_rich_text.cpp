#include <gmock/gmock.h>

#include <regex>

#include "platform/rich_text.h"
#include "platform/richtext/rich_text_edit.h"
#include "platform/rtf_reader.h"
#include "support/random_rich_text.h"
#include "support/text_table.h"

namespace autonotify {
namespace {

using test::expectRows;
using test::rowsOf;

constexpr const char* file = "rich_texts.txt";

/// The plain text of a document with this body.
std::string bodyText(const std::string& body) {
  return plainTextOf("{\\rtf1\\ansi " + body + "}");
}

std::string repeated(const std::string& piece, std::size_t count) {
  return replaceAll(std::string(count, '.'), ".", piece);
}

TEST(RichText, tellsItsOwnKind) {
  EXPECT_TRUE(isRichText("{\\rtf1}"));
  for (const char* text : {"", "{", "{\\rt", "plain", " {\\rtf1}", "{\\RTF1}"})
    EXPECT_FALSE(isRichText(text));
}

TEST(RichText, givesThePlainTextOfWhatCanBeRead) {
  const auto after = [](const char* head) {
    return [head](const std::string& rtf) { return plainTextOf(head + rtf); };
  };
  expectRows(file, "of a whole text", after(""));
  expectRows(file, "texts", after("{\\rtf1\\ansi "));
  expectRows(file, "of a code page", after("{\\rtf1\\ansi\\ansicpg"));
}

TEST(RichText, escapes) {
  expectRows(file, "escapes", [](auto& text) { return escapeForRichText(text); });
}

TEST(RichText, everyCharacterReadsBackFromItsEscape) {
  for (char32_t c = 1; c <= 0x10FFFF; c += c < 0x3000 ? 1 : 61) {
    if (c == U'\r' || (c >= 0xD800 && c < 0xE000)) continue;
    std::string text = "<";
    appendUtf8(text, c);
    text += '>';
    ASSERT_EQ(bodyText(escapeForRichText(text)), text) << static_cast<std::uint32_t>(c);
  }
}

TEST(RichText, deepNestingAndLongInputsAreNoTrouble) {
  constexpr std::size_t deep = 100'000;
  EXPECT_EQ(bodyText(repeated("{\\*", deep) + "a" + repeated("}", deep) + "b"), "b");
  EXPECT_EQ(bodyText(repeated("\\'", deep)), "");
  EXPECT_EQ(bodyText("\\u8364" + repeated("9", deep) + "?a"), "\uFFFDa");
  EXPECT_EQ(bodyText("\\" + repeated("w", deep) + " a"), "a");
}

/// The tokens as a word each: "{", "}", "w:par", "w:fs=20", "s:~", "x:e9", "t:text", "b:bytes".
std::string tokensOf(std::string_view rtf) {
  std::string result;
  RtfReader reader(rtf);
  for (RtfToken token = reader.next(); token.kind != RtfToken::Kind::end; token = reader.next()) {
    const char* const marks[] = {"", "", "w:", "s:", "x:", "t:", "b:"};
    if (!result.empty()) result += ' ';
    result += marks[static_cast<int>(token.kind)];
    result += token.text;
    if (token.kind == RtfToken::Kind::word && token.hasParameter)
      result += '=' + std::to_string(token.parameter);
  }
  return result;
}
TEST(RtfReader, splitsATextIntoTokens) {
  expectRows(file, "tokens", tokensOf);
}

TEST(RtfReader, tokensOfAnyBytesLieInTheTextOneBehindTheOther) {
  constexpr std::string_view alphabet("\\{}'* \r\n\0abinu-19\xE9", 19);
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round) {
    std::string rtf;
    while (rtf.size() < 24) rtf += alphabet[random() % alphabet.size()];
    RtfReader reader(rtf);
    const char* passed = rtf.data();
    for (RtfToken token = reader.next(); token.kind != RtfToken::Kind::end; token = reader.next()) {
      if (token.kind == RtfToken::Kind::symbol) continue;
      ASSERT_GE(token.text.data(), passed) << rtf;
      passed = token.text.data() + token.text.size();
      ASSERT_LE(passed, rtf.data() + rtf.size()) << rtf;
    }
    ASSERT_EQ(reader.next().kind, RtfToken::Kind::end);
  }
}

constexpr const char* formattedTexts = "formatted_texts.txt";

/// What differs from the standard look, such as "[b,fs24,Symbol]text"; paragraphs end in "|".
std::string shownFormat(const CharacterFormat& format) {
  std::string words;
  const auto add = [&](bool isThere, const std::string& word) {
    if (isThere) words += (words.empty() ? "" : ",") + word;
  };
  add(format.bold, "b");
  add(format.italic, "i");
  add(format.underline, "ul");
  add(format.strike, "strike");
  add(format.script == Script::superscript, "super");
  add(format.script == Script::subscript, "sub");
  add(format.halfPoints != 20, "fs" + std::to_string(format.halfPoints));
  add(format.color.has_value(), "cf" + std::to_string(format.color.value_or(0)));
  add(format.background.has_value(), "cb" + std::to_string(format.background.value_or(0)));
  add(format.font != "Arial", format.font);
  return words.empty() ? "" : "[" + words + "]";
}

std::string shownFormat(const ParagraphFormat& format) {
  std::string words = std::array{"", "qc ", "qr ", "qj "}[static_cast<int>(format.alignment)];
  const auto add = [&](const char* name, int measure) {
    if (measure != 0) words += name + std::to_string(measure) + " ";
  };
  add("li", format.leftIndent);
  add("ri", format.rightIndent);
  add("fi", format.firstLineIndent);
  add("sb", format.spaceBefore);
  add("sa", format.spaceAfter);
  for (const TabStop& stop : format.tabStops)
    add(std::array{"tx", "tqc", "tqr", "tqdec"}[static_cast<int>(stop.alignment)], stop.position);
  return words + (format.marker.empty() ? "" : "(" + format.marker + ") ");
}

std::string shown(const RichText& text) {
  std::string result;
  for (const Paragraph& paragraph : text.paragraphs) {
    if (&paragraph != &text.paragraphs.front()) result += "|";
    result += shownFormat(paragraph.format);
    for (const Run& run : paragraph.runs) result += shownFormat(run.format) + run.text;
  }
  return result;
}

/// The one text that all ways give: the document's, the parser's and that of the text rewritten.
void expectRoundTrip(const std::string& rtf) {
  const RichText text = readRichText(rtf);
  const std::string written = writeRichText(text);
  ASSERT_EQ(readRichText(written), text) << rtf << "\n" << written;
  ASSERT_EQ(plainTextOf(text), plainTextOf(rtf)) << rtf;
  ASSERT_EQ(plainTextOf(written), plainTextOf(rtf)) << rtf << "\n" << written;
}
const std::string head =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\froman "
    "Times;}{\\f2\\fnil\\fcharset2 Symbol;}{\\f3\\fcharset204 Arial \\'d6{\\*\\falt Arial};}}"
    "{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green128\\blue1;}\\fs20 ";

TEST(RichTextDocument, readsAndWritesWhatProgramsWrite) {
  const auto shownBack = [](const std::string& rtf) {
    expectRoundTrip(rtf);
    return shown(readRichText(rtf));
  };
  expectRows(formattedTexts, "whole texts", shownBack);
  expectRows(formattedTexts, "bodies", [&](auto& body) { return shownBack(head + body + "}"); });
}

TEST(RichTextDocument, mergeTokensStayWhole) {
  for (const auto& row : rowsOf(formattedTexts, "merge tokens", 2)) {
    const std::string written = writeRichText(readRichText(head + row[0] + "}"));
    EXPECT_NE(written.find(row[1]), std::string::npos) << written;
    EXPECT_EQ(plainTextOf(written), plainTextOf(head + row[0] + "}"));
  }
  // A character more than the longest name, the longest date: a quotation.
  const std::string name(40, 'n');
  for (const std::string& quoted :
       {name + "{\\b !}", "(" + name + std::string(20, '.') + "{\\b )}"})
    EXPECT_EQ(readRichText(head + "<<" + quoted + ">>}").paragraphs[0].runs.size(), 3u) << quoted;
}

/// How lists of these markers are written: how word processors make the markers of each list (the
/// way of counting, the start, the text, the place of the number in it), then the paragraphs'
/// lists.
std::string writtenLists(const std::string& markers) {
  RichText text{{}};
  for (const std::string& marker : test::split(markers))
    text.paragraphs.emplace_back().format.marker = marker;
  const std::string rtf = writeRichText(text);
  EXPECT_EQ(readRichText(rtf), text) << rtf;
  static const std::regex parts(
      R"(levelnfc(\d+)\\levelstart(at\d+).*?text(.*?);\}\{\\levelnumbers(.*?);|\\ls(\d+)(?=\{))");
  return std::regex_replace(rtf, parts, "$1$2$3$4$5 ", std::regex_constants::format_no_copy);
}

TEST(RichTextDocument, listsCountAsTheirMarkersDo) {
  expectRows(formattedTexts, "lists", writtenLists);
  const RichText raised = readRichText("{\\rtf1\\super a\\par{\\pntext (c)\\tab}b}");
  EXPECT_THAT(
      writeRichText(raised),
      testing::HasSubstr(R"(\nosupersub\pard{\*\pn\pnlvlbody\pnlcltr\pnstart3\pnf0{\pntxtb )"
                         R"((}{\pntxta )}}\ls1{\pntext\f0 (c)\tab}\super b})"));
}

TEST(RichTextDocument, anyDocumentReadsBackEqual) {
  for (unsigned seed = 0; seed < 3000; ++seed) {
    const RichText text = test::RandomRichText(seed).make();
    const std::string rtf = writeRichText(text);
    ASSERT_EQ(readRichText(rtf), text) << seed << "\n" << rtf;
    ASSERT_EQ(plainTextOf(rtf), plainTextOf(text)) << seed;
    ASSERT_EQ(writeRichText(readRichText(rtf)), rtf) << seed;
  }
}

/// Characters with their look, one by one: what the edits must agree with.
using Flat = std::vector<std::string>;
Flat flat(const RichText& text) {
  Flat result;
  for (const Paragraph& paragraph : text.paragraphs) {
    if (&paragraph != &text.paragraphs.front()) result.push_back("\n");
    for (const Run& run : paragraph.runs)
      for (std::size_t at = 0; at < characterCount(run.text); ++at)
        result.push_back(shown(extract({{{{}, {run}}}}, at, at + 1)));
  }
  return result;
}

/// Marks would join the looks of what an edit brings together.
RichText withoutMarks(RichText text) {
  for (Paragraph& paragraph : text.paragraphs) {
    for (Run& run : paragraph.runs)
      for (const char* mark : {"«", "»", "<<", ">>"}) run.text = replaceAll(run.text, mark, "m");
    tidyRuns(paragraph);
  }
  return text;
}

TEST(RichTextDocument, editsAgreeWithCharactersInARow) {
  for (unsigned seed = 0; seed < 1000; ++seed) {
    test::RandomRichText random(seed);
    RichText text = withoutMarks(random.make());
    Flat expected = flat(text);
    ASSERT_EQ(expected.size(), lengthOf(text)) << seed;
    const int length = static_cast<int>(expected.size());
    const int from = random.below(length + 1);
    const int to = from + random.below(length - from + 1);
    const RichText piece = richTextOf("x\r\nÿ", characterFormatAt(text, std::size_t(from)));
    const Flat inserted = flat(piece);
    expected.erase(expected.begin() + from, expected.begin() + to);
    expected.insert(expected.begin() + from, inserted.begin(), inserted.end());
    replace(text, static_cast<std::size_t>(from), static_cast<std::size_t>(to), piece);
    ASSERT_EQ(flat(text), expected) << seed;
  }
}

TEST(RichTextDocument, aTextCutAnywhereIsReadAsFarAsItGoes) {
  for (const auto& row : rowsOf(formattedTexts, "whole texts", 1))
    for (std::size_t length = 0; length <= row[0].size(); ++length)
      if (isRichText(row[0].substr(0, length))) expectRoundTrip(row[0].substr(0, length));
}

TEST(RichTextDocument, deepNestingIsNoTrouble) {
  constexpr std::size_t deep = 100'000;
  std::string rtf = head;
  for (std::size_t i = 0; i < deep; ++i) rtf += i % 2 ? "{\\b " : "{\\i\\tx9 ";
  EXPECT_EQ(shown(readRichText(rtf + "a" + std::string(deep, '}') + "c}")), "[b,i]ac");
  rtf = head;
  for (std::size_t i = 0; i < deep; ++i) rtf += i % 2 ? "{\\b a" : "{\\b0 a";
  const RichText text = readRichText(rtf);
  EXPECT_EQ(text.paragraphs.front().runs.size(), deep);
  EXPECT_EQ(readRichText(writeRichText(text)), text);
}

}  // namespace
}  // namespace autonotify
