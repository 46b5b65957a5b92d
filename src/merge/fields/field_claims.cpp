#include "merge/fields/field_claims.h"

#include "merge/fields/recent_entries.h"

namespace autonotify {
namespace {

constexpr std::size_t keptClaims = 32;

void addClaims(const MergeField& field, int row, const TemplateLayout& layout,
               std::vector<bool>& isTaken, FieldClaims& claims) {
  for (const TemplateLayout::Reading& reading : layout.readingsOf(field.foldedName)) {
    const bool isPlain = reading.format == TemplateLayout::Reading::plain;
    if (isPlain == field.isDate || isTaken[reading.token]) continue;
    isTaken[reading.token] = true;
    claims.push_back({row, reading.format, field.index, reading.token});
  }
}

std::shared_ptr<const FieldClaims> tellClaims(const std::vector<MergeField>& fields,
                                              const TemplateLayout& layout) {
  static const MergeField todaysDate{foldCase(todaysDateName), 0, true};
  auto claims = std::make_shared<FieldClaims>();
  std::vector<bool> isTaken(layout.tokenCount());
  addClaims(todaysDate, 0, layout, isTaken, *claims);
  for (std::size_t i = 0; i < fields.size(); ++i) {
    addClaims(fields[i], static_cast<int>(i) + 1, layout, isTaken, *claims);
  }
  return claims;
}

}  // namespace

std::shared_ptr<const FieldClaims> claimsOn(const std::shared_ptr<const MergeFields>& fields,
                                            const std::shared_ptr<const TemplateLayout>& layout) {
  using Key = std::pair<std::shared_ptr<const MergeFields>, std::shared_ptr<const TemplateLayout>>;
  static RecentEntries<Key, std::shared_ptr<const FieldClaims>> known(keptClaims);
  return known.findOrMake({fields, layout}, [&] { return tellClaims(fields->fields, *layout); });
}

}  // namespace autonotify
