#include "merge/templates/template_update.h"

#include "contract/procedure.h"
#include "contract/references.h"
#include "contract/tags.h"
#include "merge/templates/merge_tokens.h"
#include "merge/templates/province_terms.h"
#include "platform/text.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsInsertFieldsInRTB", name>;

/// Whether the text may be the name of a field that lacks its marks.
bool mayBeBareName(const std::string& text) {
  constexpr std::size_t longestCharacter = 4;
  return text.size() <= longestFieldName * longestCharacter &&
         characterCount(text) <= longestFieldName;
}

Region readRegion(Step& step) {
  Region region;
  step.assign(region.country, [] { return locale().getCountryCode(); });
  if (region.country != countryCanada) return region;
  step.assign(region.province, [] { return locale().getProvinceCode(); });
  step.assign(region.isHarmonized, [] { return platformClock().today() >= harmonizedSince(); });
  return region;
}

}  // namespace

std::string verifyTemplateText(const std::string& text) {
  return procedure(tagOf<"verifyTemplateText">, text, [&](Step&, std::string& result) {
    result = headerRemovals().apply(text);
    if (!mayBeBareName(result)) return;
    if (result.find(bareMarks.open) == std::string::npos) result.insert(0, bareMarks.open);
    if (result.find(bareMarks.close) == std::string::npos) result.append(bareMarks.close);
  });
}

Region regionOfInstallation() {
  const auto read = [](Step& step, Region& result) { result = readRegion(step); };
  return procedure(tagOf<"convertProvinceFields">, Region{}, read);
}

std::string updateTemplate(const std::string& text, const Region& region) {
  return regionalRewrites(region).apply(generalRewrites().apply(verifyTemplateText(text)));
}

std::string convertProvinceFields(const std::string& text) {
  return procedure(tagOf<"convertProvinceFields">, text, [&](Step& step, std::string& result) {
    result = generalRewrites().apply(verifyTemplateText(text));
    result = regionalRewrites(readRegion(step)).apply(std::move(result));
  });
}

}  // namespace autonotify
