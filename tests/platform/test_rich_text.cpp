#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/rich_text.h"
#include "platform/utf8.h"

namespace autonotify {
namespace {

struct Case {
  const char* rtf;
  const char* text;
};
using Cases = std::vector<Case>;

void expectTexts(const std::string& start, const Cases& cases) {
  for (const auto& [rtf, text] : cases) EXPECT_EQ(plainTextOf(start + rtf), text) << rtf;
}

/// Every one of the texts reads as `text`.
void expectEach(const std::string& start, const char* text, const std::vector<const char*>& all) {
  for (const char* rtf : all) EXPECT_EQ(plainTextOf(start + rtf), text) << rtf;
}

/// The plain text of a document with this body.
std::string bodyText(const std::string& body) {
  return plainTextOf("{\\rtf1\\ansi " + body + "}");
}

std::string repeated(const std::string& piece, std::size_t count) {
  std::string result;
  result.reserve(piece.size() * count);
  while (count-- > 0) result += piece;
  return result;
}

TEST(RichText, tellsItsOwnKind) {
  EXPECT_TRUE(isRichText("{\\rtf1}"));
  for (const char* text : {"", "{", "{\\rt", "plain", " {\\rtf1}", "{\\RTF1}"}) {
    EXPECT_FALSE(isRichText(text));
    EXPECT_EQ(plainTextOf(text), text);
  }
}

TEST(RichText, paragraphsTabsAndSymbols) {
  expectTexts("{\\rtf1\\ansi ",
              {{"\\{\\\\\\}", "{\\}"}, {"\\b-x", "-x"}, {"a\\tab\\row", "a\t\n"}});
  expectTexts("{\\rtf1\\ansi ", {{"one\\par two", "one\ntwo"},
                                 {"one\r\nword\r\n", "oneword"},
                                 {"a\\line b\\tab c\td", "a\nb\tc\td"},
                                 {"a\\\r\nb\\\nc\\\td", "a\nb\nc\td"},
                                 {"a\\~b\\_c\\-d", "a\u00A0b\u2011cd"},
                                 {"\\emdash\\endash \\bullet", "—–•"},
                                 {"\\unknown-12 a\\other b", "ab"},
                                 {"{\\b a}b{\\i{c}}", "abc"}});
  expectTexts("{\\rtf1\\ansi ", {{"one\\par\r\n\\par two\\par\r\n", "one\n\ntwo\n"},
                                 {"\\lquote a\\rquote\\ldblquote b\\rdblquote", "‘a’“b”"},
                                 {"one\\page two\\sect three", "one\ntwo\nthree"}});
  expectTexts("{\\rtf1\\ansi ", {{"\\b bold\\b0  plain \\i\\ul0\\cf1\\fs20 x", "bold plain x"}});
  expectTexts("{\\rtf1\\ansi ",
              {{"\\trowd\\cellx10 a\\cell b\\cell\\row c\\cell\\cell\\row d", "a\tb\nc\t\nd"}});
}

TEST(RichText, bytesAreReadInTheirCodePage) {
  expectTexts(
      "", {{"{\\rtf1 \\'80\\'93\\'AB\\'e9\\'bb\\'ff}", "€“«é»ÿ"},
           {"{\\rtf1\\ansi\\ansicpg1250 \\'b9\\'9c}", "ąś"},
           {"{\\rtf1\\ansi\\ansicpg1251 \\'c6\\'ff}", "Жя"},
           {"{\\rtf1\\ansi\\ansicpg1253 \\'c1\\'f9}", "Αω"},
           {"{\\rtf1\\ansi\\ansicpg1254 \\'d0\\'fd}", "Ğı"},
           {"{\\rtf1\\ansi\\ansicpg1257 \\'c0\\'e6}", "Ąę"},
           {"{\\rtf1\\pc \\'82\\'e1}", "éß"},
           {"{\\rtf1\\pca \\'b7\\'82}", "Àé"},
           {"{\\rtf1\\ansi\\ansicpg437 \\'9b}", "¢"},
           {"{\\rtf1\\ansi\\ansicpg10000 \\'e9}", "é"},
           {"{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0\\fcharset0 Arial;}{\\f1\\fcharset204 Arial "
            "Cyr;}{\\f2\\cpg1253 X;}}\\f0 \\'c6{\\f1 \\'c6}\\f2 \\'c1\\plain \\'c1}",
            "ÆЖΑÁ"},
           {"{\\rtf1 \\'4 \\'zz\\'4a\\'}", "4 zzJ"},
           {"{\\rtf1 a\\'00b}", "ab"}});
}

TEST(RichText, bareBytesAreUtf8OrElseOfTheCodePage) {
  EXPECT_EQ(bodyText("Zoé «x» 😀"), "Zoé «x» 😀");
  EXPECT_EQ(bodyText("Zo\xE9 \xAB"), "Zoé «");
  EXPECT_EQ(bodyText("\xC3\xA9\xC3!"), "éÃ!");
}

TEST(RichText, unicodeWithItsFallback) {
  expectEach(
      "{\\rtf1\\ansi ", "€x",
      {"\\u8364?x", "\\u8364 ?x", "\\u8364\\'80x", "\\uc0\\u8364 x", "{\\u8364}x", "\\u8364\u20ACx",
       "\\u8364\\emdash x", "\\uc2\\u8364 ??x", "\\uc3\\u8364 ?\\'80?x", "{\\uc9\\u8364 ab}x"});
  expectEach("{\\rtf1\\ansi ", "😀x", {"\\u128512?x", "\\u-10179?\\u-8704?x"});
  expectEach("{\\rtf1\\ansi ", "😀x", {"\\u55357\\'3f\\u56832\\'3fx"});
  expectEach("{\\rtf1\\ansi ", "\uFFFDx",
             {"\\u55357?x", "\\u56832?x", "\\u99999999999999?x", "\\u-99999999999999?x"});
  expectTexts("{\\rtf1\\ansi ", {{"\\u0?x", "x"}, {"\\u x", "x"}});
  expectTexts("{\\rtf1\\ansi ",
              {{"\\u-4064?x", "\uF020x"}, {"\\u8216\\u8217?x", "‘’x"}, {"x\\u55357?", "x\uFFFD"}});
  expectTexts("{\\rtf1\\ansi ",
              {{"{\\uc0\\u8364 x}\\u8364?x", "€x€x"}, {"\\u55357?\\u55357?\\u56832?", "\uFFFD😀"}});
}

TEST(RichText, leavesOutWhatIsNoText) {
  expectEach("{\\rtf1\\ansi ", "ab", {"a\\bin3 xyzb", "a{\\pict\\bin5 }}{{\\}b"});
  expectEach("{\\rtf1\\ansi ", "ab",
             {"a{\\xe index}{\\footnote note}b", "a{\\pict\\wmetafile8 0123456789abcdef}b"});
  expectEach("{\\rtf1\\ansi ", "ab",
             {"a{\\object\\objemb{\\*\\objdata 0105}{\\result shown}}b",
              "a{\\*\\shppict{\\pict\\pngblip 89504e47}}{\\nonshppict{\\pict 00}}b"});
  expectEach("{\\rtf1\\ansi ", "a",
             {"{\\*\\generator Writer 1.0;}a", "{\r\n\\*\\generator Writer;}a",
              "{\\colortbl ;\\red255\\green0\\blue0;}a", "{\\header head\\par}{\\footer foot}a"});
  expectEach("{\\rtf1\\ansi ", "a", {"{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}a"});
  expectEach("{\\rtf1\\ansi ", "a",
             {"{\\stylesheet{\\s1 Heading;}}{\\info{\\title T}{\\author A}}a"});
  expectTexts("{\\rtf1\\ansi ", {{"a\\bin-3 xyz", "axyz"}});
  expectTexts("{\\rtf1\\ansi ", {{"{\\field{\\fldinst PAGE}{\\fldrslt 1}}", "1"},
                                 {"{\\pntext\\f1\\'B7\\tab}item\\par", "·\titem\n"},
                                 {"stray \\info and\\* stay", "stray and stay"}});
  expectTexts("{\\rtf1\\ansi ",
              {{"a\\v hidden\\par\\u8364?\\v0 b{\\v c}d\\v e\\plain f", "abdf"},
               {"{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}{\\listtext 1.\\tab}item", "1.\titem"}});
  expectTexts("{\\rtf1\\ansi ",
              {{"{\\field{\\*\\fldinst HYPERLINK \"http://a\"}{\\fldrslt{\\ul link}}}.", "link."}});
}

TEST(RichText, brokenTextGivesWhatCanBeRead) {
  expectEach("", "a",
             {"{\\rtf1 a", "{\\rtf1 a\\", "{\\rtf1 a\\'", "{\\rtf1 a\\u", "{\\rtf1 a\\bin"});
  expectEach("", "a", {"{\\rtf1 a\\bin999999999999 b}"});
  expectTexts("", {{"{\\rtf1 a}}}b", "ab"},
                   {"{\\rtf1 a{b", "ab"},
                   {"{\\rtf1 a\\'e", "ae"},
                   {"{\\rtf1 a\\u-", "a-"},
                   {"{\\rtf", ""}});
  expectTexts("", {{"{\\rtf1 a\\row}", "a\n"}});
  EXPECT_EQ(plainTextOf(std::string("{\\rtf1 a\0b}\0", 12)), "ab");
}

TEST(RichText, theDefaultLetterReadsAsPeopleSeeIt) {
  EXPECT_EQ(plainTextOf(
                "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 "
                "Arial;}}\r\n\\viewkind4\\uc1\\pard\\f0\\fs20 Hi \\'abContact Display "
                "Name\\'bb,\r\n\\par\r\n\\par Your \\'abTask Name\\'bb is due.\r\n\\par\r\n}"),
            "Hi «Contact Display Name»,\n\nYour «Task Name» is due.\n");
}

TEST(RichText, escapes) {
  const Cases cases = {{"", ""},
                       {"a{b}\\c", "a\\{b\\}\\\\c"},
                       {"a\r\nb\nc\rd", "a\\par \r\nb\\par \r\nc\\par \r\nd"},
                       {"«é»€", "\\'ab\\'e9\\'bb\\'80"},
                       {"Ж漢", "\\u1046?\\u28450?"},
                       {"\uF020", "\\u-4064?"},
                       {"😀", "\\u-10179?\\u-8704?"},
                       {"\xFF", "\\'ff"}};
  for (const auto& [text, rtf] : cases) EXPECT_EQ(escapeForRichText(text), rtf);
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

TEST(RichText, codePage1252IsOneToOne) {
  for (int byte = 0; byte < 256; ++byte)
    EXPECT_EQ(codePage1252Of(characterOfCodePage1252(static_cast<unsigned char>(byte))), byte);
  EXPECT_EQ(codePage1252Of(0x80), -1);
  EXPECT_EQ(codePage1252Of(U'Ж'), -1);
}

TEST(RichText, deepNestingAndLongInputsAreNoTrouble) {
  constexpr std::size_t deep = 100'000;
  EXPECT_EQ(bodyText(repeated("{", deep) + "a" + repeated("}", deep) + "b"), "ab");
  EXPECT_EQ(bodyText(repeated("{\\*", deep) + "a" + repeated("}", deep) + "b"), "b");
  EXPECT_EQ(bodyText(repeated("\\'", deep)), "");
  EXPECT_EQ(bodyText("\\u8364" + repeated("9", deep) + "?a"), "\uFFFDa");
  EXPECT_EQ(bodyText("\\" + repeated("w", deep) + " a"), "a");
}

}  // namespace
}  // namespace autonotify
