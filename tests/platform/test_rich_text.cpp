#include <gtest/gtest.h>

#include <string>

#include "platform/rich_text.h"
#include "platform/utf8.h"

namespace autonotify {
namespace {

struct Case {
  const char* rtf;
  const char* text;
};

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
  for (const auto& [rtf, text] : {
           Case{"one\\par two", "one\ntwo"},
           {"one\\par\r\n\\par two\\par\r\n", "one\n\ntwo\n"},
           {"one\r\nword\r\n", "oneword"},
           {"a\\line b\\tab c\td", "a\nb\tc\td"},
           {"a\\\r\nb\\\nc\\\td", "a\nb\nc\td"},
           {"\\{\\\\\\}", "{\\}"},
           {"a\\~b\\_c\\-d", "a\u00A0b\u2011cd"},
           {"\\emdash\\endash \\bullet", "—–•"},
           {"\\lquote a\\rquote\\ldblquote b\\rdblquote", "‘a’“b”"},
           {"\\b bold\\b0  plain \\i\\ul0\\cf1\\fs20 x", "bold plain x"},
           {"\\unknown-12 a\\other b", "ab"},
           {"\\b-x", "-x"},
           {"{\\b a}b{\\i{c}}", "abc"},
           {"one\\page two\\sect three", "one\ntwo\nthree"},
       })
    EXPECT_EQ(bodyText(rtf), text) << rtf;
}

TEST(RichText, cellsAreSeparatedByTabs) {
  EXPECT_EQ(bodyText("\\trowd\\cellx10 a\\cell b\\cell\\row c\\cell\\cell\\row d"), "a\tb\nc\t\nd");
  EXPECT_EQ(bodyText("a\\tab\\row"), "a\t\n");
}

TEST(RichText, bytesAreReadInTheirCodePage) {
  const struct {
    const char* rtf;
    const char* text;
  } cases[] = {
      {"{\\rtf1 \\'80\\'93\\'AB\\'e9\\'bb\\'ff}", "€“«é»ÿ"},
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
      {"{\\rtf1 a\\'00b}", "ab"},
  };
  for (const auto& [rtf, text] : cases) EXPECT_EQ(plainTextOf(rtf), text) << rtf;
}

TEST(RichText, bareBytesAreUtf8OrElseOfTheCodePage) {
  EXPECT_EQ(bodyText("Zoé «x» 😀"), "Zoé «x» 😀");
  EXPECT_EQ(bodyText("Zo\xE9 \xAB"), "Zoé «");
  EXPECT_EQ(bodyText("\xC3\xA9\xC3!"), "éÃ!");
}

TEST(RichText, unicodeWithItsFallback) {
  for (const auto& [rtf, text] : {
           Case{"\\u8364?x", "€x"},
           {"\\u8364 ?x", "€x"},
           {"\\u8364\\'80x", "€x"},
           {"\\u8364\\emdash x", "€x"},
           {"\\uc0\\u8364 x", "€x"},
           {"\\uc2\\u8364 ??x", "€x"},
           {"\\uc3\\u8364 ?\\'80?x", "€x"},
           {"{\\uc0\\u8364 x}\\u8364?x", "€x€x"},
           {"{\\u8364}x", "€x"},
           {"{\\uc9\\u8364 ab}x", "€x"},
           {"\\u8364\u20ACx", "€x"},
           {"\\u-4064?x", "\uF020x"},
           {"\\u8216\\u8217?x", "‘’x"},
           {"\\u-10179?\\u-8704?x", "😀x"},
           {"\\u55357\\'3f\\u56832\\'3fx", "😀x"},
           {"\\u128512?x", "😀x"},
           {"\\u55357?x", "\uFFFDx"},
           {"\\u56832?x", "\uFFFDx"},
           {"\\u55357?\\u55357?\\u56832?", "\uFFFD😀"},
           {"x\\u55357?", "x\uFFFD"},
           {"\\u0?x", "x"},
           {"\\u99999999999999?x", "\uFFFDx"},
           {"\\u-99999999999999?x", "\uFFFDx"},
           {"\\u x", "x"},
       })
    EXPECT_EQ(bodyText(rtf), text) << rtf;
}

TEST(RichText, leavesOutWhatIsNoText) {
  for (const auto& [rtf, text] : {
           Case{"{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}a", "a"},
           {"{\\colortbl ;\\red255\\green0\\blue0;}a", "a"},
           {"{\\stylesheet{\\s1 Heading;}}{\\info{\\title T}{\\author A}}a", "a"},
           {"{\\*\\generator Writer 1.0;}a", "a"},
           {"{\r\n\\*\\generator Writer;}a", "a"},
           {"{\\header head\\par}{\\footer foot}a", "a"},
           {"a{\\pict\\wmetafile8 0123456789abcdef}b", "ab"},
           {"a{\\*\\shppict{\\pict\\pngblip 89504e47}}{\\nonshppict{\\pict 00}}b", "ab"},
           {"a{\\object\\objemb{\\*\\objdata 0105}{\\result shown}}b", "ab"},
           {"a{\\pict\\bin5 }}{{\\}b", "ab"},
           {"a\\bin3 xyzb", "ab"},
           {"a\\bin-3 xyz", "axyz"},
           {"a\\v hidden\\par\\u8364?\\v0 b{\\v c}d\\v e\\plain f", "abdf"},
           {"{\\field{\\*\\fldinst HYPERLINK \"http://a\"}{\\fldrslt{\\ul link}}}.", "link."},
           {"{\\field{\\fldinst PAGE}{\\fldrslt 1}}", "1"},
           {"{\\pntext\\f1\\'B7\\tab}item\\par", "·\titem\n"},
           {"{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}{\\listtext 1.\\tab}item", "1.\titem"},
           {"a{\\xe index}{\\footnote note}b", "ab"},
           {"stray \\info and\\* stay", "stray and stay"},
       })
    EXPECT_EQ(bodyText(rtf), text) << rtf;
}

TEST(RichText, brokenTextGivesWhatCanBeRead) {
  for (const auto& [rtf, text] : {
           Case{"{\\rtf1 a", "a"},
           {"{\\rtf1 a}}}b", "ab"},
           {"{\\rtf1 a{b", "ab"},
           {"{\\rtf1 a\\", "a"},
           {"{\\rtf1 a\\'", "a"},
           {"{\\rtf1 a\\'e", "ae"},
           {"{\\rtf1 a\\u", "a"},
           {"{\\rtf1 a\\u-", "a-"},
           {"{\\rtf1 a\\bin", "a"},
           {"{\\rtf1 a\\bin999999999999 b}", "a"},
           {"{\\rtf", ""},
           {"{\\rtf1 a\\row}", "a\n"},
       })
    EXPECT_EQ(plainTextOf(rtf), text) << rtf;
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
  for (const auto& [text, rtf] : {
           Case{"", ""},
           {"a{b}\\c", "a\\{b\\}\\\\c"},
           {"a\r\nb\nc\rd", "a\\par \r\nb\\par \r\nc\\par \r\nd"},
           {"«é»€", "\\'ab\\'e9\\'bb\\'80"},
           {"Ж漢", "\\u1046?\\u28450?"},
           {"\uF020", "\\u-4064?"},
           {"😀", "\\u-10179?\\u-8704?"},
           {"\xFF", "\\'ff"},
       })
    EXPECT_EQ(escapeForRichText(text), rtf);
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
  EXPECT_EQ(bodyText(repeated("{\\b", deep) + " a"), "a");
  EXPECT_EQ(bodyText(repeated("\\'", deep)), "");
  EXPECT_EQ(bodyText(repeated("}", deep) + "a"), "a");
  EXPECT_EQ(bodyText("\\u8364" + repeated("9", deep) + "?a"), "\uFFFDa");
  EXPECT_EQ(bodyText("\\" + repeated("w", deep) + " a"), "a");
}

}  // namespace
}  // namespace autonotify
