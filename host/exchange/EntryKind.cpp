#include "host/exchange/EntryKind.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr auto integer = CellType::integer;
constexpr auto decimal = CellType::decimal;
constexpr auto date = CellType::date;
constexpr auto flag = CellType::flag;
constexpr auto text = CellType::text;
constexpr auto word = CellType::word;
constexpr auto reference = CellType::reference;

constexpr EntryColumn scheduleKinds[] = {
    {"Family", "totalnum group", "TotalNum", integer, true},
    {"Number", "schedulenum", "ScheduleNum", integer, true},
    {"Name", "kind type taskkind tasktype scheduletype", "ScheduleTypeName", text, true},
    {"Abbreviation", "short", "ShortAbbreviation"},
    {"Days Before", "period notificationperiod businessdays", "NotificationPeriod", integer},
    {"Template", "text letter notificationcomment", "NotificationComment"},
};

constexpr EntryColumn holidays[] = {
    {"Date", "day holidaydate", "HolidayDate", date, true},
    {"Name", "holiday holidayname description title", "HolidayName"},
    {"Type", "holidaytype", "HolidayType", integer},
};

constexpr EntryColumn staff[] = {
    {"Name", "displayname fullname employee employeename staff staffname user", "DisplayName", text,
     true},
    {"Prefix", "salutation", "NamePrefix"},
    {"First Name", "givenname", "FirstName"},
    {"Middle Name", "middle", "MiddleName"},
    {"Last Name", "surname familyname", "LastName"},
    {"Job Title", "title position role", "BusinessJobTitle"},
    {"Type", "employeetype", "EmployeeType"},
    {"Level", "userlevel accesslevel", "UserLevel", integer},
    {"Email", "emailaddress mail mainemail workemail businessemail", "BusinessEmail", word},
    {"Phone",
     "telephone tel mainphone phonenumber phoneno telephonenumber telnumber workphone "
     "workphonenumber businessphone businessphonenumber",
     "BusinessPhone_Main"},
    {"Cell", "cellphone cellnumber mobile mobilephone mobilenumber", "BusinessPhone_Cell"},
    {"Fax", "faxnumber faxno", "BusinessPhone_Fax"},
    {"Home Email", "personalemail privateemail", "PersonalEmail", word},
    {"Home Phone", "homephonenumber", "HomePhone_Main"},
    {"Home Address 1", "homeaddress", "HomeAddress1"},
    {"Home Address 2", "", "HomeAddress2"},
    {"Home City", "", "HomeCity"},
    {"Home Province", "homestate", "HomeProvince"},
    {"Home Postal Code", "homezip", "HomePostalCode"},
    {"Home Country", "", "HomeCountry"},
    {"Notes", "note comments", "BusinessNotes"},
};

constexpr EntryColumn companies[] = {
    {"Client Number",
     "clientno clientid clientcode customernumber customerid account accountnumber accountno "
     "number id no code",
     "ClientIDStr", word},
    {"Company Name",
     "company name client clientname customer customername business businessname organization "
     "organisation",
     "CompanyName", text, true},
    {"Corporate Name", "legalname registeredname", "CorporateName"},
    {"Company Type", "type entitytype legalform", "CompanyType"},
    {"Industry", "industrytype sector", "IndustryType"},
    {"Address 1", "address street streetaddress addressline1 street1 mailingaddress", "Address1"},
    {"Address 2", "addressline2 street2", "Address2"},
    {"Address 3", "addressline3 street3", "Address3"},
    {"City", "town municipality", "City"},
    {"Province", "prov state stateprovince provincestate region", "Province"},
    {"Postal Code", "postal zip zipcode postcode", "PostalCode"},
    {"Country", "countryregion", "Country"},
    {"Phone",
     "telephone tel mainphone phonenumber phoneno telephonenumber telnumber officephone "
     "officenumber businessphone businessphonenumber",
     "OfficeNumber"},
    {"Other Phone",
     "otherphonenumber phone2 altphone alternatephone cell cellphone cellnumber mobile mobilephone "
     "mobilenumber",
     "AltPhoneNumber"},
    {"Fax", "faxnumber faxno businessfax businessfaxnumber", "FaxNumber"},
    {"Email", "emailaddress mail mainemail companyemail", "Email", word},
    {"Web Site", "web url homepage webpage", "WebSite"},
    {"Partner", "partnername", "PartnerName"},
    {"Accountant", "accountantname accountmanager preparer manager", "AccountantName"},
    {"Business Number", "bn bnnumber", "AccountingServices.BusinessNumber"},
    {"Year End", "yearenddate fiscalyearend", "AccountingServices.YearEndDate", date},
    {"Active Status", "status", "ClientData.ActiveStatus", integer},
    {"Custom 1", "", "Custom1"},
    {"Custom 2", "", "Custom2"},
    {"Custom 3", "", "Custom3"},
    {"Custom 4", "", "Custom4"},
    {"Custom 5", "", "Custom5"},
};

