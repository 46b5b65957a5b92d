#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_catalogue.h"
#include "merge/templates/template_rewrites.h"

namespace autonotify {
namespace {

/// What takes the place of each token of a layout, as far as it is known.
class TokenTexts {
 public:
  explicit TokenTexts(const TemplateLayout& layout)
      : layout_(layout), texts_(layout.tokenCount()) {}

  /// True when the character ahead of the token's first place is there and no blank.
  bool needsBlank(std::size_t token) const {
    const std::vector<TemplateLayout::Slot>& slots = layout_.slots();
    std::size_t slot = layout_.firstSlotOf(token);
    for (;; --slot) {
      const std::size_t textBegin = slot == 0 ? 0 : slots[slot - 1].end;
      if (slots[slot].begin > textBegin) return layout_.text()[slots[slot].begin - 1] != ' ';
      if (slot == 0) return false;
      const std::optional<std::string>& former = texts_[slots[slot - 1].token];
      if (!former) return true;
      if (!former->empty()) return former->back() != ' ';
    }
  }

  void fill(std::size_t token, std::string text) { texts_[token] = std::move(text); }

  /// The whole text; tokens that are not filled stay or vanish.
  std::string joined(bool keepsUnfilled) const {
    const std::string_view text = layout_.text();
    std::string result;
    result.reserve(text.size() + text.size() / 4);
    std::size_t copied = 0;
    for (const TemplateLayout::Slot& slot : layout_.slots()) {
      result.append(text, copied, slot.begin - copied);
      copied = slot.end;
      if (texts_[slot.token]) {
        result.append(*texts_[slot.token]);
      } else if (keepsUnfilled) {
        result.append(text, slot.begin, slot.end - slot.begin);
      }
    }
    return result.append(text, copied);
  }

 private:
  const TemplateLayout& layout_;
  std::vector<std::optional<std::string>> texts_;
};

}  // namespace

/// The template with its field names brought up to date; never null.
std::shared_ptr<const TemplateLayout> clsInsertFieldsInRTB::layoutOfTemplate() {
  const TemplateLayoutCache::Setting setting{regionOfInstallation(), isMergedForContactAlone()};
  TemplateLayoutCache& cache = TemplateLayoutCache::instance();
  if (auto known = cache.find(TemplateText, setting)) return known;
  std::string text = generalRewrites().apply(verifyTemplateText(TemplateText));
  text = regionalRewrites(setting.region).apply(std::move(text));
  if (setting.isForContactAlone) text = withContactNameForCompanyName(std::move(text));
  const auto layout = std::make_shared<const TemplateLayout>(std::move(text));
  cache.keep(TemplateText, setting, layout);
  return layout;
}

/// Null when the text must be merged by the rules.
std::shared_ptr<const FieldClaims> clsInsertFieldsInRTB::claimsOnLayout(
    Step& step, const std::shared_ptr<const TemplateLayout>& layout) {
  if (!layout->isRegular()) return nullptr;
  std::shared_ptr<const MergeFields> known;
  step.assign(known, [&] { return fields().mergeFields(); });
  return known && known->canClaim ? claimsOn(known, layout) : nullptr;
}

/// Fields are read in the order of the list, as some values depend on those read before. From the
/// first value on that brings marks, the rules take over where the layout has got to.
std::string clsInsertFieldsInRTB::mergeByLayout(Step& step, const TemplateLayout& layout,
                                                const FieldClaims& claims) {
  TokenTexts texts(layout);
  for (const FieldClaim& claim : claims) {
    const bool isPlain = claim.format == TemplateLayout::Reading::plain;
    std::string format(isPlain ? std::string_view{} : mergeDateFormats[claim.format]);
    if (claim.row > 0) format = printedFormat(format);
    std::string value =
        claim.row > 0 ? getDataFieldInfo(claim.index, format) : getTodaysDate(format);
    if (claim.row > 0 && mayFormMark(value)) {
      std::string text = texts.joined(true);
      replaceText(text, layout.tokenText(claim.token), value);
      mergeFields(step, text, layout.marks(),
                  isPlain ? PassStart{claim.row + 1, 0} : PassStart{claim.row, claim.format + 1});
      return replaceUnfoundMergeFieldsWithBlanks(text);
    }
    if (ConvertStrToRTF && texts.needsBlank(claim.token)) value.insert(0, 1, ' ');
    texts.fill(claim.token, std::move(value));
  }
  return texts.joined(false);
}

}  // namespace autonotify
