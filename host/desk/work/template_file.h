#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/desk/Outcome.h"

namespace autonotify::host {

/// Bytes.
inline constexpr std::size_t largestTemplateFile = 16u << 20;

/// A template from a file that any word processor wrote, as templateOf gives it. Refused when the
/// file cannot be read, is larger than 16 MiB, or holds no text or no words.
Outcome<std::string> readTemplateFile(const std::string& path);

/// The same of the content of such a file; a refusal calls it by `name`.
Outcome<std::string> readTemplate(std::string_view content, const std::string& name);

/// The bytes of such a file as they are.
Outcome<std::string> readTextFile(const std::string& path);

/// Rich text in which each mark and each name is whole, however the content spells them: RTF, or
/// else plain text in UTF-8 or Windows-1252. Blanks, hyphens and quotes that a word processor put
/// into a name for better looks are plain again. What stands behind a format word takes no blank
/// ahead of its value.
std::string templateOf(std::string_view content);

}  // namespace autonotify::host
