#include "merge/merge_host.h"

namespace autonotify::test {
namespace {

using std::string;

class DataValues : public MergeHost {
 protected:
  Id addAccountingClient(Fields services, Fields tax) {
    const Id company = addRow("Companies", "CompanyID", {{"CompanyName", "Elm Ltd."}});
    const string id = std::to_string(company);
    addRow("ClientData", "ClientDataID", {{"CompanyIDNum", id.c_str()}});
    addRow("Clients", "ClientID", {{"CompanyIDNum", id.c_str()}});
    addRow("CompaniesNotes", "CompaniesNoteID", {{"CompanyNum", id.c_str()}});
    addRow("AccountingServices", "AccountingServiceID", services);
    addRow("CorpTaxInfo", "CorpTaxInfoID", tax);
    for (const auto& [table, key] : {std::pair{"ClientOptions", "ClientOptionID"},
                                     {"LawInfo", "LawInfoID"},
                                     {"OtherInfo", "OtherInfoID"},
                                     {"WSIB_EHTInfo", "WSIB_EHTInfoID"}})
      addRow(table, key, {});
    return company;
  }
};

TEST_F(DataValues, PrintsEachTypeOfATimeEntryInItsForm) {
  merge->docketId = addRow("Dockets", "DocketID",
                           {{"Subject", "Bookkeeping"},
                            {"DateFrom", "2026-04-30"},
                            {"TimeFrom", "14:05"},
                            {"TimeTo", "15:36"},
                            {"DocketLocked", "True"},
                            {"TotalTimeReal", "1.5"},
                            {"TotalTimeRounded", "0.5167"},
                            {"TotalAmountReal", "1234.5"},
                            {"TotalAmountAdjusted", "-3"},
                            {"TotalAmountFinal", "0"}});
  listFields(6);
  const struct {
    const char* name;
    const char* format;
    const char* value;
  } cases[] = {
      {"Time Entry Name", "", "Bookkeeping"},
      {"Time Entry Date", "", "Apr 30, 2026"},
      {"Time Entry Date", "dddd, mmmm d yyyy", "Thursday, April 30 2026"},
      {"Time Entry Date", "dd/mmm/yy", "30/Apr/26"},
      {"Time Entry Start Time", "", "2:05 pm"},
      {"Time Entry Locked", "", "Yes"},
      {"Is Invoiced", "", "No"},
      {"Total Time (Actual)", "", "1 hr 30 min"},
      {"Total Time (Rounded)", "", "31 min"},
      {"Total Amount (Actual)", "", "$1,234.50"},
      {"Total Amount (Adjusted)", "", "$-3.00"},
      {"Total Amount (Final)", "", "$0.00"},
      {"Time Duration", "", "1 hr 31 min"},
      {"Time Entry Date Created", "", ""},
      {"Total Time (Final)", "", ""},
  };
  for (const auto& [name, format, value] : cases) EXPECT_EQ(valueOf(name, format), value) << name;
}

TEST_F(DataValues, LeavesADateBefore1900InItsOrdinaryForm) {
  merge->contactID =
      addRow("Contacts", "ContactID", {{"Birthday", "1899-06-01"}, {"Anniversary", "1900-01-01"}});
  listFields(8);
  EXPECT_EQ(valueOf("Contact Birthday", "yyyy"), "1899-06-01");
  EXPECT_EQ(valueOf("Contact Anniversary", "yyyy"), "1900");
}

TEST_F(DataValues, KeepsTheTextOfAValueThatIsNotOfItsType) {
  merge->taskID = addRow("Tasks", "TaskID", {{"Subject", "soon"}});
  GridColumnList& list = *merge->get_FieldList();
  const Value items[] = {"Subject", "When", "TaskInfo", 2, ""};
  list.addEntry(1, items);
  host.errors.answer({error_choice::next});
  EXPECT_EQ(merge->getDataFieldInfo(1, "d"), "soon");
  EXPECT_EQ(host.errors.recorded().at(0).number, error_number::typeMismatch);
}

TEST_F(DataValues, ShowsSamplesAsTheyStandWithoutAQuery) {
  merge->taskID = 1;
  listSamples({{"Due", "Jan 31, 2026", 2}, {"Paid", "$5.00", 4}, {"Two", "one\r\ntwo"}});
  beginRecord();
  EXPECT_EQ(valueOf("Due", "yyyy"), "Jan 31, 2026");
  EXPECT_EQ(valueOf("Paid"), "$5.00");
  EXPECT_EQ(valueOf("Two"), "one\\par \r\ntwo");
  merge->ConvertStrToRTF = false;
  EXPECT_EQ(valueOf("Two"), "one\r\ntwo");
  EXPECT_TRUE(callsOf("openRecordset").empty());
  EXPECT_EQ(merge->getDataFieldInfo(99, ""), "") << "no such row";
}

TEST_F(DataValues, GivesAnInheritingContactTheAddressOfTheCompany) {
  merge->companyID = addRow("Companies", "CompanyID",
                            {{"OfficeNumber", "555-1000"},
                             {"FaxNumber", "555-1001"},
                             {"Address", "1 Elm Street"},
                             {"City", "Guelph"},
                             {"Province", "Ontario"}});
  const Fields own = {{"InheritCompanyInfo", "True"},      {"BusinessPhone_Main", "555-2000"},
                      {"BusinessAddress", "2 Oak Street"}, {"BusinessPostalCode", "N1G 2W1"},
                      {"BusinessProvince", "Quebec"},      {"FirstName", "Anna"}};
  merge->contactID = addRow("Contacts", "ContactID", own);
  listFields(8);
  const struct {
    const char* name;
    const char* inherited;
    const char* own;
  } cases[] = {
      {"Contact Business Phone", "555-2000", "555-2000"},
      {"Contact Business Fax", "555-1001", ""},
      {"Contact Business Address", "1 Elm Street", "2 Oak Street"},
      {"Contact Business City", "Guelph", ""},
      {"Contact Business Postal Code", "N1G 2W1", "N1G 2W1"},
      {"Contact Business Province", "Ontario", "Quebec"},
      {"Contact Business Abbreviated Province", "QC", "QC"},
      {"Contact First Name", "Anna", "Anna"},
  };
  const auto expectOwn = [&](const char* why) {
    for (const auto& each : cases) EXPECT_EQ(valueOf(each.name), each.own) << each.name << why;
  };
  for (const auto& each : cases) EXPECT_EQ(valueOf(each.name), each.inherited) << each.name;
  const Id company = std::exchange(merge->companyID, noId);
  expectOwn(" without a company");
  merge->companyID = company;
  merge->contactID = addRow("Contacts", "ContactID",
                            {{"BusinessPhone_Main", "555-2000"},
                             {"BusinessAddress", "2 Oak Street"},
                             {"BusinessPostalCode", "N1G 2W1"},
                             {"BusinessProvince", "Quebec"},
                             {"FirstName", "Anna"}});
  merge->initializeDataRecordsetsForSingleDocMerge();
  expectOwn(" not inheriting");
}

TEST_F(DataValues, DerivesNamesAndProvincesOfAContact) {
  merge->contactID = addRow("Contacts", "ContactID",
                            {{"DisplayName", "Anna Lee"},
                             {"HomeProvince", "british columbia"},
                             {"AltProvince", "Bavaria"}});
  listFields(8);
  EXPECT_EQ(valueOf("Contact & Spouse Name"), "Anna Lee");
  EXPECT_EQ(valueOf("Contact Home Abbreviated Province"), "BC");
  EXPECT_EQ(valueOf("Contact Alternate Abbreviated Province"), "Bavaria");
  merge->get_FieldList()->findEntry(2, "Contact Home Abbreviated Province");
  string name = "HOMEABBREVIATEDPROVINCE";
  EXPECT_EQ(merge->getDataFieldFromRecordset(name), "BC");
  EXPECT_EQ(name, "HOMEPROVINCE") << "the column that was read";
}

TEST_F(DataValues, PutsAccountingCodesInWords) {
  listFields(8);
  merge->companyID = addAccountingClient({{"RC59Permission", "2"},
                                          {"RC59Status", "1"},
                                          {"GSTFilingMethod", "3"},
                                          {"FinancialStatements", "5"},
                                          {"YearEndDate", "2025-06-30"}},
                                         {{"CorporationType", "1"}, {"CorporationLevel", "2"}});
  const struct {
    const char* name;
    const char* value;
    const char* ofEmpty;
  } cases[] = {
      {"RC59 Permission Level", "Limited", "None"},
      {"RC59 Form Status", "Awaiting Signature", "Not Filed"},
      {"HST Filing Method", "Quick Method", "Not Specified"},
      {"Financial Statements", "Audit", "Not Specified"},
      {"Corporation Type", "Regular Corporation", "CCPC"},
      {"Corporation Level", "Provincial Corporation", "Federal Corporation"},
      {"Year End Date", "June 30", ""},
  };
  for (const auto& each : cases) EXPECT_EQ(valueOf(each.name), each.value) << each.name;
  merge->companyID = addAccountingClient({}, {});
  merge->initializeDataRecordsetsForSingleDocMerge();
  listFields(8);
  for (const auto& each : cases) EXPECT_EQ(valueOf(each.name), each.ofEmpty) << each.name;
}

TEST_F(DataValues, ReadsTheMisspeltCompanyTypeFromTheAccounts) {
  merge->companyID = addAccountingClient({}, {});
  host.plainDatabase->connection().exec("UPDATE Companies SET CompanyType='2'");
  listFields(8);
  EXPECT_EQ(valueOf("Company Type"), "2") << "as named";
  string name = "CompanType";
  EXPECT_EQ(merge->getDataFieldFromRecordset(name), "Sole Proprietorship");
}

TEST_F(DataValues, TakesTheDurationOfATaskFromTheAppointment) {
  merge->taskID =
      addRow("Tasks", "TaskID", {{"TimeFrom", "9:00"}, {"TimeTo", "10:00"}, {"Subject", "Call"}});
  listFields(8);
  host.errors.answer({error_choice::next});
  EXPECT_EQ(valueOf("Time Duration"), "") << "no appointment is open";
  merge->appointmentID =
      addRow("Appointments", "AppointmentID", {{"TimeFrom", "9:00"}, {"TimeTo", "9:45"}});
  merge->initializeDataRecordsetsForSingleDocMerge();
  EXPECT_EQ(valueOf("Time Duration"), "45 min");
}

TEST_F(DataValues, ListsTheDocumentsOfATask) {
  merge->taskID = addRow("Tasks", "TaskID", {});
  addRow("OperatingProcedures", "OperatingProcedureID",
         {{"TaskIDNum", "1"},
          {"OpProcedureScopeType", "2"},
          {"OrderNum", "1"},
          {"OpProcedureType", "2"},
          {"OpProdedureName", "Bank statements"}});
  listFields(8);
  EXPECT_EQ(valueOf("Client Documents & Instructions"),
            "\t- Document Required - Bank statements\\par \r\n");
}

TEST_F(DataValues, LooksFieldsUpByEitherName) {
  merge->contactID = addRow("Contacts", "ContactID", {{"FirstName", "Anna"}});
  EXPECT_EQ(merge->getMergeDataFromFieldName("FirstName"), "") << "the list was empty before";
  EXPECT_EQ(merge->getMergeDataFromFieldName("FirstName"), "Anna");
  EXPECT_EQ(merge->getMergeDataFromDisplayName("Contact First Name"), "Anna");
  for (const char* name : {"", "Nothing"}) {
    EXPECT_EQ(merge->getMergeDataFromFieldName(name), "");
    EXPECT_EQ(merge->getMergeDataFromDisplayName(name), "");
  }
  string name = "Contact First Name";
  EXPECT_EQ(merge->getDBFieldNameFromDisplayFieldName(name), "FirstName");
  name = "FirstName";
  EXPECT_EQ(merge->getDisplayFieldNameFromDBFieldName(name), "Contact First Name");
  name = "Nothing";
  EXPECT_EQ(merge->getDisplayFieldNameFromDBFieldName(name), "Nothing");
}

TEST_F(DataValues, NamesTheContactFieldForACompanyNameThatIsNotListed) {
  merge->contactID = 1;
  merge->ConvertCompanyNameToContactNameForContacts = true;
  listFields(3);
  GridColumnList& list = *merge->get_FieldList();
  ASSERT_LT(list.findEntry(2, "Company Name"), 0);
  list.findEntry(1, "CompanyName");
  list.setItem(1, "FirmName");
  EXPECT_EQ(merge->getMergeDataFromFieldName("CompanyName"), "DisplayName");
  EXPECT_EQ(merge->getMergeDataFromDisplayName("Company Name"), "Contact Display Name");
  list.findEntry(2, "Contact Display Name");
  list.setItem(2, "Contact Full Name");
  EXPECT_EQ(merge->getMergeDataFromDisplayName("Company Name"), "Contact Full Name");
  merge->companyID = 1;
  EXPECT_EQ(merge->getMergeDataFromFieldName("CompanyName"), "");
}

TEST_F(DataValues, WritesFieldsBackToTheirColumns) {
  merge->companyID = addRow("Companies", "CompanyID", {{"City", "Guelph"}});
  merge->contactID = addRow("Contacts", "ContactID",
                            {{"InheritCompanyInfo", "True"}, {"HomeProvince", "Ontario"}});
  addRow("ContactsNotes", "ContactsNoteID", {{"ContactNum", "1"}});
  merge->put_MergeFieldListUse(5);
  merge->ListType = 8;
  merge->initializeDataRecordsetsForSingleDocMerge();
  beginRecord();
  merge->writeDataToField("BusinessCity", "Elora");
  merge->writeDataToField("FirstName", "Anna");
  merge->writeDataToField("Notes", "Prefers email");
  merge->writeDataToField("HomeAbbreviatedProvince", "QC");
  merge->writeDataToField("ContactAndSpouseName", "Anna & Ben");
  merge->writeDataToField("Nothing", "x");
  merge->writeDataToField("", "x");
  EXPECT_EQ(callsOf("updateFieldValue"),
            (std::vector<string>{"City=Elora", "BusinessCity=Elora", "FirstName=Anna"}));
  EXPECT_EQ(host.dump("SELECT City FROM Companies"), "Elora|\n");
  EXPECT_EQ(host.dump("SELECT BusinessCity, FirstName, HomeProvince FROM Contacts"),
            "Elora|Anna|Ontario|\n");
}

}  // namespace
}  // namespace autonotify::test
