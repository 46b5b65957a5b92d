#include "merge/records/province_names.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace autonotify {
namespace {

struct ProvinceForms {
  std::array<std::string_view, 5> forms;
  ProvinceName name;
};

// A form with small letters matches nothing, as what a person wrote is compared in capitals.
constexpr ProvinceForms provinces[] = {
    {{"ALBERTA", "ALTA.", "ALTA", "AB"}, {"AB", "Alberta"}},
    {{"BRITISHCOLUMBIA", "BRITISH COLUMBIA", "B.C.", "BC"}, {"BC", "British Columbia"}},
    {{"MANITOBA", "MAN.", "MAN", "MB"}, {"MB", "Manitoba"}},
    {{"ONTARIO", "ONT.", "ONT", "ON"}, {"ON", "Ontario"}},
    {{"SASKATCHEWAN", "SASK.", "SASK", "SK"}, {"SK", "Saskatchewan"}},
    {{"QUEBEC", "QUE.", "QUE", "QC"}, {"QC", "Quebec"}},
    {{"NOVASCOTIA", "NOVA SCOTIA", "N.S.", "NS"}, {"NS", "Nova Scotia"}},
    {{"NEWBRUNSWICK", "NEW BRUNSWICK", "N.B.", "NB"}, {"NB", "New Brunswick"}},
    {{"NEWFOUNDLAND", "NEWFOUNDLAND And LABRADOR", "NEWFOUNDLAND & LABRADOR", "Nfld.", "NL"},
     {"NL", "Newfoundland"}},
    {{"PRINCE EDWARD ISLAND", "PEI", "P.E.I."}, {"PEI", "Prince Edward Island"}},
    {{"NORTHWEST TERRITORIES", "N.W.T.", "NWT", "NT"}, {"NT", "Northwest Territories"}},
    {{"NUNAVUT", "NU"}, {"NU", "Nunavut"}},
    {{"YUKON", "YT"}, {"YT", "Yukon"}},
};

}  // namespace

const ProvinceName* recognizeProvince(std::string_view written) {
  if (written.empty()) return nullptr;  // an unused place of `forms` is no form
  const std::string capitals = upperCase(written);
  for (const ProvinceForms& province : provinces)
    if (std::ranges::find(province.forms, capitals) != province.forms.end()) return &province.name;
  return nullptr;
}

}  // namespace autonotify
