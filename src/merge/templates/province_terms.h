#pragma once

#include <span>
#include <string_view>

#include "platform/DateTime.h"

namespace autonotify {

/// The kind of sales tax that a province has had over time.
enum class FederalTax {
  gst,
  hst,
  /// GST first, HST since harmonizedSince().
  hstSinceHarmonization,
};

/// What a province calls things on its forms, and so in the names of merge fields.
struct ProvinceTerms {
  int code;
  std::string_view name;         ///< ahead of " Corp. Tax Number"
  std::string_view safetyBoard;  ///< ahead of " Premium Rate"
  std::string_view safetyNumber;
  FederalTax federalTax;
};

/// All provinces with terms of their own; Ontario is the last one.
std::span<const ProvinceTerms> allProvinceTerms();

/// The terms of a province; a code without terms of its own has those of Ontario, `code` included.
const ProvinceTerms& provinceTerms(int provinceCode);

/// True for Ontario and for every code without terms of its own.
bool usesOntarioTerms(int provinceCode);

/// The day on which British Columbia and Ontario went over to the HST.
constexpr DateTime harmonizedSince() {
  return DateTime::of(2010, 7, 1);
}

}  // namespace autonotify
