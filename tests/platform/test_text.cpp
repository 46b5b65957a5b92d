#include <random>

#include "platform/text.h"
#include "platform/utf8.h"
#include "support/text_table.h"

namespace autonotify {
namespace {

constexpr std::size_t npos = std::string::npos;
constexpr const char* textCases = "text_cases.txt";

TEST(Text, changesCaseOfFrenchGreekAndCyrillic) {
  for (const auto& row : test::rowsOf(textCases, "upper and lower case", 2)) {
    EXPECT_EQ(upperCase(row[1]), row[0]);
    EXPECT_EQ(lowerCase(row[0]), row[1]);
    EXPECT_EQ(upperCase(row[0]), row[0]);
  }
  EXPECT_EQ(upperCase("straße"), "STRAßE");
  EXPECT_EQ(upperCase("ς"), "Σ");
  EXPECT_TRUE(equalIgnoreCase("ΟΔΟΣ", "οδος"));
  EXPECT_FALSE(equalIgnoreCase("I", "ı")) << "Turkish letters stay apart";
  EXPECT_EQ(lowerCase("İ"), "İ");
}

TEST(Text, noCaseChangeAltersALengthOrComesBackDifferent) {
  for (char32_t c = 0; c <= 0x3000; ++c) {
    std::string text;
    appendUtf8(text, c);
    ASSERT_EQ(upperCase(text).size(), text.size()) << text;
    ASSERT_EQ(lowerCase(upperCase(text)), lowerCase(upperCase(lowerCase(text)))) << text;
    ASSERT_TRUE(equalIgnoreCase(upperCase(text), lowerCase(text))) << text;
  }
}

TEST(Text, findsInAnyCaseAndReplacesEveryOccurrence) {
  for (const auto& row : test::rowsOf(textCases, "found", 4)) {
    const std::size_t at = findIgnoreCase(row[0], row[1], std::stoul(row[2]));
    EXPECT_EQ(at == npos ? "none" : std::to_string(at), row[3]) << row[0] << " / " << row[1];
  }
  for (const auto& row : test::rowsOf(textCases, "replaced", 4))
    EXPECT_EQ(replaceAll(row[0], row[1], row[2]), row[3]);
  for (const auto& row : test::rowsOf(textCases, "replaced in any case", 4))
    EXPECT_EQ(replaceAllIgnoreCase(row[0], row[1], row[2]), row[3]);
}

TEST(Text, findingAgreesWithFoldingFirst) {
  const std::string pieces[] = {"a", "A", "b", "B", "é", "É", "ÿ", "Ÿ", "\\", "'", "«", " "};
  std::mt19937 random(20260430);
  const auto text = [&](std::size_t length) {
    std::string result;
    while (length-- > 0) result += pieces[random() % std::size(pieces)];
    return result;
  };
  for (int round = 0; round < 20000; ++round) {
    // Long texts are looked through in a way of their own.
    const std::string haystack = text(round % 100 == 0 ? 20000 : random() % 12);
    const std::string needle = text(1 + random() % 5);
    const std::size_t from = random() % (haystack.size() + 2);
    ASSERT_EQ(findIgnoreCase(haystack, needle, from),
              lowerCase(haystack).find(lowerCase(needle), from))
        << haystack << " / " << needle;
    ASSERT_EQ(lowerCase(replaceAllIgnoreCase(haystack, needle, "-")),
              replaceAll(lowerCase(haystack), lowerCase(needle), "-"));
  }
}

TEST(Text, trimsBlanksAloneAndCountsCharacters) {
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trim("\t a\n"), "\t a\n");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(characterCount("é€😀"), 3u);
  EXPECT_EQ(characterCount("\xC3\xC3\xA9\xFF"), 3u);
}

TEST(Text, keepsIllFormedBytes) {
  for (const char* text : {"\xFFz", "\xC3", "\xE2\x82z", "\xC0\x80", "\xED\xA0\x80", "\xF8\x88"}) {
    EXPECT_FALSE(isValidUtf8(text));
    EXPECT_FALSE(isValidUtf8("12345678" + std::string(text) + "12345678"));
    EXPECT_EQ(lowerCase(text), text);
  }
  EXPECT_EQ(upperCase("\xFFz\xC3"), "\xFFZ\xC3");
}

TEST(Text, acceptsExactlyTheScalarValues) {
  for (char32_t c = 0; c <= 0x10FFFF; c += c < 0x11000 ? 1 : 257) {
    std::string text;
    appendUtf8(text, c);
    ASSERT_TRUE(isValidUtf8(text));
    const bool surrogate = c >= 0xD800 && c < 0xE000;
    ASSERT_EQ(utf8StepAt(text, 0).value, surrogate ? replacementCharacter : c);
    ASSERT_EQ(utf8StepAt(text, 0).length, text.size());
  }
  EXPECT_FALSE(isValidUtf8("\xF4\x90\x80\x80"));
  EXPECT_TRUE(isValidUtf8("\xF4\x8F\xBF\xBF"));
}

}  // namespace
}  // namespace autonotify
