#pragma once

#include <string_view>

namespace autonotify {

/// The bytes of a document that is built into the component, by its number and type. Throws
/// PlatformError (326) when there is none.
std::string_view documentTemplate(int number, std::string_view type);

}  // namespace autonotify
