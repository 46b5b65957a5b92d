#pragma once

#include <string_view>

namespace autonotify {

struct ProvinceName {
  std::string_view abbreviation;
  std::string_view fullName;
};

/// The province or territory that a person wrote, in any case, by one of its usual forms; null for
/// any other text.
const ProvinceName* recognizeProvince(std::string_view written);

}  // namespace autonotify
