#pragma once

#include <cstdint>
#include <string>

namespace autonotify {

// The texts of the codes in a client's accounting columns, as a person reads them. A code that no
// table knows gives the text of the unset state. None of them changes `code`.

/// Code 3 is "Partnership" in Canada and "General Partnership" elsewhere.
std::string getCompanyTypeStringFromCompanyTypeNum(std::int16_t& code);
std::string getFinancialStatementsStringFromFinancialStatementsNum(std::int16_t& code);
std::string getRC59FormStatusStringFromRC59FormStatusNum(std::int16_t& code);
std::string getRC59PermissionStringFromRC59PermissionNum(std::int16_t& code);
std::string getGSTFilingMethodStringFromGSTFilingMethodNum(std::int16_t& code);
std::string getCorporationTypeStringFromCorporationTypeNum(std::int16_t& code);
std::string getCorporationLevelStringFromCorporationLevelNum(std::int16_t& code);

}  // namespace autonotify
