#include "merge/templates/province_terms.h"

#include <algorithm>
#include <iterator>

#include "contract/enumerations.h"

namespace autonotify {
namespace {

constexpr ProvinceTerms terms[] = {
    {provinceAlberta, "Alberta", "WCB", "WCB Number", FederalTax::gst},
    {provinceBritishColumbia, "BC", "WCB", "WCB Number", FederalTax::hstSinceHarmonization},
    {provinceManitoba, "Manitoba", "WCB", "WCB Number", FederalTax::gst},
    {provinceSaskatchewan, "Sask.", "WCB", "WCB Number", FederalTax::gst},
    {provinceQuebec, "Que.", "CSST", "NEQ Number", FederalTax::gst},
    {provinceNovaScotia, "N.S.", "WCB", "WCB Number", FederalTax::hst},
    {provinceNewBrunswick, "N.B.", "WHSCC", "WHSCC Number", FederalTax::hst},
    {provinceNewfoundland, "Nfld.", "WHSCC", "WHSCC Number", FederalTax::hst},
    {provincePrinceEdwardIsland, "P.E.I.", "WCB", "WCB Number", FederalTax::gst},
    {provinceOntario, "ON", "WSIB", "WSIB Number", FederalTax::hstSinceHarmonization},
};

}  // namespace

std::span<const ProvinceTerms> allProvinceTerms() {
  return terms;
}

const ProvinceTerms& provinceTerms(int provinceCode) {
  const auto* found = std::ranges::find(terms, provinceCode, &ProvinceTerms::code);
  return found == std::end(terms) ? *std::prev(found) : *found;
}

bool usesOntarioTerms(int provinceCode) {
  return provinceTerms(provinceCode).code == provinceOntario;
}

}  // namespace autonotify
