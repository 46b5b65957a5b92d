#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "platform/rich_text.h"
#include "platform/rtf_reader.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace autonotify {
namespace {

using Cases = std::vector<std::pair<const char*, const char*>>;

constexpr const char* head = "{\\rtf1\\ansi ";

void expectTexts(const Cases& cases, const std::string& start = head) {
  for (const auto& [rtf, text] : cases) EXPECT_EQ(plainTextOf(start + rtf), text) << rtf;
}

/// Every one of the texts reads as `text`.
void expectEach(const char* text, const std::vector<const char*>& all,
                const std::string& start = head) {
  for (const char* rtf : all) EXPECT_EQ(plainTextOf(start + rtf), text) << rtf;
}

/// The plain text of a document with this body.
std::string bodyText(const std::string& body) {
  return plainTextOf("{\\rtf1\\ansi " + body + "}");
}

std::string repeated(const std::string& piece, std::size_t count) {
  return replaceAll(std::string(count, '.'), ".", piece);
}

TEST(RichText, tellsItsOwnKind) {
  EXPECT_TRUE(isRichText("{\\rtf1}"));
  for (const char* text : {"", "{", "{\\rt", "plain", " {\\rtf1}", "{\\RTF1}"}) {
    EXPECT_FALSE(isRichText(text));
    EXPECT_EQ(plainTextOf(text), text);
  }
}

TEST(RichText, paragraphsTabsAndSymbols) {
  expectTexts({{"one\\par two\\page three\\sect four", "one\ntwo\nthree\nfour"},
               {"one\\par\r\n\\par tw\r\no\\par\r\n", "one\n\ntwo\n"},
               {"a\\line b\\tab c\td\\\r\ne\\\nf\\\tg", "a\nb\tc\td\ne\nf\tg"},
               {"a\\~b\\_c\\-d\\{\\\\\\}", "a\u00A0b\u2011cd{\\}"},
               {"\\lquote\\rquote\\ldblquote\\rdblquote\\emdash\\endash \\bullet", "‘’“”—–•"},
               {"\\unknown-12 a\\other b{\\b c}d{\\i{e}}\\b-x", "abcde-x"},
               {"\\b bold\\b0  plain \\i\\ul0\\cf1\\fs20 x", "bold plain x"},
               {"a\\cell b\\cell\\row c\\cell\\cell\\row d\\tab\\row", "a\tb\nc\t\nd\t\n"},
               {"a\\nestcell{\\*\\nesttableprops\\nestrow}b", "a\nb"}});
}

TEST(RichText, bytesAreReadInTheirCodePage) {
  expectTexts({{"1252 \\'80\\'93\\'AB\\'bb", "€“«»"},
               {"1250 \\'b9\\'9c", "ąś"},
               {"1251 \\'c6\\'ff", "Жя"},
               {"1253 \\'c1\\'f9", "Αω"},
               {"1254 \\'d0\\'fd", "Ğı"},
               {"1257 \\'c0\\'e6", "Ąę"},
               {"437 \\'82\\'9b\\pca\\'b7\\mac \\'e9\\'f0", "é¢ÀÈ\uFFFD"},
               {"874 \\'a1\\'fb\\'ff", "ก๛\uFFFD"},
               {"932 \\'8a\\'bf\\'b1\\'83\\'5c", "漢ｱソ"},
               {"936 \\'80\\'81\\'40\\'ba\\'ba\\'fe\\'4f", "€丂汉﨩"},
               {"949 \\'81A\\'c7\\'d1\\'fd\\'fe", "갂한詰"},
               {"950 \\'a1\\'40\\'ba\\'7e\\'f9\\'fe", "　漢▓"},
               {"10001 \\'82\\'a0", "あ"},
               {"10000 \\'8e\\pc\\'82", "éé"},
               {"1 \\'e9\\'4 \\'zz\\'4a\\'00\\'", "é4 zzJ"}},
              "{\\rtf1\\ansi\\ansicpg");
}

TEST(RichText, theSecondByteOfAPairIsWaitedFor) {
  expectTexts({{"\\'83A\\'83\\\\\\'83\n\\b\\'41\x8a\xbf", "アソア漢"},
               {"\\'83 x\\'83\\par\\'83é\\'83", "\uFFFD x\uFFFD\n\uFFFDé\uFFFD"},
               {"\\'83\\u233?\\v\\'83\\v0 x\\'85\\'ff", "\uFFFDéx\uFFFD"}},
              "{\\rtf1\\ansicpg932 ");
}

TEST(RichText, aFontsCharacterSetGoesBeforeTheDocumentsPage) {
  const auto inFont = [](const std::string& font, const std::string& bytes) {
    return bodyText("\\ansicpg1251{\\fonttbl{\\f1" + font + " X;}}\\'c6\\f1 " + bytes +
                    "\\plain\\'c6");
  };
  const std::pair<const char*, const char*> fonts[] = {
      {"\\fcharset0", "‚\u00A0"},        {"\\fcharset1", "‚\u00A0"}, {"\\cpg1253", "‚\u00A0"},
      {"\\fcharset128", "あ"},           {"\\fcharset134", "偁"},    {"\\fcharset129", "궇"},
      {"\\fcharset222", "\uFFFD\u00A0"}, {"\\fcharset77", "Ç†"},     {"\\fcharset177", "‚\u00A0"}};
  for (const auto& [font, text] : fonts)
    EXPECT_EQ(inFont(font, "\\'82\\'a0"), "Ж" + std::string(text) + "Ж") << font;
  EXPECT_EQ(inFont("\\fcharset0", "\\'c6"), "ЖÆЖ");
  EXPECT_EQ(inFont("\\fcharset136", "\\'b4\\'fa"), "Ж測Ж");
  EXPECT_EQ(inFont("\\fcharset128", "\\'96\\tab"), "Ж–\tЖ");
}

TEST(RichText, bareBytesAreUtf8OrElseOfTheCodePage) {
  expectTexts({{"Zoé «😀 Zo\xE9 \xAB", "Zoé «😀 Zoé «"}, {"\xC3\xA9\xC3!", "éÃ!"}});
}

TEST(RichText, unicodeWithItsFallback) {
  expectEach("€x", {"\\u8364?x", "\\u8364 ?x", "\\u8364\\'80x", "\\uc0\\u8364 x", "{\\u8364}x",
                    "\\u8364\u20ACx", "\\u8364\\emdash x", "\\uc2\\u8364 ??x",
                    "\\uc3\\u8364 ?\\'80?x", "{\\uc9\\u8364 ab}x"});
  expectEach("😀x", {"\\u128512?x", "\\u-10179?\\u-8704?x", "\\u55357\\'3f\\u56832\\'3fx"});
  expectEach("\uFFFDx",
             {"\\u55357?x", "\\u56832?x", "\\u99999999999999?x", "\\u-99999999999999?x"});
  expectTexts({{"\\u0?x\\u x", "xx"},
               {"\\u-4064?\\u8216\\u8217?", "\uF020‘’"},
               {"{\\uc0\\u8364 x}\\u8364?x", "€x€x"},
               {"\\u55357?\\u55357?\\u56832?\\u55357?", "\uFFFD😀\uFFFD"}});
}

TEST(RichText, leavesOutWhatIsNoText) {
  expectEach("ab", {"a\\bin3 xyzb", "a{\\pict\\bin5 }}{{\\}b", "a{\\xe index}{\\footnote note}b",
                    "a{\\pict\\wmetafile8 0123456789abcdef}b",
                    "a{\\object\\objemb{\\*\\objdata 0105}{\\result shown}}b",
                    "a{\\*\\shppict{\\pict\\pngblip 89504e47}}{\\nonshppict{\\pict 00}}b",
                    "a{ \\info x}{ \\*\\x y}{\\* \\x{\\fldrslt y}}{\\*fldrslt x}b",
                    "a{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}{\\listname x}b",
                    "{\\*\\generator Writer 1.0;}a{\r\n\\*\\generator Writer;}b",
                    "{\\colortbl ;\\red255\\green0\\blue0;}a{\\header head\\par}{\\footer foot}b",
                    "{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}{\\stylesheet{\\s1 "
                    "Heading;}}{\\info{\\title T}{\\author A}}ab"});
  expectTexts({{"a\\bin-3 xyz", "axyz"},
               {"{\\field{\\fldinst PAGE}{\\fldrslt 1}{\\* \\fldrslt a{\\b b}}} c{ \\b d}{ \\~}",
                "1ab c d \u00A0"},
               {"{\\pntext 1{\\*\\fldrslt 2}.\\tab}a", "12.\ta"},
               {"{\\shp{\\*\\shpinst{\\sp{\\sn n}}{\\shptxt a}}{\\shprslt b}}", "a"},
               {"{\\pntext\\f1\\'B7\\tab}item\\par", "·\titem\n"},
               {"stray \\info and\\* stay", "stray and stay"},
               {"a\\v hidden\\par\\u8364?\\v0 b{\\v c}d\\v e\\plain f", "abdf"},
               {"{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}{\\listtext 1.\\tab}item", "1.\titem"},
               {"{\\field{\\*\\fldinst HYPERLINK \"http://a\"}{\\fldrslt{\\ul link}}}.", "link."}});
}

TEST(RichText, brokenTextGivesWhatCanBeRead) {
  expectEach("a",
             {"{\\rtf1 a", "{\\rtf1 a\\", "{\\rtf1 a\\'", "{\\rtf1 a\\u", "{\\rtf1 a\\bin",
              "{\\rtf1 a\\bin999999999999 b}", "{\\rtf1 a}b{c\\par"},
             "");
  expectEach("ab", {"{\\rtf1 a}}b}c", "{\\rtf1 {a}b", "{\\rtf1 a{b"}, "");
  expectTexts({{"{\\rtf1 a\\'e", "ae"}, {"{\\rtf1 a\\u-", "a-"}, {"{\\rtf", ""}}, "");
  EXPECT_EQ(plainTextOf(std::string("{\\rtf1 a\0b}\0", 12)), "ab");
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

TEST(RichText, deepNestingAndLongInputsAreNoTrouble) {
  constexpr std::size_t deep = 100'000;
  EXPECT_EQ(bodyText(repeated("{\\*", deep) + "a" + repeated("}", deep) + "b"), "b");
  EXPECT_EQ(bodyText(repeated("\\'", deep)), "");
  EXPECT_EQ(bodyText("\\u8364" + repeated("9", deep) + "?a"), "\uFFFDa");
  EXPECT_EQ(bodyText("\\" + repeated("w", deep) + " a"), "a");
}

/// The tokens in a notation of one word each: "{", "}", "w:par", "w:fs=20", "s:~", "x:e9",
/// "t:text", "b:bytes".
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
  const std::pair<const char*, const char*> cases[] = {
      {"{\\rtf1\\b text}", "{ w:rtf=1 w:b t:text }"},
      {"\\fs20 a\\par\r\nb", "w:fs=20 t:a w:par t:b"},
      {"\\li-360\\u-5?", "w:li=-360 w:u=-5 t:?"},
      {"\\b-x\\b- 1", "w:b t:-x w:b t:- 1"},
      {"\\b  x", "w:b t: x"},
      {"\\'e9\\'5C\\'g1", "x:e9 x:5C s:' t:g1"},
      {"\\{\\}\\\\", "t:{ t:} t:\\"},
      {"\\~\\*\\\r\n\\\n", "s:~ s:* s:\n s:\n"},
      {"\\bin4 }\\{{x", "b:}\\{{ t:x"},
      {"\\bin9 ab", "b:ab"},
      {"\\u2147483648 \\u-2147483648 ", "w:u=2147483647 w:u=-2147483647"},
      {"a\\", "t:a"},
      {"", ""}};
  for (const auto& [rtf, tokens] : cases) EXPECT_EQ(tokensOf(rtf), tokens) << rtf;
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

}  // namespace
}  // namespace autonotify