constexpr EntryColumn contacts[] = {
    {"Client Number",
     "clientno clientid clientcode customernumber customerid account accountnumber accountno "
     "number id no code",
     "ClientIDStr", word},
    {"Name", "displayname fullname contact contactname clientname", "DisplayName"},
    {"Prefix", "title salutation nameprefix", "NamePrefix"},
    {"First Name", "first givenname", "FirstName"},
    {"Middle Name", "middle", "MiddleName"},
    {"Last Name", "last surname familyname", "LastName"},
    {"Suffix", "namesuffix", "NameSuffix"},
    {"Client", "personalclient personaltaxclient isclient", "", reference},
    {"Home Address 1",
     "address street streetaddress address1 addressline1 homestreet "
     "homeaddress",
     "HomeAddress1"},
    {"Home Address 2", "address2 addressline2 homestreet2", "HomeAddress2"},
    {"Home Address 3", "address3 homestreet3", "HomeAddress3"},
    {"Home City", "city town", "HomeCity"},
    {"Home Province", "prov province state homestate", "HomeProvince"},
    {"Home Postal Code", "postal postalcode zip zipcode postcode homezip", "HomePostalCode"},
    {"Home Country", "country homecountryregion", "HomeCountry"},
    {"Home Phone",
     "phone telephone tel mainphone phonenumber phoneno telephonenumber telnumber homephonenumber",
     "HomePhone_Main"},
    {"Cell", "cellphone cellnumber mobile mobilephone mobilenumber homecell", "HomePhone_Cell"},
    {"Home Fax", "fax faxnumber faxno homefaxnumber", "HomePhone_Fax"},
    {"Email", "emailaddress mail mainemail personalemail homeemail", "PersonalEmail", word},
    {"Company", "companyname business businessname employer organization organisation",
     "BusinessName"},
    {"Job Title", "position", "BusinessJobTitle"},
    {"Department", "", "BusinessDepartment"},
    {"Work Phone", "workphonenumber businessphone businessphonenumber officephone",
     "BusinessPhone_Main"},
    {"Work Cell", "businesscell", "BusinessPhone_Cell"},
    {"Work Fax", "workfaxnumber businessfax businessfaxnumber", "BusinessPhone_Fax"},
    {"Work Email", "businessemail email2address", "BusinessEmail", word},
    {"Work Address 1", "businessaddress businessstreet workaddress", "BusinessAddress1"},
    {"Work Address 2", "businessstreet2", "BusinessAddress2"},
    {"Work City", "businesscity", "BusinessCity"},
    {"Work Province", "businessstate businessprovince", "BusinessProvince"},
    {"Work Postal Code", "businesspostalcode workzip", "BusinessPostalCode"},
    {"Work Country", "businesscountry", "BusinessCountry"},
    {"Address Of Company", "inheritcompanyinfo", "InheritCompanyInfo", flag},
    {"Birthday", "birthdate dateofbirth dob", "Birthday", date},
    {"Social Insurance Number", "sin sinnumber ssn ssnnumber socialsecuritynumber",
     "SocialInsuranceNumber"},
    {"Gender", "sex", "Gender"},
    {"Language", "spokenlanguage", "SpokenLanguage"},
    {"Marital Status", "maritialstatus", "MaritialStatus"},
    {"Spouse First Name", "", "SpouseFirstName"},
    {"Spouse Last Name", "", "SpouseLastName"},
    {"Spouse Email", "", "SpouseEmail", word},
    {"Spouse Phone", "", "SpousePhone_Main"},
    {"Partner", "partnername", "PartnerName"},
    {"Accountant", "accountantname accountmanager preparer", "AccountantName"},
    {"Custom 1", "", "Custom1"},
    {"Custom 2", "", "Custom2"},
    {"Custom 3", "", "Custom3"},
    {"Custom 4", "", "Custom4"},
    {"Custom 5", "", "Custom5"},
};

