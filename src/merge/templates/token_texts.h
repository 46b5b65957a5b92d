#pragma once

#include <cstddef>
#include <string>
#include <string_view>
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
  /// `withBlank`: with a blank ahead.
  void fill(std::size_t token, std::string_view text, bool withBlank);
  /// The whole text; tokens that are not filled stay or vanish.
  std::string joined(bool keepsUnfilled) const;

 private:
  struct Filled {
    bool isFilled = false;
    std::size_t begin = 0;  ///< in texts_
    std::size_t size = 0;
  };

  std::string_view textOf(const Filled& filled) const {
    return std::string_view(texts_).substr(filled.begin, filled.size);
  }
  /// What stands in the slot.
  std::string_view textOf(const TemplateLayout::Slot& slot, bool keepsUnfilled) const {
    const Filled& filled = filled_[slot.token];
    if (filled.isFilled || !keepsUnfilled) return textOf(filled);
    return std::string_view(layout_.text()).substr(slot.begin, slot.end - slot.begin);
  }

  const TemplateLayout& layout_;
  std::vector<Filled> filled_;  ///< by token
  std::string texts_;           ///< one behind the other
};

}  // namespace autonotify
