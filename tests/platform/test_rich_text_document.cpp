// Rich texts with their formats: reading, writing, cutting and putting together.
#include <gmock/gmock.h>

#include <random>
#include <regex>
#include <string>
#include <vector>

#include "platform/rich_text.h"
#include "platform/richtext/rich_text_edit.h"
#include "platform/text.h"

namespace autonotify {
namespace {

using Cases = std::vector<std::pair<std::string, std::string>>;

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

/// A letter in the manner of a large word processor: properties in groups, associated fonts, list
/// texts, a table, a field, a picture, a footer.
const std::string wordLetter =
    "{\\rtf1\\adeflang1025\\ansi\\ansicpg1252\\uc1\\adeff0\\deff0\\stshfdbch0\\deflang1033\r\n"
    "{\\fonttbl{\\f0\\fbidi \\froman\\fcharset0\\fprq2{\\*\\panose 02020603050405020304}Times New "
    "Roman;}{\\f3\\fbidi \\froman\\fcharset2\\fprq2 Symbol;}}\r\n"
    "{\\colortbl;\\red0\\green0\\blue0;\\red192\\green0\\blue0;}\r\n"
    "{\\stylesheet{\\ql \\fs24 \\snext0 Normal;}{\\s1\\qc\\b\\fs32 heading 1;}}\r\n"
    "{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u-3913 "
    "?;}\\f3}}}{\\info{\\title T}}\r\n"
    "{\\footer \\pard \\qc {\\rtlch Page}\\par}\\pard\\plain \\ltrpar\\s1\\qc\\sb240 \\fs32 "
    "{\\rtlch\\fcs1 \\af0 \\ltrch\\fcs0 \\b\\insrsid123 Avis\\par }"
    "\\pard\\plain \\ql\\fs24 {\\insrsid1 Ch\\'e8re \\'abContact }{\\b\\insrsid2 "
    "Name\\'bb},}{\\par }"
    "{\\listtext\\pard\\plain\\f3 \\'b7\\tab}\\pard \\li720\\fi-360\\tx720 {les "
    "relev\\'e9s\\par {\\listtext\\pard\\plain\\f3 \\'b7\\tab}}{\\cf2 urgent}{\\par }"
    "\\pard \\trowd\\cellx100\\intbl a\\cell b\\cell\\row \\pard {\\field{\\*\\fldinst "
    "HYPERLINK \"x\"}{\\fldrslt{\\ul www}}}{\\*\\shppict{\\pict\\pngblip 89}}.\\par}";

/// The same in the manner of a small editor, and what a free office suite makes of it.
const std::string smallEditor =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0\\nouicompat{\\fonttbl{\\f0\\fnil\\fcharset0 "
    "Calibri;}{\\f1\\fnil\\fcharset2 Symbol;}}\r\n{\\*\\generator Riched20 10.0}\\viewkind4\\uc1 "
    "\r\n"
    "\\pard\\sa200\\b\\f0\\fs22 Bonjour\\b0\\par\r\n"
    "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\fi-"
    "360\\li720 "
    "un\\par\r\n{\\pntext\\f1\\'B7\\tab}deux\\par\r\n\\pard fin\\par\r\n}\r\n";
const std::string officeSuite =
    "{\\rtf1\\ansi\\deff3\\adeflang1025{\\fonttbl{\\f0\\froman\\fprq2\\fcharset0 Times;}"
    "{\\f3\\froman\\fprq2\\fcharset0 Liberation Serif{\\*\\falt Times New Roman};}}\n"
    "{\\colortbl;\\red0\\green0\\blue0;\\red201\\green33\\blue30;}\n\\pgndec\\pard\\plain "
    "\\s0\\widctlpar\\hyphpar0\\ltrpar\\cf0\\f3\\fs24\\lang1036{\\loch \nCher M. "
    "Ren{\\uc1\\u233\\'e9}}{\\cf2\\strike\\loch barr\\u233\\'e9}\n\\par \\pard\\plain "
    "\\qr{\\loch\\u8364\\'80 12}\n\\par }";

TEST(RichTextDocument, readsWhatProgramsWrite) {
  const Cases cases = {
      {wordLetter,
       "qc sb240 [b,fs32,Times New Roman]Avis|[fs24,Times New Roman]Chère «Contact Name»,|"
       "li720 fi-360 tx720 (•) [fs24,Times New Roman]les relevés|li720 fi-360 tx720 (•) "
       "[fs24,cf192,Times New Roman]urgent|[fs24,Times New Roman]a\tb|[ul,fs24,Times New "
       "Roman]www[fs24,Times New Roman].|[fs24,Times New Roman]"},
      {smallEditor,
       "sa200 [b,fs22,Calibri]Bonjour|li720 fi-360 (•) [fs22,Calibri]un|li720 fi-360 (•) "
       "[fs22,Calibri]deux|[fs22,Calibri]fin|[fs22,Calibri]"},
      {officeSuite,
       "[fs24,Liberation Serif]Cher M. René[strike,fs24,cf1974729,Liberation Serif]barré|qr "
       "[fs24,Liberation Serif]€ 12|qr [fs24,Liberation Serif]"}};
  for (const auto& [rtf, expected] : cases) {
    EXPECT_EQ(shown(readRichText(rtf)), expected);
    expectRoundTrip(rtf);
  }
}

TEST(RichTextDocument, formatsHoldForTheirGroup) {
  const Cases cases = {
      {"{\\b a{\\i b}c}d", "[b]a[b,i]b[b]cd"},
      {"\\b a\\b0 b\\ul c\\ulnone d\\strike e\\plain f", "[b]ab[ul]cd[strike]e[fs24]f"},
      {"\\cf1 a\\cf2\\highlight1 b\\cf0\\cb0 c\\cf9 d", "[cf255]a[cf98304,cb255]bcd"},
      {"\\super a\\sub b\\sub0\\i c\\super d{\\nosupersub e}f",
       "[super]a[sub]b[i]c[i,super]d[i]e[i,super]f"},
      {"\\f1\\fs30 a\\f0\\fs0 b\\fs99999 c", "[fs30,Times]a[fs24]b[fs3276]c"},
      {"\\f3 \\'c6\\f0 \\'c6", "[Arial Ц]ЖÆ"},
      {"\\qc a\\par b\\par\\pard\\qj\\li5\\ri6\\fi-7\\sb8\\sa9 c",
       "qc a|qc b|qj li5 ri6 fi-7 sb8 sa9 c"},
      {"\\tx9\\tqr\\tx10\\tqdec\\tx11 a\\par{\\tqc\\tx12 b\\par}c",
       "tx9 tqr10 tqdec11 a|tx9 tqr10 tqdec11 tqc12 b|tx9 tqr10 tqdec11 c"},
      {"{\\pntext 1.\\tab}a\\par b{\\pntext 2.\\tab}c\\par{\\listtext  }d", "(1.) a|b2.\tc|d"},
      {"a\\line b\\page c\\'0dd\\par", "a\nb|c\nd|"},
      {"a\\par{\\b\\qr }\\b\\par\\i", "a|[b]|[b,i]"}};
  for (const auto& [rtf, expected] : cases) {
    EXPECT_EQ(shown(readRichText(head + rtf + "}")), expected);
    expectRoundTrip(head + rtf + "}");
  }
}

TEST(RichTextDocument, mergeTokensStayWhole) {
  const std::string date = "\\'ab(Task Due Date, mmmm d yyyy)\\'bb";
  const std::string name(40, 'n');
  const Cases cases = {
      {"Hi \\'abCompany {\\b Name}\\'bb!", "Hi \\'abCompany Name\\'bb!"},
      {"{\\b\\'ab}Company\\i  Name\\'bb x", "\\'abCompany Name\\'bb"},
      {"\\'abCom{\\cf1 pany}\\f1  Name\\fs40\\'bb\\fs20 y", "\\'abCompany Name\\'bb"},
      {"<{\\b <Company} Name>\\b >", "<<Company Name>>"},
      {"\\'ab(Task{\\ul  Due} Date, mmmm\\b  d yyyy)\\'bb", date},
      {"\\'ab{\\b (" + name + ", dddd, mmmm d} yyyy)\\'bb",
       "\\'ab(" + name + ", dddd, mmmm d yyyy)\\'bb"},
      {"\u00ABCompany \\b Name\u00BB", "\\'abCompany Name\\'bb"},
      {"\\'aba\\'abCompany \\b Name\\'bb\\'bb", "\\'abCompany Name\\'bb"}};
  for (const auto& [rtf, token] : cases) {
    const std::string written = writeRichText(readRichText(head + rtf + "}"));
    EXPECT_NE(written.find(token), std::string::npos) << written;
    EXPECT_EQ(plainTextOf(written), plainTextOf(head + rtf + "}"));
  }
  // A character more than the longest name, the longest date: a quotation.
  for (const std::string& quoted :
       {name + "{\\b !}", "(" + name + std::string(20, '.') + "{\\b )}"})
    EXPECT_EQ(readRichText(head + "<<" + quoted + ">>}").paragraphs[0].runs.size(), 3u) << quoted;
}

TEST(RichTextDocument, aBackgroundNumberedZeroIsNone) {
  const std::string tables = "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl\\red1;\\red2;}\\fs20 ";
  const std::string rtf = tables + "a\\cb1 b\\cb0\\highlight1 c\\highlight0\\cf1 d}";
  EXPECT_EQ(shown(readRichText(rtf)), "[cf1]a[cf1,cb2]bc[cf2]d");
  expectRoundTrip(rtf);
}

/// How lists of these markers are written: how word processors make the markers of each list (the
/// way of counting, the start, the text, the place of the number in it), then the paragraphs'
/// lists.
std::string writtenLists(const std::vector<std::string>& markers) {
  RichText text{{}};
  for (const std::string& marker : markers) text.paragraphs.emplace_back().format.marker = marker;
  const std::string rtf = writeRichText(text);
  EXPECT_EQ(readRichText(rtf), text) << rtf;
  static const std::regex parts(
      R"(levelnfc(\d+)\\levelstart(at\d+).*?text(.*?);\}\{\\levelnumbers(.*?);|\\ls(\d+)(?=\{))");
  return std::regex_replace(rtf, parts, "$1$2$3$4$5 ", std::regex_constants::format_no_copy);
}

TEST(RichTextDocument, listsCountAsTheirMarkersDo) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"1.", "a)", "b)", "2.", "2.", "7.", "8."},
       R"(0at1\'02\'00.\'01 4at1\'02\'00)\'01 0at2\'02\'00.\'01 0at7\'02\'00.\'01 1 2 2 1 3 4 4 )"},
      {{"•", "•", "", "•", "→→"}, R"(23at1\'01\'95 255at1\'02\u8594?\u8594? 1 1 2 )"},
      {{"(i)", "(ii)", "h", "i", "I", "IV", "V", "iiii"},
       R"(2at1\'03(\'00)\'02 4at8\'01\'00\'01 1at1\'01\'00\'01 1at4\'01\'00\'01 255at1\'04iiii )"
       "1 1 2 2 3 4 4 5 "},
      {{"1.1", "1.2", "2.1", "A", "01", "99999"},
       R"(0at1\'031.\'00\'03 0at1\'032.\'00\'03 3at1\'01\'00\'01 255at1\'0201 255at1\'0599999 )"
       "1 1 2 3 4 5 "},
      {{"é1", "é2", "😀1", "1\t2", std::string(32, '-')},
       R"(0at1\'02\'e9\'00\'02 0at1\'03\u-10179?\u-8704?\'00\'03 1 1 2 )"}};
  for (const auto& [markers, lists] : cases) EXPECT_EQ(writtenLists(markers), lists);
  const RichText raised = readRichText("{\\rtf1\\super a\\par{\\pntext (c)\\tab}b}");
  EXPECT_THAT(
      writeRichText(raised),
      testing::HasSubstr(R"(\nosupersub\pard{\*\pn\pnlvlbody\pnlcltr\pnstart3\pnf0{\pntxtb )"
                         R"((}{\pntxta )}}\ls1{\pntext\f0 (c)\tab}\super b})"));
}

/// Any document, in the shape that tidyRuns gives.
class RandomDocument {
 public:
  explicit RandomDocument(unsigned seed) : random_(seed) {}

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

TEST(RichTextDocument, anyDocumentReadsBackEqual) {
  for (unsigned seed = 0; seed < 3000; ++seed) {
    const RichText text = RandomDocument(seed).make();
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
    RandomDocument random(seed);
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
  for (const std::string& rtf : {wordLetter, smallEditor, officeSuite})
    for (std::size_t length = 0; length <= rtf.size(); ++length) {
      if (isRichText(rtf.substr(0, length))) expectRoundTrip(rtf.substr(0, length));
    }
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
