
#include <random>

#include "platform/rich_text.h"
#include "platform/rtf_reader.h"
#include "platform/text.h"
#include "platform/utf8.h"
#include "support/text_table.h"

namespace autonotify {
namespace {

using test::expectRows;

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
  expectRows(file, "of a whole text", plainTextOf);
  const auto after = [](const char* head) {
    return [head](const std::string& rtf) { return plainTextOf(head + rtf); };
  };
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

}  // namespace
}  // namespace autonotify
