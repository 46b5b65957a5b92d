#include "merge/records/modCodeTexts.h"

#include <span>
#include <string_view>

#include "contract/enumerations.h"
#include "contract/procedure.h"
#include "contract/references.h"
#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modCodeTexts", name>;

struct CodeText {
  std::int16_t code;
  std::string_view text;
};

constexpr std::int16_t partnership = 3;

constexpr CodeText companyTypes[] = {
    {1, "Corporation"},   {2, "Sole Proprietorship"}, {4, "Non Profit"}, {5, "Trust"},
    {6, "Joint Venture"}, {7, "S Corporation"},       {8, "LLP"},        {9, "LLC"},
    {10, "Fiduciary"},
};
constexpr CodeText financialStatements[] = {
    {2, "Compilation (NTR)"},
    {3, "Review Engagement"},
    {4, "Review Engagement with Differential Reporting"},
    {5, "Audit"},
};
constexpr CodeText formStatuses[] = {
    {1, "Awaiting Signature"}, {2, "CRA Processing"}, {3, "Completed"}};
constexpr CodeText permissions[] = {{1, "Full"}, {2, "Limited"}};
constexpr CodeText filingMethods[] = {
    {1, "Traditional"}, {2, "Simple Method"}, {3, "Quick Method"}};
constexpr CodeText corporationTypes[] = {{1, "Regular Corporation"}};
constexpr CodeText corporationLevels[] = {{2, "Provincial Corporation"}};

std::string textOf(std::int16_t code, std::span<const CodeText> texts, std::string_view otherwise) {
  for (const CodeText& row : texts)
    if (row.code == code) return std::string(row.text);
  return std::string(otherwise);
}

std::string lookUp(std::string_view tag, std::int16_t code, std::span<const CodeText> texts,
                   std::string_view otherwise) {
  const auto find = [&](Step&, std::string& result) { result = textOf(code, texts, otherwise); };
  return procedure(tag, std::string(otherwise), find);
}

std::string companyTypeText(Step& step, std::int16_t code) {
  if (code != partnership) return textOf(code, companyTypes, "Unknown");
  const int country = step.value(0, [] { return locale().getCountryCode(); });
  return country == countryCanada ? "Partnership" : "General Partnership";
}

}  // namespace

std::string getCompanyTypeStringFromCompanyTypeNum(std::int16_t& code) {
  const auto find = [&](Step& step, std::string& result) { result = companyTypeText(step, code); };
  return procedure(tagOf<"getCompanyTypeStringFromCompanyTypeNum">, std::string("Unknown"), find);
}

std::string getFinancialStatementsStringFromFinancialStatementsNum(std::int16_t& code) {
  return lookUp(tagOf<"getFinancialStatementsStringFromFinancialStatementsNum">, code,
                financialStatements, "Not Specified");
}

std::string getRC59FormStatusStringFromRC59FormStatusNum(std::int16_t& code) {
  return lookUp(tagOf<"getRC59FormStatusStringFromRC59FormStatusNum">, code, formStatuses,
                "Not Filed");
}

std::string getRC59PermissionStringFromRC59PermissionNum(std::int16_t& code) {
  return lookUp(tagOf<"getRC59PermissionStringFromRC59PermissionNum">, code, permissions, "None");
}

std::string getGSTFilingMethodStringFromGSTFilingMethodNum(std::int16_t& code) {
  return lookUp(tagOf<"getGSTFilingMethodStringFromGSTFilingMethodNum">, code, filingMethods,
                "Not Specified");
}

std::string getCorporationTypeStringFromCorporationTypeNum(std::int16_t& code) {
  return lookUp(tagOf<"getCorporationTypeStringFromCorporationTypeNum">, code, corporationTypes,
                "CCPC");
}

std::string getCorporationLevelStringFromCorporationLevelNum(std::int16_t& code) {
  return lookUp(tagOf<"getCorporationLevelStringFromCorporationLevelNum">, code, corporationLevels,
                "Federal Corporation");
}

}  // namespace autonotify
