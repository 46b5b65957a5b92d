#include "host/desk/places.h"

#include <array>

#include "platform/text.h"

namespace autonotify::host {
namespace {

template <class Code>
struct Named {
  std::string_view name;
  Code code;
};

constexpr std::array<Named<provinceCode>, 20> provinces{{
    {"AB", provinceAlberta},
    {"Alberta", provinceAlberta},
    {"BC", provinceBritishColumbia},
    {"British Columbia", provinceBritishColumbia},
    {"MB", provinceManitoba},
    {"Manitoba", provinceManitoba},
    {"ON", provinceOntario},
    {"Ontario", provinceOntario},
    {"SK", provinceSaskatchewan},
    {"Saskatchewan", provinceSaskatchewan},
    {"QC", provinceQuebec},
    {"Quebec", provinceQuebec},
    {"NS", provinceNovaScotia},
    {"Nova Scotia", provinceNovaScotia},
    {"NB", provinceNewBrunswick},
    {"New Brunswick", provinceNewBrunswick},
    {"NL", provinceNewfoundland},
    {"Newfoundland", provinceNewfoundland},
    {"PE", provincePrinceEdwardIsland},
    {"Prince Edward Island", provincePrinceEdwardIsland},
}};

constexpr std::array<Named<countryCode>, 6> countries{{
    {"ca", countryCanada},
    {"Canada", countryCanada},
    {"us", countryUnitedStates},
    {"USA", countryUnitedStates},
    {"United States", countryUnitedStates},
    {"United States of America", countryUnitedStates},
}};

template <class Rows>
auto find(const Rows& rows, std::string_view text) -> std::optional<decltype(rows[0].code)> {
  for (const auto& row : rows) {
    if (equalIgnoreCase(row.name, trim(text))) return row.code;
  }
  return std::nullopt;
}

}  // namespace

std::optional<provinceCode> findProvince(std::string_view text) {
  return find(provinces, text);
}

std::optional<countryCode> findCountry(std::string_view text) {
  return find(countries, text);
}

}  // namespace autonotify::host
