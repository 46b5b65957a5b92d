#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "merge/templates/template_layout.h"

namespace autonotify {

/// What takes the place of each token of a layout, as far as it is known.
class TokenTexts {
 public:
  /// The layout outlives this.
  explicit TokenTexts(const TemplateLayout& layout);

  /// True when the character ahead of the token's first place is there and no blank.
  bool needsBlank(std::size_t token) const;
  void fill(std::size_t token, std::string text) { texts_[token] = std::move(text); }
  /// The whole text; tokens that are not filled stay or vanish.
  std::string joined(bool keepsUnfilled) const;

 private:
  const TemplateLayout& layout_;
  std::vector<std::optional<std::string>> texts_;
};

}  // namespace autonotify
