#include "host/database/schema/schema_builder.h"

namespace autonotify::host::schema {

// A business client has one row in each of the tables from ClientData on, all under the same key.
// The accounting fields of a merge come from the join of these tables with Companies, read by name
// alone: no two of them may share a column that is a merge field.
std::vector<TableDef> accountingTables() {
  return {
      table("Clients", {key("ClientID"), links({"CompanyIDNum", "ContactIDNum"})},
            {{"CompanyIDNum"}, {"ContactIDNum"}}),
      table("ClientData",
            {key("ClientDataID"), links({"CompanyIDNum"}), flags({"ShowThisClient"}, "1"),
             smalls({"ActiveStatus"}, "1"), five("ClientCustom")},
            {{"CompanyIDNum"}}),
      table("ClientOptions",
            {key("ClientOptionID"), flags({"ShowAccountingServices", "ShowCorpTaxInfo"}, "1")}),
      table("AccountingServices", {key("AccountingServiceID"), texts({"BusinessNumber"}),
                                   smalls({"RC59Permission", "RC59Status"}), texts({"GSTNumber"}),
                                   smalls({"GSTFilingMethod"}),
                                   texts({"PSTNumber", "PayrollNumber", "PayrollRegisteredAs"}),
                                   dates({"YearEndDate"}), smalls({"FinancialStatements"})}),
      table("CorpTaxInfo",
            {key("CorpTaxInfoID"), texts({"FederalCorpNumber", "ONCorpNumber", "MCBS"}),
             dates({"IncorporationDate"}), smalls({"CorporationType", "CorporationLevel"}),
             texts({"CharitableNum"})}),
      table("WSIB_EHTInfo",
            {key("WSIB_EHTInfoID"), texts({"WSIBNumber", "WSIBFirmNumber", "WSIBPremiumRate",
                                           "Coverage", "EHTNumber", "EHTPremiumRate"})}),
      table("LawInfo", {key("LawInfoID"), texts({"LawSocietyMemberNumber"})}),
      table("OtherInfo", {key("OtherInfoID"), dates({"NameRenewalDate"})}),
      table("ClientUSInfo",
            {key("ClientUSInfoID"), texts({"EIN", "SellersPermitNum"}), dates({"USYearEndDate"}),
             texts({"SoSFileNum"}), dates({"USIncorporationDate"}),
             texts({"PropertyTaxNum", "Form637RegNum", "TCN", "TerminalName", "TerminalLocation",
                    "AlcoholNum"})}),
      // The merge engine looks for a client's software under "CompanyID" as well: both hold the
      // id of the company, and -1 for the software of a contact.
      table("SoftwareInfo",
            {key("SoftwareInfoID"), links({"CompanyIDNum", "CompanyID", "ContactIDNum"}),
             flags({"DefaultSoftware"}),
             texts({"SoftwareName", "SoftwareSerialNumber", "SoftwareVersion",
                    "SoftwareAccountNumber", "FileSavedAs", "UserName", "Password"})},
            {{"CompanyIDNum"}, {"ContactIDNum"}}),
  };
}

}  // namespace autonotify::host::schema
