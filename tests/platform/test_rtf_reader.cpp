#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/rtf_reader.h"

namespace autonotify {
namespace {

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
