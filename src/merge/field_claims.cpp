#include "merge/field_claims.h"

#include <algorithm>

namespace autonotify {

void FieldClaims::forget() {
  knowsFields_ = false;
  layout_.reset();
}

void FieldClaims::learnFields(std::vector<MergeField> fields) {
  fields_ = std::move(fields);
  layout_.reset();
  knowsFields_ = true;
  canClaim_ = std::none_of(fields_.begin(), fields_.end(),
                           [](const MergeField& field) { return mayFormMark(field.foldedName); });
}

const std::vector<FieldClaim>& FieldClaims::claimsOn(std::shared_ptr<const TemplateLayout> layout) {
  if (layout_ == layout) return claims_;
  layout_ = std::move(layout);
  claims_.clear();
  std::vector<bool> isTaken(layout_->tokenCount());
  static const MergeField todaysDate{foldCase(todaysDateName), 0, true};
  claim(todaysDate, 0, isTaken);
  for (std::size_t i = 0; i < fields_.size(); ++i)
    claim(fields_[i], static_cast<int>(i) + 1, isTaken);
  return claims_;
}

void FieldClaims::claim(const MergeField& field, int row, std::vector<bool>& isTaken) {
  for (const TemplateLayout::Reading& reading : layout_->readingsOf(field.foldedName)) {
    const bool isPlain = reading.format == TemplateLayout::Reading::plain;
    if (isPlain == field.isDate || isTaken[reading.token]) continue;
    isTaken[reading.token] = true;
    claims_.push_back({row, reading.format, field.index, reading.token});
  }
}

}  // namespace autonotify
