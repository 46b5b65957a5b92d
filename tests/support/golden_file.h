#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace autonotify::test {

/// Expects the text to be what the file holds. With AUTONOTIFY_WRITE_GOLDEN set in the environment
/// the file is written anew instead.
inline void expectGolden(const std::filesystem::path& file, const std::string& text) {
  if (std::getenv("AUTONOTIFY_WRITE_GOLDEN")) std::ofstream(file) << text;
  std::stringstream held;
  held << std::ifstream(file).rdbuf();
  EXPECT_EQ(text, held.str()) << "to take it over: AUTONOTIFY_WRITE_GOLDEN=1";
}

}  // namespace autonotify::test
