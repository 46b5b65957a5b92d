#include "merge/fields/field_rows.h"

namespace autonotify {

using namespace field_rows;
using enum InstallationLabel;

namespace {

constexpr FieldDefinition addressRows[] = {
    text("Address 1", "Address1", "120 King Street West", 50, assigning),
    text("Address 2", "Address2", "Suite 400", 50, assigning),
    text("Address 3", "Address3", "P.O. Box 12", 50, assigning),
    text("Address", "Address", "120 King Street West, Suite 400", 150, merging),
    text("City", "City", "Springfield", 50),
    text("Province", "Province", "Ontario", 50, canada),
    text("Abbreviated Province", "AbbreviatedProvince", "ON", 50, canada | merging),
    text("Postal Code", "PostalCode", "A1A 1A1", 15, canada),
    text("State", "Province", "New York", 50, elsewhere),
    text("Zip Code", "PostalCode", "12345", 15, elsewhere),
    text("Country", "Country", "Canada", 50),
};

constexpr FieldDefinition contactNameRows[] = {
    text("Contact Display Name", "DisplayName", "Jane Smith", 100, merging),
    text("Contact Full Name", "DisplayName", "Jane Smith", 100, assigning),
    text("Contact & Spouse Name", "ContactAndSpouseName", "Jane and John Smith", 150, merging),
    text("Client ID", "ClientIDStr", "SMI001", 50),
    text("Contact Name Prefix", "NamePrefix", "Mrs.", 20),
    text("Contact First Name", "FirstName", "Jane", 50),
    text("Contact Middle Name", "MiddleName", "Anne", 50),
    text("Contact Last Name", "LastName", "Smith", 50),
    text("Contact Name Suffix", "NameSuffix", "C.A.", 20),
};
constexpr FieldPart contactNameParts[] = {{contactNameRows}};

constexpr FieldDefinition accountingRows[] = {
    text("Business Number", "BusinessNumber", "12345 6789", 20, canada),
    text("RC59 Permission Level", "RC59Permission", "Full", 20, canada),
    text("RC59 Form Status", "RC59Status", "Completed", 20, canada),
    labelled(federalTax, text(" Number", "GSTNumber", "12345 6789 RT0001", 20, canada)),
    labelled(federalTax, text(" Filing Method", "GSTFilingMethod", "Quick Method", 20, canada)),
    labelled(salesTax, text(" Number", "PSTNumber", "1234 5678", 20, canada)),
    text("Payroll Number", "PayrollNumber", "12345 6789 RP0001", 20, canada),
    text("Payroll Registered As", "PayrollRegisteredAs", "Smith Holdings", 50, canada),
    text("Year End Date", "YearEndDate", "December 31", 20, canada),
    text("Federal Corp. Tax Number", "FederalCorpNumber", "12345 6789 RC0001", 20, canada),
    labelled(province, text(" Corp. Tax Number", "ONCorpNumber", "1234567", 20, canada)),
    text("Quebec ID Number", "MCBS", "1234567890", 20, canada | quebec),
    text("ON Corp. MCBS Number", "MCBS", "1234567", 20, canada | ontario),
    date("Incorporation Date", "IncorporationDate", "Mar 15, 1998", SampleYear::none, canada),
    text("Financial Statements", "FinancialStatements", "Review Engagement", 50, canada),
    text("Corporation Type", "CorporationType", "CCPC", 50, canada),
    text("Corporation Level", "CorporationLevel", "Federal Corporation", 50, canada),
    text("Charitable Number", "CharitableNum", "12345 6789 RR0001", 20, canada),
    text("NEQ Number", "WSIBNumber", "1234567890", 20, canada | quebec),
    labelled(safetyBoard, text(" Number", "WSIBNumber", "1234567", 20, canada | notQuebec)),
    labelled(safetyBoard, text(" Firm Number", "WSIBFirmNumber", "123456AB", 20, canada | ontario)),
    labelled(safetyBoard, text(" Premium Rate", "WSIBPremiumRate", "1.25", 10, canada)),
    labelled(safetyBoard, text(" Coverage", "Coverage", "Full", 50, canada)),
    text("EHT Number", "EHTNumber", "123456789", 20, canada),
    text("EHT Premium Rate", "EHTPremiumRate", "0.98", 10, canada),
    date("Name Renewal Date", "NameRenewalDate", "Jun 30, ", SampleYear::current, canada),
    text("Law Society Member Number", "LawSocietyMemberNumber", "12345A", 20, canada),
    text("Federal Employer Identification Number", "EIN", "12-3456789", 20, elsewhere),
    text("Sellers Permit Number", "SellersPermitNum", "SR 123-456789", 20, elsewhere),
    date("Year End Date", "USYearEndDate", "Dec 31, ", SampleYear::previous, elsewhere),
    text("Secretary of State File Number", "SoSFileNum", "1234567", 20, elsewhere),
    date("Incorporation Date", "USIncorporationDate", "Mar 15, 1998", SampleYear::none, elsewhere),
    text("Property Tax Number", "PropertyTaxNum", "123-456-78", 20, elsewhere),
    text("Form 637 Registration Number", "Form637RegNum", "12-34567-A", 20, elsewhere),
    text("Terminal Control Number", "TCN", "T-12-AB-3456", 20, elsewhere),
    text("Terminal Name", "TerminalName", "Harbor Terminal", 50, elsewhere),
    text("Terminal Location", "TerminalLocation", "Albany, New York", 50, elsewhere),
    text("Alcohol Number", "AlcoholNum", "ABC-NY-12345", 20, elsewhere),
};
constexpr CustomFields clientCustom{"CustomFields", "CustomName", "Business Client Custom Field ",
                                    "ClientCustom"};
constexpr FieldPart accountingParts[] = {{accountingRows}, {.custom = &clientCustom}};

constexpr FieldDefinition softwareRows[] = {
    text("Software Name", "SoftwareName", "General Ledger", 50),
    text("Software Serial Number", "SoftwareSerialNumber", "1234-5678-90", 50),
    text("Software Version", "SoftwareVersion", "5.2", 20),
    text("Software Account Number", "SoftwareAccountNumber", "100200", 50),
    text("Data File Saved As", "FileSavedAs", "Smith Holdings", 100),
    text("User Name", "UserName", "jsmith", 50),
    text("Password", "Password", "secret", 50),
};
constexpr FieldPart softwareParts[] = {{softwareRows}};

constexpr FieldDefinition companyNameRows[] = {
    text("Company Name", "CompanyName", "Smith Holdings", 100),
    text("Client ID", "ClientIDStr", "SMI001", 50),
    text("Corporate Name", "CorporateName", "Smith Holdings Inc.", 100),
    text("Company Type", "CompanyType", "Corporation", 50),
    text("Industry Type", "IndustryType", "Retail", 50),
};
constexpr FieldDefinition companyRows[] = {
    text("Office Number", "OfficeNumber", "(555) 555-0100", 30),
    text("Alternate Phone Number", "AltPhoneNumber", "(555) 555-0101", 30),
    text("Fax Number", "FaxNumber", "(555) 555-0102", 30),
    text("Email", "Email", "info@smithholdings.example", 100),
    text("Web Site", "WebSite", "www.smithholdings.example/ca", 100, canada),
    text("Web Site", "WebSite", "www.smithholdings.example/us", 100, elsewhere),
    text("Company FaceBook URL", "FaceBookURL", "facebook.example/smithholdings", unlimited),
    text("Company Twitter Account", "TwitterAccount", "@smithholdings", 100),
    text("Supervising Partner", "PartnerName", "Robert Brown", 100),
    text("Managing Accountant", "AccountantName", "Mary Green", 100),
};
constexpr CustomFields companyCustom{"CustomAddressFields", "CompanyLabel", "Company Custom Field ",
                                     "CompanyCustom"};
constexpr FieldDefinition companyNotesRows[] = {
    inGroup("CompanyNotes",
            text("Company Notes", "Notes", "Sample company notes", unlimited, withNotes)),
};
constexpr FieldPart companyParts[] = {
    {companyNameRows},
    {addressRows},
    {companyRows},
    {addressRows, "Company Alternate ", "Alt"},
    {.custom = &companyCustom},
    {companyNotesRows},
};

constexpr FieldDefinition contactWorkRows[] = {
    text("Contact SIN", "SocialInsuranceNumber", "123 456 789", 20, canada),
    text("Contact SSN", "SocialInsuranceNumber", "123-45-6789", 20, elsewhere),
    text("Supervising Partner", "PartnerName", "Robert Brown", 100),
    text("Managing Accountant", "AccountantName", "Mary Green", 100),
    text("Contact Employee Type", "EmployeeType", "Manager", 50),
    text("Contact Percentage Ownership", "PercentageOwnership", "50", 10),
    text("Contact Business Name", "BusinessName", "Smith Holdings", 100),
    text("Contact Job Title", "BusinessJobTitle", "President", 50),
    text("Contact Business Department", "BusinessDepartment", "Finance", 50),
    text("Contact Business Office", "BusinessOffice", "Head Office", 50),
    text("Contact Business Phone", "BusinessPhone_Main", "(555) 555-0110", 30),
    text("Contact Business Alt. Phone", "BusinessAltPhoneNumber", "(555) 555-0111", 30),
    text("Contact Business Cell", "BusinessPhone_Cell", "(555) 555-0112", 30),
    text("Contact Business Pager", "BusinessPhone_Pager", "(555) 555-0113", 30),
    text("Contact Business Fax", "BusinessPhone_Fax", "(555) 555-0114", 30),
};
constexpr FieldDefinition contactReachRows[] = {
    text("Contact Business Web Site", "BusinessWebSite", "www.smithholdings.example", 100),
    text("Contact Business Email", "BusinessEmail", "jane@smithholdings.example", 100),
    text("Contact Business FaceBook URL", "BusinessFaceBookURL", "facebook.example/smithholdings",
         unlimited),
    text("Contact Business Twitter Account", "BusinessTwitterAccount", "@smithholdings", 100),
    text("Contact Personal Phone", "HomePhone_Main", "(555) 555-0120", 30),
    text("Contact Personal Cell", "HomePhone_Cell", "(555) 555-0121", 30),
    text("Contact Personal Pager", "HomePhone_Pager", "(555) 555-0122", 30),
    text("Contact Personal Fax", "HomePhone_Fax", "(555) 555-0123", 30),
    text("Contact Personal Web Site", "PersonalWebSite", "www.janesmith.example", 100),
    text("Contact Personal Email", "PersonalEmail", "jane@janesmith.example", 100),
    text("Contact Personal FaceBook URL", "PersonalFaceBookURL", "facebook.example/janesmith",
         unlimited),
    text("Contact Personal Twitter Account", "PersonalTwitterAccount", "@janesmith", 100),
};
constexpr FieldDefinition contactFamilyRows[] = {
    text("Contact Children", "Children", "Paul and Emily", 100),
    text("Contact Gender", "Gender", "Female", 20),
    date("Contact Birthday", "Birthday", "May 12, 1951", SampleYear::none),
    date("Contact Anniversary", "Anniversary", "Jun 21, 1975", SampleYear::none),
    text("Contact Spoken Language", "SpokenLanguage", "English", 50),
    text("Contact Marital Status", "MaritialStatus", "Married", 50),
    text("Spouse Name Prefix", "SpouseNamePrefix", "Mr.", 20),
    text("Spouse First Name", "SpouseFirstName", "John", 50),
    text("Spouse Middle Name", "SpouseMiddleName", "Peter", 50),
    text("Spouse Last Name", "SpouseLastName", "Smith", 50),
    text("Spouse Name Suffix", "SpouseNameSuffix", "Jr.", 20),
    text("Spouse Display Name", "SpouseName", "John Smith", 100),
    text("Spouse Personal Email", "SpouseEmail", "john@janesmith.example", 100),
    text("Spouse Home Phone", "SpousePhone_Main", "(555) 555-0130", 30),
    text("Spouse Personal Cell", "SpousePhone_Cell", "(555) 555-0131", 30),
};
constexpr FieldDefinition spouseRows[] = {
    text("Spouse Gender", "SpouseGender", "Male", 20),
    text("Spouse Birthday", "SpouseBirthday", "Sep 8, 1950", 20),
    text("Spouse SIN", "SpouseSIN", "987 654 321", 20, canada),
    text("Spouse SSN", "SpouseSIN", "987-65-4321", 20, elsewhere),
};
constexpr CustomFields contactCustom{"CustomAddressFields", "ContactLabel", "Contact Custom Field ",
                                     "ContactCustom"};
constexpr FieldDefinition contactNotesRows[] = {
    inGroup("ContactNotes",
            text("Contact Notes", "Notes", "Sample contact notes", unlimited, withNotes)),
};
constexpr FieldPart contactParts[] = {
    {contactWorkRows},
    {addressRows, "Contact Business ", "Business"},
    {contactReachRows},
    {addressRows, "Contact Home ", "Home"},
    {contactFamilyRows},
    {addressRows, "Spouse Home ", "Spouse"},
    {spouseRows},
    {addressRows, "Contact Alternate ", "Alt"},
    {.custom = &contactCustom},
    {contactNotesRows},
};

}  // namespace

constinit const FieldBlock contactNameBlock{"ContactInfo", contactNameParts};
constinit const FieldBlock accountingBlock{"ClientInfo", accountingParts};
constinit const FieldBlock softwareBlock{"SoftwareInfo", softwareParts};
constinit const FieldBlock companyBlock{"CompanyInfo", companyParts};
constinit const FieldBlock contactBlock{"ContactInfo", contactParts};

}  // namespace autonotify
