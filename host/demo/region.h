#pragma once

#include <span>
#include <string>
#include <string_view>

#include "contract/enumerations.h"

namespace autonotify::host::demo {

struct City {
  int region;  ///< a provinceCode, or unitedStatesRegion
  std::string_view name;
  std::string_view state;  ///< empty in Canada
  std::string_view areaCode;
  std::string_view postalPrefix;  ///< the first letters of a postal code, the first digits of a zip
};

constexpr int unitedStatesRegion = 100;

/// What a province or country calls the things that a firm writes about. The names of numbers are
/// those of the merge fields.
struct Region {
  int code;
  std::string_view province;
  std::string_view country;
  std::string_view holidaySet;
  std::string_view tax, taxNumber;
  std::string_view salesTax, salesTaxNumber;
  std::string_view safety, safetyNumber;
  std::string_view health;
  std::string_view payrollSlips;
  std::string_view corporateReturn, personalReturn;
  std::string_view authority, businessNumber;
  std::string_view lawSociety;

  bool isCanada() const { return code != unitedStatesRegion; }
};

/// A province code without a row of its own counts as Ontario.
const Region& regionOf(countryCode country, provinceCode province);
std::span<const City> citiesOf(const Region& region);

/// The text with the region's words in the place of {tax}, {safety} and their kin (see region.cpp).
std::string inRegion(std::string_view text, const Region& region);

}  // namespace autonotify::host::demo
