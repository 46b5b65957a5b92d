#include "merge/records/record_fields.h"

#include <map>

#include "merge/MergeTest.h"
#include "merge/fields/field_format.h"
#include "merge/records/merge_values.h"
#include "support/value_cells.h"

namespace autonotify::test {
namespace {

using std::string;
using enum MergeSource;

/// The records of a merge without a list of fields.
class RecordFieldsTest : public RecordsTest {
 protected:
  void open() {
    procedure("test", [&](Step& step) {
      sources.closeAll(step);
      sources.openForOneDocument(step, scope);
    });
  }
  /// The values of "name|name" in the source, which is opened where it is closed.
  string read(MergeSource source, const string& names) {
    string values;
    procedure("test", [&](Step& step) {
      for (string name : split(names)) {
        values += "|";
        if (sources.openOnDemand(step, scope, source) && sources.goToRow(step, scope, source))
          values += textOf(RecordFields(step, sources, scope).read(source, name));
      }
    });
    return values.substr(1);
  }

  MergeSources sources;
  MergeScope scope;
};

TEST_F(RecordFieldsTest, GiveAnInheritingContactTheAddressOfTheCompany) {
  addAllTold(*this, "merge_tables.txt", "company with contacts");
  for (const auto& row : rowsOf("inheritance", 3)) {
    scope.ids.companyID = std::stoi(row[0]);
    scope.ids.contactID = std::stoi(row[1]);
    open();
    EXPECT_EQ(read(contact,
                   "BusinessPhone_Main|BusinessPhone_Fax|BusinessAddress|BusinessCity|"
                   "BusinessPostalCode|BusinessProvince|BusinessAbbreviatedProvince|FirstName|"
                   "BusinessCountry"),
              row[2])
        << row[0] << '/' << row[1];
  }
}

TEST_F(RecordFieldsTest, NameTheFifthCustomFieldOfACompanyInTheSetUpAlone) {
  addAllTold(*this, "merge_tables.txt", "custom fields");
  scope.ids.companyID = scope.ids.contactID = 1;
  EXPECT_EQ(read(contact,
                 "ContactAndSpouseName|ALTAbbreviatedProvince|ContactCustom5|"
                 "HomeAbbreviatedProvince"),
            "Anna Lee|Bavaria|Fifth|BC");
  errors.answer({error_choice::next});
  EXPECT_EQ(read(company, "CompanyCustom1|CompanyCustom5"), "One|");
  open();
  EXPECT_EQ(read(company, "CompanyCustom1|CompanyCustom5"), "One|Five");
}

TEST_F(RecordFieldsTest, ReadTheDurationOfATaskFromTheAppointment) {
  scope.ids.taskID =
      addRow("Tasks", {{"Subject", "Call"}, {"TimeFrom", "9:30"}, {"TimeTo", "10:00"}});
  for (const char* why : {"read on demand", "set up"}) {
    errors.answer({error_choice::next, error_choice::next});
    EXPECT_EQ(read(task, "Subject|PeriodDescription|TimeDuration"), "Call||") << why;
    open();
  }
  scope.ids.appointmentID = addRow("Appointments", {{"TimeFrom", "9:00"}, {"TimeTo", "9:45"}});
  open();
  EXPECT_EQ(read(task, "TimeDuration") + read(appointment, "TimeDuration"), "45 min45 min");
  scope.ids.docketId = addRow("Dockets", {{"TimeFrom", "14:05"}, {"TimeTo", "15:36"}});
  EXPECT_EQ(read(docket, "TimeDuration"), "1 hr 31 min");
}

TEST_F(RecordFieldsTest, PutAccountingCodesInWords) {
  scope.ids.companyID = addAccountingClient({{"YearEndDate", "2025-06-30"}});
  const string fields =
      "RC59Permission|RC59Status|GSTFilingMethod|FinancialStatements|CorporationType|"
      "CorporationLevel|YearEndDate";
  EXPECT_EQ(read(clientAccounting, fields),
            "None|Not Filed|Not Specified|Not Specified|CCPC|Federal Corporation|June 30")
      << "of empty columns";
  plainDatabase->connection().exec(
      "UPDATE Companies SET CompanyType='2'; UPDATE AccountingServices SET RC59Permission=2, "
      "RC59Status=1, GSTFilingMethod=3, FinancialStatements=5; UPDATE CorpTaxInfo SET "
      "CorporationType=1, CorporationLevel=2");
  open();
  EXPECT_EQ(read(clientAccounting, fields),
            "Limited|Awaiting Signature|Quick Method|Audit|Regular Corporation|"
            "Provincial Corporation|June 30");
  EXPECT_EQ(read(company, "CompanyType|CompanType"), "2|Sole Proprietorship");
  scope.ids.companyID = 0;
  open();
  EXPECT_EQ(read(clientAccounting, fields), "||||||") << "not of somebody else";
}

TEST_F(RecordFieldsTest, AreFoundInWholeTablesForABulkMerge) {
  addAllTold(*this, "merge_tables.txt", "whole tables");
  scope.ids.firmID = 1;
  scope.ids.companyID = 5;
  scope.isBulk = true;
  EXPECT_EQ(read(software, "SoftwareName"), "") << "not before a client's record has opened it";
  calls.record(true);
  for (const auto& [id, name] : {std::pair{2, "Anna Lee"}, {1, "Ben Oak"}, {77, ""}}) {
    scope.ids.contactID = id;
    EXPECT_EQ(read(contact, "DisplayName"), name);
  }
  EXPECT_EQ(read(companyNotes, "Notes"), "By email");
  EXPECT_EQ(read(software, "SoftwareName"), "Abacus") << "the first, whoever's";
  EXPECT_EQ(read(firm, "CompanyName"), "Birch LLP");
  EXPECT_EQ(logged("findRecord"), split("ContactID=2|ContactID=1|ContactID=77|ComapnyNum=5"));
  scope.isBulk = false;
  scope.ids.companyID = addAccountingClient();
  open();
  EXPECT_EQ(read(software, "SoftwareName"), "Ledger 9") << "looked for among one row";
  EXPECT_EQ(logged("findRecord").back(), "CompanyID=" + std::to_string(scope.ids.companyID));
  scope.isBulk = true;
  EXPECT_EQ(read(software, "SoftwareName"), "Abacus") << "all rows over the one";
}

using FieldFormat = HostTest;

TEST_F(FieldFormat, PrintsEachTypeInItsForm) {
  const std::map<std::string, FieldType> types = {
      {"date", FieldType::date},         {"time", FieldType::time},
      {"currency", FieldType::currency}, {"yes or no", FieldType::yesNo},
      {"duration", FieldType::duration}, {"text", FieldType::text},
      {"no type", FieldType{}},          {"documents", FieldType::documentsList}};
  for (const auto& row : rowsOf("values of fields", 4))
    EXPECT_EQ(formattedField(valueOfCell(row[1]), types.at(row[0]), row[2]).value_or("none"),
              row[3])
        << row[0] << ' ' << row[1];
  EXPECT_THROW(formattedField("Bookkeeping", FieldType::date, ""), PlatformError);
}

}  // namespace
}  // namespace autonotify::test
