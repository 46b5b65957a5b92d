#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>

#include "merge/templates/merge_tokens.h"

namespace autonotify {

/// Tells which tokens stand in a text while values take the place of those that do.
///
/// Most fields of the list stand in no text at all. What stands between an opening mark and the
/// closing one right behind it is written down once, so that the text is searched for what may be
/// there alone. Values that are no marks themselves bring new tokens about only where a token
/// stood within another one: then it is all written down anew, a few times. Behind that, each
/// field is searched for.
class TokenSearch {
 public:
  TokenSearch(std::string& text, const MergeMarks& marks);

  std::string& text() { return text_; }
  std::string tokenOf(std::string_view content) const { return plainToken(marks_, content); }
  /// Whether a token with this content stands in the text, in any case.
  bool holds(std::string_view content) const;
  /// The value has taken the place of a token.
  void noteReplaced(std::string_view value);

 private:
  void writeDown();

  std::string& text_;
  MergeMarks marks_;
  std::unordered_set<std::uint64_t> contents_;  ///< their hashes
  bool isLasting_ = true;                       ///< no value without marks brings a token about
  int timesLeft_;
};

}  // namespace autonotify
