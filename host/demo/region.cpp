#include "host/demo/region.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/text.h"

namespace autonotify::host::demo {

namespace {

constexpr Region canadian(int code, std::string_view province, std::string_view tax,
                          std::string_view taxNumber, std::string_view safety,
                          std::string_view safetyNumber) {
  return {code,
          province,
          "Canada",
          code == provinceQuebec    ? "CA-QC"
          : code == provinceOntario ? "CA-ON"
                                    : "CA",
          tax,
          taxNumber,
          code == provinceQuebec ? "QST" : "PST",
          code == provinceQuebec ? "QST Number" : "PST Number",
          safety,
          safetyNumber,
          "EHT",
          "T4 Summary",
          "Corporate Income Tax Return (T2)",
          "Personal Income Tax Return (T1)",
          "Canada Revenue Agency",
          "Business Number",
          "Law Society"};
}

constexpr std::array regions{
    canadian(provinceOntario, "Ontario", "HST", "HST Number", "WSIB", "WSIB Number"),
    canadian(provinceAlberta, "Alberta", "GST", "GST Number", "WCB", "WCB Number"),
    canadian(provinceBritishColumbia, "British Columbia", "HST", "HST Number", "WCB", "WCB Number"),
    canadian(provinceManitoba, "Manitoba", "GST", "GST Number", "WCB", "WCB Number"),
    canadian(provinceSaskatchewan, "Saskatchewan", "GST", "GST Number", "WCB", "WCB Number"),
    canadian(provinceQuebec, "Quebec", "GST", "GST Number", "CSST", "NEQ Number"),
    canadian(provinceNovaScotia, "Nova Scotia", "HST", "HST Number", "WCB", "WCB Number"),
    canadian(provinceNewBrunswick, "New Brunswick", "HST", "HST Number", "WHSCC", "WHSCC Number"),
    canadian(provinceNewfoundland, "Newfoundland", "HST", "HST Number", "WHSCC", "WHSCC Number"),
    canadian(provincePrinceEdwardIsland, "Prince Edward Island", "GST", "GST Number", "WCB",
             "WCB Number"),
    Region{unitedStatesRegion, "", "United States", "US-FED", "Sales Tax", "Sellers Permit Number",
           "Use Tax", "Sellers Permit Number", "Workers' Comp.",
           "Federal Employer Identification Number", "Health Tax", "W-2 Filing",
           "Corporate Income Tax Return (1120)", "Individual Income Tax Return (1040)",
           "Internal Revenue Service", "Federal Employer Identification Number", "State Bar"},
};

// Grouped by region: citiesOf gives a run of them.
constexpr City cities[] = {
    {provinceAlberta, "Calgary", "", "403", "T2P"},
    {provinceAlberta, "Edmonton", "", "780", "T5J"},
    {provinceAlberta, "Red Deer", "", "403", "T4N"},
    {provinceBritishColumbia, "Vancouver", "", "604", "V6B"},
    {provinceBritishColumbia, "Victoria", "", "250", "V8W"},
    {provinceBritishColumbia, "Kelowna", "", "250", "V1Y"},
    {provinceManitoba, "Winnipeg", "", "204", "R3C"},
    {provinceManitoba, "Brandon", "", "204", "R7A"},
    {provinceManitoba, "Saint-Boniface", "", "204", "R2H"},
    {provinceOntario, "Ottawa", "", "613", "K2G"},
    {provinceOntario, "Toronto", "", "416", "M5H"},
    {provinceOntario, "Kingston", "", "613", "K7L"},
    {provinceOntario, "Hawkesbury", "", "613", "K6A"},
    {provinceOntario, "Sault Ste. Marie", "", "705", "P6A"},
    {provinceSaskatchewan, "Regina", "", "306", "S4P"},
    {provinceSaskatchewan, "Saskatoon", "", "306", "S7K"},
    {provinceQuebec, "Montréal", "", "514", "H2Y"},
    {provinceQuebec, "Québec", "", "418", "G1R"},
    {provinceQuebec, "Trois-Rivières", "", "819", "G9A"},
    {provinceQuebec, "Gatineau", "", "819", "J8X"},
    {provinceNovaScotia, "Halifax", "", "902", "B3J"},
    {provinceNovaScotia, "Yarmouth", "", "902", "B5A"},
    {provinceNewBrunswick, "Moncton", "", "506", "E1C"},
    {provinceNewBrunswick, "Fredericton", "", "506", "E3B"},
    {provinceNewfoundland, "St. John's", "", "709", "A1C"},
    {provinceNewfoundland, "Corner Brook", "", "709", "A2H"},
    {provincePrinceEdwardIsland, "Charlottetown", "", "902", "C1A"},
    {provincePrinceEdwardIsland, "Summerside", "", "902", "C1N"},
    {unitedStatesRegion, "Columbus", "Ohio", "614", "432"},
    {unitedStatesRegion, "Albany", "New York", "518", "122"},
    {unitedStatesRegion, "Portland", "Oregon", "503", "972"},
    {unitedStatesRegion, "Madison", "Wisconsin", "608", "537"},
    {unitedStatesRegion, "Lafayette", "Louisiana", "337", "705"},
};

}  // namespace

const Region& regionOf(countryCode country, provinceCode province) {
  const int code = country == countryCanada ? static_cast<int>(province) : unitedStatesRegion;
  const auto found = std::ranges::find(regions, code, &Region::code);
  return found == regions.end() ? regions.front() : *found;
}

std::span<const City> citiesOf(const Region& region) {
  const auto isHere = [&](const City& city) { return city.region == region.code; };
  const City* first = std::ranges::find_if(cities, isHere);
  const City* last = std::find_if_not(first, std::end(cities), isHere);
  return {first, last};
}

std::string inRegion(std::string_view text, const Region& region) {
  const std::pair<std::string_view, std::string_view> words[] = {
      {"{tax}", region.tax},
      {"{taxNumber}", region.taxNumber},
      {"{salesTax}", region.salesTax},
      {"{salesTaxNumber}", region.salesTaxNumber},
      {"{safety}", region.safety},
      {"{safetyNumber}", region.safetyNumber},
      {"{health}", region.health},
      {"{payrollSlips}", region.payrollSlips},
      {"{corporateReturn}", region.corporateReturn},
      {"{personalReturn}", region.personalReturn},
      {"{authority}", region.authority},
      {"{businessNumber}", region.businessNumber},
      {"{lawSociety}", region.lawSociety},
      {"{province}", region.isCanada() ? "Province" : "State"},
      {"{postalCode}", region.isCanada() ? "Postal Code" : "Zip Code"},
  };
  std::string result(text);
  for (const auto& [word, meaning] : words) result = replaceAll(result, word, meaning);
  return result;
}

}  // namespace autonotify::host::demo
