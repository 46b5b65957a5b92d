#include "host/database/schema/schema_builder.h"

namespace autonotify::host::schema {

std::vector<TableDef> firmTables() {
  return {
      table(
          "AccountantFirmInfo",
          {key("CompanyID"), texts({"CompanyName", "CorporateName", "CompanyType", "IndustryType"}),
           address(), texts({"OfficeNumber", "AltPhoneNumber", "FaxNumber", "Email", "WebSite"}),
           memos({"BusinessNotes"}), flags({"InheritCompanyInfo"}), five("Custom")}),
      // The staff. A user's id is the ContactID; CompanyNum leads to the firm.
      table("AccountantEmployeeInfo",
            {key("ContactID"), links({"ContactNum", "CompanyNum", "CategoryNum"}),
             texts({"DisplayName", "NamePrefix", "FirstName", "MiddleName", "LastName",
                    "NameSuffix", "EmployeeType"}),
             smalls({"UserLevel"}, "1"), flags({"InheritCompanyInfo"}, "1"),
             texts({"BusinessName", "BusinessJobTitle", "BusinessPhone_Main", "BusinessPhone_Cell",
                    "BusinessPhone_Fax", "BusinessEmail"}),
             address("Business"), address("Home"),
             texts({"HomePhone_Main", "HomePhone_Cell", "HomePhone_Fax", "PersonalEmail"}),
             memos({"BusinessNotes", "PersonalNotes"}), links({"PersonalTaxCategoryNum"}),
             flags({"PersonalTaxClient"})}),
      // One row each: what the firm calls the custom columns.
      table("CustomFields",
            {key("CustomFieldsID"), five("CustomName"), five("ApptCustomName"),
             five("TaskCustomName"), five("DocketCustomName"), five("RemittanceLabel")}),
      table("CustomAddressFields",
            {key("CustomAddressFieldsID"), five("CompanyLabel"), five("ContactLabel")}),
      // One row: what tells this database from every other, whatever its file is called.
      table("DatabaseIdentity", {key("DatabaseIdentityID"), texts({"UniqueText"})}),
  };
}

}  // namespace autonotify::host::schema
