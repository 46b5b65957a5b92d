#include <gmock/gmock.h>

#include <algorithm>

#include "fields_host.h"

namespace autonotify::test {
namespace {

using testing::Contains;
using testing::IsSubsetOf;
using testing::Not;
using testing::StartsWith;

constexpr int canada = 1;
constexpr int unitedStates = 2;
constexpr int alberta = 0;
constexpr int ontario = 3;
constexpr int quebec = 8;

struct CountCase {
  int listType;
  int country;
  int province;
  /// Rows for the uses 1, 3 and 4.
  std::array<std::size_t, 3> rows;
};

// Counted apart from the tables that the code is made of.
constexpr CountCase countCases[] = {
    {0, canada, ontario, {18, 18, 18}},          {1, canada, ontario, {169, 174, 167}},
    {1, unitedStates, alberta, {149, 160, 147}}, {2, canada, quebec, {168, 173, 166}},
    {3, canada, ontario, {100, 103, 99}},        {3, unitedStates, alberta, {96, 103, 95}},
    {4, canada, ontario, {18, 18, 18}},          {5, canada, alberta, {178, 183, 176}},
    {5, unitedStates, ontario, {160, 171, 158}}, {6, canada, ontario, {203, 208, 201}},
    {6, unitedStates, quebec, {183, 194, 181}},  {8, canada, ontario, {204, 209, 202}},
    {8, canada, quebec, {203, 208, 201}},        {8, canada, alberta, {202, 207, 200}},
    {8, unitedStates, ontario, {184, 195, 182}}, {8, 7, ontario, {184, 195, 182}},
    {-1, canada, ontario, {18, 18, 18}},         {33, canada, ontario, {18, 18, 18}},
};

TEST_F(FieldsHost, EveryFamilyHasItsRows) {
  constexpr int uses[] = {1, 3, 4};
  for (const CountCase& expected : countCases) {
    live(expected.country, expected.province);
    for (std::size_t i = 0; i < std::size(uses); ++i) {
      EXPECT_EQ(build(expected.listType, uses[i]).size(), expected.rows[i])
          << "list " << expected.listType << " in " << expected.country << "/" << expected.province
          << " for use " << uses[i];
    }
  }
}

TEST_F(FieldsHost, AContactWithACompanyAlsoGetsTheCompanysRows) {
  build(3);
  EXPECT_THAT(column(groupColumn), Not(Contains("CompanyInfo")));
  merge->companyID = 0;
  EXPECT_EQ(build(3).size(), 100U + 32U);
  EXPECT_THAT(column(groupColumn), Contains("CompanyInfo"));
  EXPECT_THAT(column(groupColumn), Contains("CompanyNotes"));
}

TEST_F(FieldsHost, BlocksComeInOrder) {
  build(8);
  std::vector<std::string> groups = column(groupColumn);
  groups.erase(std::unique(groups.begin(), groups.end()), groups.end());
  EXPECT_EQ(groups,
            (std::vector<std::string>{"TaskInfo", "DocsAndInstructionsInfo", "TaskInfo",
                                      "CompanyInfo", "CompanyNotes", "ContactInfo", "ClientInfo",
                                      "SoftwareInfo", "ContactInfo", "ContactNotes", "FirmInfo"}));
}

TEST_F(FieldsHost, KeysRunFromOneInEveryBuild) {
  for (int round = 0; round < 2; ++round) {
    const std::size_t count = build(5).size();
    GridColumnList& list = *merge->get_FieldList();
    EXPECT_TRUE(list.selectEntry(1));
    EXPECT_EQ(toText(list.getItem(displayNameColumn)), "Appointment Name");
    EXPECT_TRUE(list.selectEntry(static_cast<int>(count)));
    EXPECT_FALSE(list.selectEntry(static_cast<int>(count) + 1));
  }
}

struct FieldCase {
  const char* displayName;
  const char* column;
  const char* group;
  int type;
};

TEST_F(FieldsHost, FieldsReadTheirColumns) {
  constexpr FieldCase cases[] = {
      {"Task Due Date", "DueDate", "TaskInfo", 2},
      {"Estimated Time", "EstimatedTime", "TaskInfo", 6},
      {"Client Documents & Instructions", "DocsAndInstructionsList", "DocsAndInstructionsInfo", 7},
      {"Task Start Time", "TimeFrom", "TaskInfo", 3},
      {"Custom Task Calendar Field 5", "TaskCustom5", "TaskInfo", 1},
      {"Custom Task Field 1", "ScheduleCustom1", "TaskInfo", 1},
      {"Contact Display Name", "DisplayName", "ContactInfo", 1},
      {"Contact Business Abbreviated Province", "BusinessAbbreviatedProvince", "ContactInfo", 1},
      {"Spouse Home Postal Code", "SpousePostalCode", "ContactInfo", 1},
      {"Contact Marital Status", "MaritialStatus", "ContactInfo", 1},
      {"Contact Birthday", "Birthday", "ContactInfo", 2},
      {"Spouse Birthday", "SpouseBirthday", "ContactInfo", 1},
      {"Company Alternate Country", "AltCountry", "CompanyInfo", 1},
      {"Company Notes", "Notes", "CompanyNotes", 1},
      {"Contact Notes", "Notes", "ContactNotes", 1},
      {"Year End Date", "YearEndDate", "ClientInfo", 1},
      {"Incorporation Date", "IncorporationDate", "ClientInfo", 2},
      {"Business Client Custom Field 3", "ClientCustom3", "ClientInfo", 1},
      {"Password", "Password", "SoftwareInfo", 1},
      {"Your Company Custom Field 2", "FirmCustom2", "FirmInfo", 1},
  };
  live(canada, ontario);
  build(8);
  GridColumnList& list = *merge->get_FieldList();
  for (const FieldCase& field : cases) {
    ASSERT_GE(list.findEntry(displayNameColumn, field.displayName), 0) << field.displayName;
    EXPECT_EQ(toText(list.getItem(databaseFieldColumn)), field.column) << field.displayName;
    EXPECT_EQ(toText(list.getItem(groupColumn)), field.group) << field.displayName;
    EXPECT_EQ(toInteger(list.getItem(typeColumn)), field.type) << field.displayName;
  }
}

struct ProvinceCase {
  int province;
  std::vector<const char*> present;
  std::vector<const char*> absent;
};

TEST_F(FieldsHost, ProvincesNameTheAccountingRows) {
  const ProvinceCase cases[] = {
      {0,
       {"GST Number", "PST Number", "WCB Number", "WCB Coverage", "Alberta Corp. Tax Number"},
       {"HST Number", "WCB Firm Number", "ON Corp. MCBS Number", "Quebec ID Number"}},
      {1, {"HST Filing Method", "WCB Premium Rate", "BC Corp. Tax Number"}, {"GST Number"}},
      {2, {"GST Number", "WCB Number", "Manitoba Corp. Tax Number"}, {"HST Number"}},
      {3,
       {"HST Number", "WSIB Firm Number", "ON Corp. Tax Number", "ON Corp. MCBS Number"},
       {"GST Number", "Quebec ID Number", "NEQ Number"}},
      {4, {"GST Number", "WCB Number", "Sask. Corp. Tax Number"}, {"HST Number"}},
      {8,
       {"QST Number", "NEQ Number", "CSST Coverage", "Que. Corp. Tax Number", "Quebec ID Number"},
       {"PST Number", "CSST Number", "CSST Firm Number", "ON Corp. MCBS Number"}},
      {9, {"HST Number", "WCB Number", "N.S. Corp. Tax Number"}, {"GST Number"}},
      {10, {"HST Number", "WHSCC Number", "N.B. Corp. Tax Number"}, {"WHSCC Firm Number"}},
      {11, {"HST Number", "WHSCC Premium Rate", "Nfld. Corp. Tax Number"}, {"GST Number"}},
      {12, {"GST Number", "WCB Number", "P.E.I. Corp. Tax Number"}, {"HST Number"}},
      {77,
       {"GST Number", "WSIB Firm Number", "ON Corp. Tax Number", "ON Corp. MCBS Number"},
       {"HST Number", "NEQ Number"}},
  };
  for (const ProvinceCase& expected : cases) {
    SCOPED_TRACE(expected.province);
    live(canada, expected.province);
    const std::vector<std::string> names = build(1);
    for (const char* name : expected.present) EXPECT_THAT(names, Contains(name));
    for (const char* name : expected.absent) EXPECT_THAT(names, Not(Contains(name)));
  }
}

TEST_F(FieldsHost, TheTaxIsRenamedOnTheDayOfHarmonization) {
  for (const int province : {1, 3}) {
    live(canada, province);
    clock.moment = DateTime::of(2010, 6, 30, 23, 59, 59);
    EXPECT_THAT(build(1), Contains("GST Number"));
    clock.moment = DateTime::of(2010, 7, 1);
    EXPECT_THAT(build(1), Contains("HST Number"));
  }
}

TEST_F(FieldsHost, CountriesHaveTheirOwnWords) {
  const std::vector<const char*> canadian{"Contact SIN", "Spouse SIN",    "Province",
                                          "Postal Code", "Your Province", "Business Number",
                                          "EHT Number"};
  const std::vector<const char*> american{"Contact SSN",   "Spouse SSN", "State",
                                          "Zip Code",      "Your State", "Sellers Permit Number",
                                          "Alcohol Number"};
  for (const auto& [country, own, foreign] : {std::tuple{canada, canadian, american},
                                              {unitedStates, american, canadian},
                                              {5, american, canadian}}) {
    live(country, ontario);
    const std::vector<std::string> names = build(1);
    for (const char* name : own) EXPECT_THAT(names, Contains(name)) << country;
    for (const char* name : foreign) EXPECT_THAT(names, Not(Contains(name))) << country;
  }
}

TEST_F(FieldsHost, TheYearEndIsADateOutsideCanadaOnly) {
  for (const auto& [country, column, type] :
       {std::tuple{canada, "YearEndDate", 1}, {unitedStates, "USYearEndDate", 2}}) {
    live(country, ontario);
    build(1);
    GridColumnList& list = *merge->get_FieldList();
    ASSERT_GE(list.findEntry(displayNameColumn, "Year End Date"), 0);
    EXPECT_EQ(toText(list.getItem(databaseFieldColumn)), column);
    EXPECT_EQ(toInteger(list.getItem(typeColumn)), type);
  }
}

TEST_F(FieldsHost, AListForAssigningHasNoJoinedValues) {
  live(canada, ontario);
  const std::vector<std::string> assigning = build(2, 3);
  const std::vector<std::string> lines{"Contact Full Name",
                                       "Address 1",
                                       "Address 2",
                                       "Address 3",
                                       "Contact Business Address 1",
                                       "Company Alternate Address 3"};
  const std::vector<std::string> joined{
      "Contact Display Name", "Contact & Spouse Name", "Address",
      "Contact Home Address", "Abbreviated Province",  "Contact Alternate Abbreviated Province"};
  const std::vector<std::string> merging = build(2, 1);
  EXPECT_THAT(lines, IsSubsetOf(assigning));
  EXPECT_THAT(joined, IsSubsetOf(merging));
  for (const std::string& name : joined) EXPECT_THAT(assigning, Not(Contains(name)));
  for (const std::string& name : lines) EXPECT_THAT(merging, Not(Contains(name)));
}

TEST_F(FieldsHost, DateSamplesAreOfThisYearOrTheYearBefore) {
  live(canada, ontario);
  clock.moment = DateTime::of(2027, 2, 3);
  build(8);
  GridColumnList& list = *merge->get_FieldList();
  const auto sampleOf = [&](const char* name) {
    EXPECT_GE(list.findEntry(displayNameColumn, name), 0) << name;
    return toText(list.getItem(sampleColumn));
  };
  EXPECT_EQ(sampleOf("Task Due Date"), "Jan 31, 2027");
  EXPECT_EQ(sampleOf("Task in-House Due Date"), "Jan 27, 2027");
  EXPECT_EQ(sampleOf("Period End Date"), "Dec 31, 2026");
  EXPECT_THAT(sampleOf("Contact Birthday"), testing::EndsWith(", 1951"));
  EXPECT_EQ(sampleOf("Task Name"), "1st Quarterly GST Payment");
  build(5);
  EXPECT_EQ(sampleOf("Appointment Date"), "Jan 31, 2027");
}

TEST_F(FieldsHost, NoNameHoldsWhatATokenIsMadeOf) {
  for (const int country : {canada, unitedStates}) {
    live(country, quebec);
    for (const int listType : {5, 6, 8}) {
      for (const std::string& name : build(listType)) {
        EXPECT_EQ(name.find(','), std::string::npos) << name;
        EXPECT_EQ(name.find("«"), std::string::npos) << name;
        EXPECT_FALSE(name.empty());
        EXPECT_LE(name.size(), 40U) << "a template could not name " << name;
      }
      for (const std::string& sample : column(sampleColumn)) EXPECT_NE(sample, "");
    }
  }
}

}  // namespace
}  // namespace autonotify::test
