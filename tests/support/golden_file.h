#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace autonotify::test {

/// Expects the file to hold these blocks, each followed by a blank line; a block has none itself.
/// With AUTONOTIFY_WRITE_GOLDEN in the environment the file is written anew instead.
inline void expectGolden(const std::string& file, const std::vector<std::string>& blocks) {
  if (std::getenv("AUTONOTIFY_WRITE_GOLDEN")) {
    std::ofstream out(file);
    for (const std::string& block : blocks) out << block << '\n';
    return;
  }
  std::ifstream in(file);
  for (const std::string& block : blocks) {
    std::string expected, line;
    while (std::getline(in, line) && !line.empty()) expected += line + "\n";
    EXPECT_EQ(block, expected);
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_EQ(in.peek(), std::ifstream::traits_type::eof()) << "the file holds more";
}

}  // namespace autonotify::test
