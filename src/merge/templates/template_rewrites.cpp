#include "merge/templates/template_rewrites.h"

#include <map>
#include <span>

#include "contract/enumerations.h"
#include "merge/templates/merge_tokens.h"
#include "merge/templates/province_terms.h"

namespace autonotify {
namespace {

struct Renaming {
  std::string_view from;
  std::string_view to;
};

/// What stands around a name in a template.
struct Surroundings {
  std::string_view before;
  std::string_view after;
};
constexpr Surroundings none{"", ""};
constexpr Surroundings bare{bareMarks.open, bareMarks.close};
constexpr Surroundings escaped{escapedMarks.open, escapedMarks.close};
constexpr Surroundings bareDate{"«(", ""};
constexpr Surroundings escapedDate{"\\'ab(", ""};

constexpr Renaming headers[] = {
    {"[Appointment Info]", ""},      {"[Task Info]", ""},
    {"[Time Entry Info]", ""},       {"[Company Address Info]", ""},
    {"[Default Contact Name]", ""},  {"[Company Accounting Info]", ""},
    {"[Company Software Info]", ""}, {"[More Contact Info]", ""},
    {"[Company Info]", ""},
};

constexpr Renaming angleMarks[] = {{"<<", bareMarks.open}, {">>", bareMarks.close}};
constexpr Renaming dateNames[] = {
    {"Due Date", "Task Due Date"},
    {"in-House Due Date", "Task in-House Due Date"},
    {"Calendar Date", "Task Calendar Due Date"},
};
constexpr Renaming fullName[] = {{"Contact Full Name", "Contact Display Name"}};
constexpr Renaming words[] = {
    {"Docket", "Time Entry"},
    {"Long Date", "dddd, mmmm d yyyy"},
    {"Medium Date", "mmm d yyyy"},
    {"Short Date", "dd/mm/yy"},
};
constexpr Renaming calendarDates[] = {
    {"Notified Date", "Calendar Date"},
    {"Weekday Date", "Calendar Date"},
};
constexpr Renaming taskNames[] = {
    {"Remittance Name", "Task Name"},
    {"Remittance Due Date", "Task Due Date"},
    {"Remittance in-House Due Date", "Task in-House Due Date"},
    {"Remittance Weekday Due Date", "Task Calendar Date"},
    {"Task Weekday Due Date", "Task Calendar Date"},
    {"Remittance Year", "Task Year"},
    {"Custom Remitt Field 1", "Custom Task Field 1"},
    {"Custom Remitt Field 2", "Custom Task Field 2"},
    {"Custom Remitt Field 3", "Custom Task Field 3"},
    {"Custom Remitt Field 4", "Custom Task Field 4"},
    {"Custom Remitt Field 5", "Custom Task Field 5"},
    {"Contact Full Name", "Contact Display Name"},
};
constexpr Renaming clientCustomNames[] = {
    {"Custom Field 1", "Business Client Custom Field 1"},
    {"Custom Field 2", "Business Client Custom Field 2"},
    {"Custom Field 3", "Business Client Custom Field 3"},
    {"Custom Field 4", "Business Client Custom Field 4"},
    {"Custom Field 5", "Business Client Custom Field 5"},
};

struct GeneralStep {
  std::span<const Renaming> names;
  Surroundings around;
};
constexpr GeneralStep generalSteps[] = {
    {angleMarks, none},
    {dateNames, bareDate},
    {dateNames, escapedDate},
    {fullName, bare},
    {fullName, escaped},
    {fullName, none},
    {words, none},
    {calendarDates, bare},
    {calendarDates, escaped},
    {taskNames, bare},
    {taskNames, escaped},
    {clientCustomNames, bare},
    {clientCustomNames, escaped},
};

/// From Canada's name to that of the United States.
constexpr Renaming nationalNames[] = {
    {"Province", "State"},
    {"Postal Code", "Zip Code"},
    {"Contact Business Province", "Contact Business State"},
    {"Contact Business Postal Code", "Contact Business Zip Code"},
    {"Contact Home Province", "Contact Home State"},
    {"Contact Home Postal Code", "Contact Home Zip Code"},
    {"Spouse Home Province", "Spouse Home State"},
    {"Spouse Home Postal Code", "Spouse Home Zip Code"},
    {"Your Province", "Your State"},
    {"Your Postal Code", "Your Zip Code"},
    {"Contact SIN", "Contact SSN"},
    {"Spouse SIN", "Spouse SSN"},
};

constexpr Renaming ontarioSafety[] = {
    {"WCB Number", "WSIB Number"},
    {"NEQ Number", "WSIB Number"},
    {"WHSCC Number", "WSIB Number"},
    {"WCB Firm Number", "WSIB Firm Number"},
    {"WCB Premium Rate", "WSIB Premium Rate"},
};
constexpr Renaming quebecSafety[] = {
    {"WSIB Number", "NEQ Number"},
    {"WSIB Premium Rate", "CSST Premium Rate"},
    {"WHSCC Number", "WCB Number"},
    {"WSIB Firm Number", "WSIB Firm Number"},
};
constexpr Renaming boardSafety[] = {
    {"WSIB Number", "WCB Number"},
    {"NEQ Number", "WCB Number"},
    {"WHSCC Number", "WCB Number"},
    {"WSIB Premium Rate", "WCB Premium Rate"},
    {"WSIB Firm Number", "WSIB Firm Number"},
};
constexpr Renaming atlanticSafety[] = {
    {"WSIB Number", "WHSCC Number"},          {"WCB Number", "WHSCC Number"},
    {"NEQ Number", "WHSCC Number"},           {"WSIB Premium Rate", "WHSCC Premium Rate"},
    {"WSIB Firm Number", "WSIB Firm Number"},
};
constexpr Renaming toHst[] = {{"GST Number", "HST Number"}};
constexpr Renaming toGst[] = {{"HST Number", "GST Number"}};
constexpr Renaming toQuebecId[] = {{"ON Corp. MCBS Number", "Quebec ID Number"}};
constexpr Renaming toOntarioId[] = {{"Quebec ID Number", "ON Corp. MCBS Number"}};

void add(std::vector<Rewrite>& rewrites, Surroundings around, std::string_view from,
         std::string_view to) {
  const auto surrounded = [&](std::string_view name) {
    return std::string(around.before).append(name).append(around.after);
  };
  rewrites.push_back({surrounded(from), surrounded(to)});
}

void add(std::vector<Rewrite>& rewrites, Surroundings around, std::span<const Renaming> names) {
  for (const Renaming& name : names) add(rewrites, around, name.from, name.to);
}

std::span<const Renaming> safetyNames(const ProvinceTerms& terms) {
  if (terms.code == provinceOntario) return ontarioSafety;
  if (terms.code == provinceQuebec) return quebecSafety;
  return terms.safetyBoard == "WHSCC" ? std::span<const Renaming>(atlanticSafety) : boardSafety;
}

void addCorporateTax(std::vector<Rewrite>& rewrites, const ProvinceTerms& own) {
  const auto fieldName = [](const ProvinceTerms& terms) {
    return std::string(terms.name).append(" Corp. Tax Number");
  };
  for (const ProvinceTerms& other : allProvinceTerms()) {
    // Quebec's list never had an entry for Saskatchewan.
    const bool isMissing = own.code == provinceQuebec && other.code == provinceSaskatchewan;
    if (other.code != own.code && !isMissing) add(rewrites, bare, fieldName(other), fieldName(own));
  }
}

void addProvince(std::vector<Rewrite>& rewrites, const ProvinceTerms& terms, bool isHarmonized) {
  // The later rule wins: where the HST came late, both tokens end as the GST's.
  if (terms.federalTax == FederalTax::hstSinceHarmonization && isHarmonized)
    add(rewrites, bare, toHst);
  add(rewrites, bare, safetyNames(terms));
  add(rewrites, bare, terms.federalTax == FederalTax::hst ? toHst : toGst);
  addCorporateTax(rewrites, terms);
  if (terms.code == provinceQuebec) add(rewrites, bare, toQuebecId);
  if (terms.code == provinceOntario) add(rewrites, bare, toOntarioId);
}

std::vector<Rewrite> makeRegional(const Region& region) {
  std::vector<Rewrite> rewrites;
  if (region.country == countryUnitedStates) add(rewrites, bare, nationalNames);
  if (region.country == countryCanada) {
    addProvince(rewrites, provinceTerms(region.province), region.isHarmonized);
    for (const Renaming& name : nationalNames) add(rewrites, bare, name.to, name.from);
  }
  return rewrites;
}

std::vector<Rewrite> makeGeneral() {
  std::vector<Rewrite> rewrites;
  for (const GeneralStep& step : generalSteps) add(rewrites, step.around, step.names);
  return rewrites;
}

std::vector<Rewrite> makeHeaderRemovals() {
  std::vector<Rewrite> rewrites;
  add(rewrites, none, headers);
  return rewrites;
}

}  // namespace

const RewriteList& headerRemovals() {
  static const RewriteList list(makeHeaderRemovals());
  return list;
}

const RewriteList& generalRewrites() {
  static const RewriteList list(makeGeneral());
  return list;
}

const RewriteList& regionalRewrites(const Region& region) {
  static std::map<Region, RewriteList> lists;
  const auto known = lists.find(region);
  if (known != lists.end()) return known->second;
  return lists.emplace(region, RewriteList(makeRegional(region))).first->second;
}

}  // namespace autonotify
