#pragma once

#include <optional>
#include <string_view>

#include "contract/enumerations.h"

namespace autonotify::host {

/// Where a firm is: what the texts and fields of its clients follow.
struct Place {
  countryCode country = countryCanada;
  provinceCode province = provinceOntario;
};

/// By two letters or by name, in any case: "ON", "Ontario".
std::optional<provinceCode> findProvince(std::string_view text);
/// "ca", "us", or a name as it stands in an address.
std::optional<countryCode> findCountry(std::string_view text);

}  // namespace autonotify::host
