#include "host/database/schema/schema_builder.h"

namespace autonotify::host::schema {

std::vector<TableDef> addressBookTables() {
  return {
      table("Companies",
            {key("CompanyID"), links({"CompanyNum", "CategoryNum"}),
             texts({"CompanyName", "CorporateName", "ClientIDStr", "CompanyType", "IndustryType"}),
             address(),
             texts({"OfficeNumber", "AltPhoneNumber", "FaxNumber", "Email", "WebSite",
                    "FaceBookURL", "TwitterAccount", "PartnerName", "AccountantName"}),
             address("Alt"),
             texts({"DefaultContactName", "DefaultContactPhoneNumber", "DefaultContactFaxNumber",
                    "DefaultContactEmail"}),
             flags({"PortalChangedFlag"}), five("Custom")},
            {{"CompanyName"}, {"CategoryNum"}, {"CompanyNum"}}),
      // The merge engine searches the notes of all companies by "ComapnyNum": both hold the id.
      table("CompaniesNotes",
            {key("CompaniesNoteID"), links({"CompanyNum", "ComapnyNum"}),
             memos({"Notes", "BusinessNotes", "ContactNotes"})},
            {{"CompanyNum"}}),
      table("Contacts",
            {key("ContactID"),
             texts({"DisplayName", "NamePrefix", "FirstName", "MiddleName", "LastName",
                    "NameSuffix", "ClientIDStr", "SocialInsuranceNumber", "PartnerName",
                    "AccountantName", "EmployeeType", "PercentageOwnership"}),
             flags({"InheritCompanyInfo", "PortalChangedFlag"}),
             texts({"BusinessName", "BusinessJobTitle", "BusinessDepartment", "BusinessOffice",
                    "BusinessPhone_Main", "BusinessAltPhoneNumber", "BusinessPhone_Cell",
                    "BusinessPhone_Pager", "BusinessPhone_Fax"}),
             address("Business"),
             texts({"BusinessWebSite", "BusinessEmail", "BusinessFaceBookURL",
                    "BusinessTwitterAccount", "HomePhone_Main", "PersonalAltPhoneNumber",
                    "HomePhone_Cell", "HomePhone_Pager", "HomePhone_Fax", "PersonalWebSite",
                    "PersonalEmail", "PersonalFaceBookURL", "PersonalTwitterAccount"}),
             address("Home"), texts({"Children", "Gender"}), dates({"Birthday", "Anniversary"}),
             texts({"SpokenLanguage", "MaritialStatus", "SpouseNamePrefix", "SpouseFirstName",
                    "SpouseMiddleName", "SpouseLastName", "SpouseNameSuffix", "SpouseName",
                    "SpouseEmail", "SpousePhone_Main", "SpousePhone_Cell"}),
             address("Spouse"), texts({"SpouseGender"}), dates({"SpouseBirthday"}),
             texts({"SpouseSIN"}), address("Alt"), five("Custom")},
            {{"LastName", "FirstName"}}),
      table("ContactsNotes",
            {key("ContactsNoteID"), links({"ContactNum"}),
             memos({"Notes", "BusinessNotes", "PersonalNotes"})},
            {{"ContactNum"}}),
      // A link of one contact to a company, to another contact or to a category; the others are
      // NULL.
      table("ContactLinks",
            {key("ContactLinkID"), links({"ContactIDNum"}),
             integers({"ContactNum", "CompanyNum", "CategoryNum"}), flags({"DefaultContact"}),
             texts({"FamilyRelationship"}), flags({"IsPersonalTaxCategory"})},
            {{"CompanyNum", "DefaultContact"}, {"ContactIDNum"}, {"CategoryNum"}, {"ContactNum"}}),
      table("Categories",
            {key("CategoryID"), links({"CategoryNum"}), texts({"CategoryName"}),
             memos({"CategoryDescription"}), smalls({"CategorySpecialCode"})},
            {{"CategoryNum"}}),
  };
}

}  // namespace autonotify::host::schema
