#include "merge/records/merge_conversions.h"

#include <cstdlib>

#include "contract/procedure.h"
#include "contract/references.h"
#include "contract/tags.h"
#include "merge/records/province_names.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsInsertFieldsInRTB", name>;

std::string durationBetween(const DateTime& from, const DateTime& to) {
  const std::int64_t minutes = std::abs(to.totalMinutes() - from.totalMinutes());
  return validation().getDurationText(toInteger(Value(minutes)));
}

std::string provinceForm(std::string_view frameTag, const std::string& province,
                         std::string_view ProvinceName::*form) {
  return procedure(frameTag, province, [&](Step&, std::string& result) {
    if (const ProvinceName* name = recognizeProvince(province)) result = name->*form;
  });
}

}  // namespace

std::string getTimeDurationFieldValue(const DateTime& from, const DateTime& to) {
  return procedure(
      tagOf<"getTimeDurationFieldValue">, std::string{},
      [&](Step& step, std::string& result) { step.assign(result, durationBetween, from, to); });
}

std::string getAbbreviatedProvince(const std::string& province) {
  return provinceForm(tagOf<"getAbbreviatedProvince">, province, &ProvinceName::abbreviation);
}

std::string getFullProvinceString(const std::string& province) {
  return provinceForm(tagOf<"getFullProvinceString">, province, &ProvinceName::fullName);
}

}  // namespace autonotify
