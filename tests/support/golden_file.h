#pragma once

#include "support/temporary_folder.h"

namespace autonotify::test {

/// Expects the text to be what the file holds. With AUTONOTIFY_WRITE_GOLDEN set in the environment
/// the file is written anew instead.
inline void expectGolden(const std::filesystem::path& file, const std::string& text) {
  if (std::getenv("AUTONOTIFY_WRITE_GOLDEN")) writeFile(file, text);
  EXPECT_EQ(text, readFile(file)) << "to take it over: AUTONOTIFY_WRITE_GOLDEN=1";
}

}  // namespace autonotify::test