constexpr EntryColumn links[] = {
    {"Contact", "person name contactname", "", reference, true},
    {"Company", "companyname client clientnumber", "", reference, true},
    {"Default", "defaultcontact main primary primarycontact", "DefaultContact", flag},
};

constexpr EntryColumn tasks[] = {
    {"Client", "clientnumber clientname customer customername company companyname contact", "",
     reference, true},
    {"Kind", "type task taskkind tasktype jobtype service scheduletype", "", reference, true},
    {"Name", "task taskname schedulename title subject", "scheduleName"},
    {"Due Date", "due deadline", "DueDate", date, true},
    {"In-House Date", "internaldate inhouseduedate", "inHouseDueDate", date},
    {"Documents By", "infodeadline infodeadlinedate", "InfoDeadlineDate", date},
    {"Assigned To", "assigned employee employeeassigned assignee staff", "", reference},
    {"Year", "taxyear", "Year", integer},
    {"Period End", "periodenddate", "PeriodEndDate", date},
    {"Period", "perioddescription", "PeriodDescription"},
    {"Documents Received", "receivedalldocs", "ReceivedAllDocs", flag},
    {"Received On", "receiveddocsdate", "ReceivedDocsDate", date},
    {"File Location", "location", "FileLocation"},
    {"Amount", "", "Amount", decimal},
    {"Estimated Hours", "hours estimatedtime", "EstimatedTime", decimal},
    {"Closed", "done completed", "Closed", flag},
    {"Completed By", "personcompleted", "PersonCompleted"},
    {"Completed On", "datecompleted", "DateCompleted", date},
    {"Custom 1", "", "Custom1"},
    {"Custom 2", "", "Custom2"},
    {"Custom 3", "", "Custom3"},
    {"Custom 4", "", "Custom4"},
    {"Custom 5", "", "Custom5"},
};

constexpr EntryKind kinds[] = {
    {"kinds", "ScheduleTypes", scheduleKinds},
    {"holidays", "Holidays", holidays},
    {"staff", "AccountantEmployeeInfo", staff},
    {"companies", "Companies", companies},
    {"contacts", "Contacts", contacts},
    {"links", "ContactLinks", links},
    {"tasks", "Schedule", tasks},
};

bool isSpelling(std::string_view spellings, std::string_view folded) {
  while (!spellings.empty()) {
    const std::size_t end = std::min(spellings.find(' '), spellings.size());
    if (spellings.substr(0, end) == folded) return true;
    spellings.remove_prefix(std::min(end + 1, spellings.size()));
  }
  return false;
}

}  // namespace

std::span<const EntryKind> entryKinds() {
  return kinds;
}

const EntryKind* findEntryKind(std::string_view name) {
  const auto found = std::ranges::find_if(
      kinds, [&](const EntryKind& kind) { return equalIgnoreCase(kind.name, name); });
  return found == std::end(kinds) ? nullptr : found;
}

std::string foldHeading(std::string_view heading) {
  std::string folded;
  for (const char c : replaceAll(lowerCase(heading), "#", "number"))
    if (static_cast<unsigned char>(c) >= 0x80 || std::isalnum(static_cast<unsigned char>(c)))
      folded += c;
  return folded;
}

std::vector<const EntryColumn*> findEntryColumns(const EntryKind& kind,
                                                 std::span<const std::string> headings) {
  std::vector<const EntryColumn*> columns(headings.size(), nullptr);
  const auto isFree = [&](const EntryColumn& column) {
    return std::ranges::find(columns, &column) == columns.end();
  };
  const auto assign = [&](auto isHeadingOf) {
    for (std::size_t i = 0; i < headings.size(); ++i) {
      const std::string folded = foldHeading(headings[i]);
      for (const EntryColumn& column : kind.columns)
        if (!columns[i] && isHeadingOf(column, folded) && isFree(column)) columns[i] = &column;
    }
  };
  assign([](const EntryColumn& column, const std::string& folded) {
    return foldHeading(column.heading) == folded;
  });
  assign([](const EntryColumn& column, const std::string& folded) {
    return isSpelling(column.spellings, folded);
  });
  return columns;
}

}  // namespace autonotify::host
