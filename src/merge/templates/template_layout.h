#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "merge/templates/merge_tokens.h"
#include "merge/templates/template_rewrites.h"
#include "merge/templates/text_numbers.h"

namespace autonotify {

/// A template, its field names brought up to date, cut at its marks.
///
/// In a regular template marks of one spelling alone open and close in turn, and no text beside a
/// token could make up a mark with what takes the token's place. Then the tokens that stand in it
/// are all that a merge will ever find, as long as no value brings marks of its own.
class TemplateLayout {
 public:
  /// One occurrence of a token, marks included.
  struct Slot {
    std::size_t begin;
    std::size_t end;
    std::size_t token;
  };

  explicit TemplateLayout(std::string text);
  TemplateLayout(const TemplateLayout&) = delete;
  TemplateLayout& operator=(const TemplateLayout&) = delete;

  const std::string& text() const { return text_; }
  bool isRegular() const { return isRegular_; }
  const MergeMarks& marks() const { return *marks_; }
  const std::vector<Slot>& slots() const { return slots_; }
  /// Tokens that differ by more than case, numbered from 0.
  std::size_t tokenCount() const { return contents_.size(); }
  std::size_t firstSlotOf(std::size_t token) const { return firstSlots_[token]; }
  /// The token's text as it stands in its first slot.
  std::string tokenText(std::size_t token) const;
  /// What stands between the token's marks; see foldCase.
  const HashedText& foldedContent(std::size_t token) const { return contents_[token]; }

 private:
  bool cutAtMarks();
  void numberTokens();

  std::string text_;
  const MergeMarks* marks_ = &bareMarks;
  bool isRegular_ = false;
  std::vector<Slot> slots_;
  std::vector<std::size_t> firstSlots_;
  std::string foldedContents_;
  TextNumbers contents_{0};  ///< tokens by their part of foldedContents_
};

/// Texts that differ in case alone have the same folded text, which is as long as they are.
std::string foldCase(std::string_view text);

/// The layouts of the templates merged last. Bounded in number and size of templates.
class TemplateLayoutCache {
 public:
  /// What besides the template decides how its field names are brought up to date.
  struct Setting {
    Region region;
    bool isForContactAlone = false;
    friend bool operator==(const Setting&, const Setting&) = default;
  };

  /// The one cache of the process; used by its interface thread alone.
  static TemplateLayoutCache& instance();

  /// Nullptr when it is not held.
  std::shared_ptr<const TemplateLayout> find(std::string_view templateText, const Setting& setting);
  void keep(std::string_view templateText, const Setting& setting,
            std::shared_ptr<const TemplateLayout> layout);
  std::size_t size() const { return entries_.size(); }

  static constexpr std::size_t maxEntries = 32;
  static constexpr std::size_t maxTemplateSize = 64 * 1024;

 private:
  struct Entry {
    std::string templateText;
    Setting setting;
    std::shared_ptr<const TemplateLayout> layout;
    std::uint64_t lastUse = 0;
  };
  std::vector<Entry> entries_;
  std::uint64_t uses_ = 0;
};

}  // namespace autonotify
