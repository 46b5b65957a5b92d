#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/schema/Schema.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"
#include "host/demo/holidays.h"
#include "platform/date_time_text.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

/// A firm in memory and questions about it.
class Firm {
 public:
  Firm() : database_(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE) {
    for (const std::string& statement : schemaStatements(Engine::sqlite)) database_.exec(statement);
  }
  explicit Firm(const DemoOptions& options) : Firm() {
    SqliteRowSink sink(database_);
    makeDemoFirm(sink, options);
  }

  SQLite::Database& database() { return database_; }

  int number(const std::string& select) { return database_.execAndGet(select).getInt(); }
  int count(const std::string& table) { return number("SELECT COUNT(*) FROM " + table); }

  /// Every value that is selected, with a bar behind each.
  std::string text(const std::string& select) {
    std::string result;
    SQLite::Statement rows(database_, select);
    while (rows.executeStep())
      for (int i = 0; i < rows.getColumnCount(); ++i)
        result += (rows.isColumnNull(i) ? "NULL" : rows.getColumn(i).getString()) + '|';
    return result;
  }

  std::string content() {
    std::string result;
    for (const TableDef& table : schemaTables()) result += text("SELECT * FROM " + table.name);
    return result;
  }

 private:
  SQLite::Database database_;
};

DemoOptions small(std::uint64_t seed = 1) {
  DemoOptions options;
  options.companies = 12;
  options.contacts = 10;
  options.staff = 4;
  options.seed = seed;
  return options;
}

TEST(Schema, NamesAreUniqueInAnyCaseAndIndexesNameThem) {
  std::set<std::string> names;
  for (const TableDef& table : schemaTables()) {
    EXPECT_TRUE(names.insert(lowerCase(table.name)).second) << table.name;
    for (const ColumnDef& column : table.columns)
      EXPECT_TRUE(names.insert(lowerCase(table.name + '.' + column.name)).second)
          << table.name << '.' << column.name;
    EXPECT_EQ(std::ranges::count(table.columns, ColumnKind::Key, &ColumnDef::kind), 1)
        << table.name;
    EXPECT_EQ(table.columns.front().kind, ColumnKind::Key) << table.name;
    for (const auto& index : table.indexes)
      for (const std::string& column : index)
        EXPECT_NE(findColumn(table.name, column), nullptr) << table.name << '.' << column;
  }
}

TEST(Schema, SqliteRefusesWrongTypes) {
  Firm firm;
  for (const char* columns : {"(totalNum) VALUES ('x')", "(Closed) VALUES (NULL)"})
    EXPECT_THROW(firm.database().exec(std::string("INSERT INTO Schedule ") + columns),
                 SQLite::Exception);
}

TEST(Schema, FrequentLookupsUseAnIndex) {
  const char* lookups[] = {
      "ClientNotification WHERE ScheduleIDNum = 5 AND NotificationType = 1",
      "ClientNotification WHERE NotificationDate <= '2026-01-01' AND NotificationSent=0",
      "ClientNotification WHERE DocketIDNum=5 AND NotificationType = 1",
      "Holidays WHERE HolidayDate = '2026-01-01'",
      "ScheduleTypes WHERE TotalNum=101 AND ScheduleNum=-1",
      "Schedule WHERE ClientNum = 3 AND Year = 2026 AND totalNum = 101 AND Closed=0",
      "Tasks WHERE ScheduleIDNum=3",
      "archiveSchedule WHERE oldScheduleID=3",
      "archiveTasks WHERE ScheduleIDNum=3",
      ("Contacts INNER JOIN ContactLinks ON Contacts.ContactID = ContactLinks.ContactIDNum WHERE "
       "ContactLinks.CompanyNum = 3 AND ContactLinks.DefaultContact=1"),
      "OperatingProcedures WHERE TaskIDNum =3 AND OpProcedureScopeType=2 ORDER BY OrderNum",
      "UserGeneralSettings WHERE UserIDNum=3",
  };
  Firm firm;
  for (const std::string lookup : lookups) {
    SQLite::Statement plan(firm.database(), "EXPLAIN QUERY PLAN SELECT * FROM " + lookup);
    while (plan.executeStep()) {
      const std::string step = plan.getColumn(3).getString();
      EXPECT_EQ(step.find("SCAN"), std::string::npos) << lookup << ": " << step;
      EXPECT_EQ(step.find("TEMP B-TREE"), std::string::npos) << lookup << ": " << step;
    }
  }
}

// The accounting fields of a merge are read by name from one wide join: a name that two of its
// tables hold would give the value of either.
TEST(Schema, AccountingFieldsStandInOneTableOfTheirJoin) {
  const std::vector<std::string> joins[] = {
      {"AccountingServices", "ClientData", "ClientOptions", "Companies", "CorpTaxInfo", "LawInfo",
       "OtherInfo", "WSIB_EHTInfo"},
      {"AccountingServices", "ClientData", "ClientOptions", "Companies", "ClientUSInfo"}};
  for (const auto& tables : joins) {
    std::set<std::string> columns;
    for (const std::string& table : tables)
      for (const ColumnDef& column : findTable(table)->columns) {
        const std::string name = lowerCase(column.name);
        const bool isLink = name == "companyidnum" || name == "companynum";
        EXPECT_TRUE(columns.insert(name).second || isLink) << table << '.' << name;
      }
  }
}

TEST(DemoFirm, TheSeedDecidesEverything) {
  EXPECT_EQ(Firm(small()).content(), Firm(small()).content());
  EXPECT_NE(Firm(small(1)).content(), Firm(small(2)).content());
}

TEST(DemoFirm, ATransactionThatFailsLeavesNothing) {
  Firm firm;
  firm.database().exec("DROP TABLE Dockets");
  {
    SqliteRowSink sink(firm.database());
    EXPECT_THROW(makeDemoFirm(sink, small()), DatabaseError);
  }
  EXPECT_EQ(firm.count("Companies"), 0);
}

TEST(DemoFirm, MayHaveNoClientsOrALongPast) {
  DemoOptions options = small();
  options.pastNotifications = 1000;
  Firm old(options);
  EXPECT_EQ(old.count("ClientNotification WHERE ScheduleIDNum BETWEEN 1 AND 500"), 1000);
  EXPECT_EQ(old.count("archiveSchedule WHERE oldScheduleID BETWEEN 1 AND 500"), 500);
  options.companies = options.contacts = 0;
  Firm empty(options);
  EXPECT_EQ(empty.count("ClientNotification") + empty.count("Appointments"), 0);
  EXPECT_EQ(empty.count("AccountantEmployeeInfo"), 4);
}

TEST(DemoFirm, HasTheSizeAndTheVarietyOfAFirmAndNoRowThatOughtNotToBeThere) {
  const std::string channels =
      "(SELECT COALESCE(SUM(NotificationType), 0) FROM ClientNotification ";
  const std::string unwanted[] = {
      "Schedule WHERE ClientNum >= 0 AND ContactIDNum >= 0",
      "Schedule WHERE ClientNum NOT IN (SELECT ClientDataID FROM ClientData INNER JOIN Companies "
      "ON CompanyIDNum = CompanyID) AND ContactIDNum NOT IN (SELECT ContactID FROM Contacts)",
      "Schedule WHERE EmployeeAssigned NOT IN (SELECT DisplayName FROM AccountantEmployeeInfo)",
      "Schedule WHERE NOT EXISTS (SELECT 1 FROM ScheduleTypes WHERE ScheduleTypes.TotalNum = "
      "Schedule.totalNum AND ScheduleTypes.ScheduleNum = Schedule.scheduleNum)",
      "Schedule WHERE ScheduleID NOT IN (SELECT ScheduleIDNum FROM Tasks)",
      "Schedule WHERE ScheduleID IN (SELECT oldScheduleID FROM archiveSchedule)",
      "Tasks WHERE UserIDNum NOT IN (SELECT ContactID FROM AccountantEmployeeInfo)",
      // The bits of a task are the channels of its rows.
      "Schedule WHERE notifyType <> " + channels + "WHERE ScheduleIDNum = ScheduleID)",
      "Appointments WHERE notifyType <> " + channels + "WHERE ApptIDNum = AppointmentID)",
      "Dockets WHERE notifyType <> " + channels + "WHERE DocketIDNum = DocketID)",
      "Appointments WHERE ClientNotifiedFlag <> (notifyType > 0)",
      "(SELECT 1 FROM ClientNotification WHERE ScheduleIDNum >= 0 GROUP BY ScheduleIDNum, "
      "NotificationType HAVING COUNT(*) > 1)",
      "ClientNotification WHERE NotificationSent <> (NotificationSentStatus > 1)",
      "ClientNotification WHERE (SentTime IS NULL) <> (NotificationSentStatus <> 2)",
      "ClientNotification WHERE NotificationType = 1 AND Field1 IS NULL",
      "ClientNotification WHERE NotificationDate IN (SELECT HolidayDate FROM Holidays)",
      "ClientNotification INNER JOIN Schedule ON ScheduleIDNum = ScheduleID WHERE Closed = 1 AND "
      "NotificationSent = 0",
      "(SELECT 1 FROM ContactLinks WHERE DefaultContact = 1 GROUP BY CompanyNum HAVING COUNT(*) > "
      "1)",
      "Companies INNER JOIN ContactLinks ON ContactLinks.CompanyNum = CompanyID INNER JOIN "
      "Contacts ON ContactID = ContactIDNum WHERE DefaultContact = 1 AND DefaultContactName <> "
      "DisplayName",
      // Nothing in it reaches anyone.
      "Contacts WHERE BusinessEmail NOT LIKE '%.example' OR PersonalEmail NOT LIKE '%.example' OR "
      "SpouseEmail NOT LIKE '%.example' OR SocialInsuranceNumber NOT LIKE '0%'",
      "Companies WHERE Email NOT LIKE '%.example' OR WebSite NOT LIKE '%.example'",
      "Contacts WHERE BusinessPhone_Main NOT LIKE '(___) 555-01__' OR HomePhone_Main NOT LIKE "
      "'(___) 555-01__' OR SpousePhone_Main NOT LIKE '(___) 555-01__'",
  };
  Firm firm{DemoOptions{}};
  for (const std::string& rows : unwanted) EXPECT_EQ(firm.count(rows), 0) << rows;
  const std::tuple<std::string, int, int> cases[] = {
      {"(SELECT DISTINCT CompanyName FROM Companies)", 200, 200},
      {"Clients WHERE ContactIDNum > 0", 300, 300},
      {"(SELECT DISTINCT DisplayName FROM AccountantEmployeeInfo)", 15, 15},
      {"Schedule", 3400, 4600},
      {"(SELECT DISTINCT totalNum FROM Schedule)", 14, 14},
      {"archiveSchedule INNER JOIN archiveTasks ON oldScheduleID = ScheduleIDNum", 500, 9999},
      {"AccountantFirmInfo, CustomFields, CustomAddressFields", 1, 1},
      {"Companies WHERE DefaultContactName IS NULL", 3, 100},
      {"Contacts WHERE BusinessEmail IS NULL AND PersonalEmail IS NULL", 3, 100},
      // One key per client in all of the accounting tables.
      {"ClientData INNER JOIN AccountingServices ON ClientDataID = AccountingServiceID INNER JOIN "
       "ClientOptions ON ClientDataID = ClientOptionID INNER JOIN CorpTaxInfo ON ClientDataID = "
       "CorpTaxInfoID INNER JOIN LawInfo ON ClientDataID = LawInfoID INNER JOIN OtherInfo ON "
       "ClientDataID = OtherInfoID INNER JOIN WSIB_EHTInfo ON ClientDataID = WSIB_EHTInfoID",
       200, 200},
      {"(SELECT DISTINCT NotificationType, NotificationSentStatus FROM ClientNotification)", 12,
       12},
      {"ClientNotification WHERE NotificationSent = 0 AND NotificationDate <= '" +
           dateTimeText(DemoOptions{}.today) + "'",
       11, 199}};
  for (const auto& [rows, atLeast, atMost] : cases) {
    const int count = firm.count(rows);
    EXPECT_TRUE(count >= atLeast && count <= atMost) << count << ' ' << rows;
  }
  for (const char* oddity : {"''", "\"", "#", "é", "\\", "{"})
    EXPECT_GT(firm.count("Companies WHERE instr(CompanyName, '" + std::string(oddity) + "')"), 0);
}

TEST(DemoFirm, SpeaksTheWordsOfItsPlace) {
  const char* tax101 =
      "SELECT ShortAbbreviation FROM ScheduleTypes WHERE TotalNum = 101 AND ScheduleNum = -1";
  for (const auto& [province, tax, provinceName] :
       {std::tuple{provinceAlberta, "GST|", "Alberta|"},
        {provinceBritishColumbia, "HST|", "British Columbia|"},
        {provinceOntario, "HST|", "Ontario|"},
        {provinceQuebec, "GST|", "Quebec|"},
        {provinceNovaScotia, "HST|", "Nova Scotia|"},
        {provincePrinceEdwardIsland, "GST|", "Prince Edward Island|"}}) {
    DemoOptions options = small();
    options.province = province;
    Firm firm(options);
    EXPECT_EQ(firm.text(tax101), tax);
    EXPECT_EQ(firm.text("SELECT DISTINCT Province FROM Companies"), provinceName);
    EXPECT_GT(firm.count("Holidays"), 20) << provinceName;
  }
  DemoOptions abroad = small();
  abroad.country = countryUnitedStates;
  EXPECT_EQ(Firm(abroad).text(tax101), "Sales Tax|");
}

TEST(DemoHolidays, FollowThePlaceAndTheWorkingWeek) {
  const auto has = [](std::string_view set, int year, int month, int day) {
    const DateTime date = DateTime::of(year, month, day);
    return std::ranges::count(demo::holidaysOf(set), date, &demo::Holiday::date) > 0;
  };
  EXPECT_TRUE(has("CA", 2026, 7, 1));
  EXPECT_TRUE(has("CA-ON", 2026, 2, 16));
  EXPECT_FALSE(has("CA", 2026, 2, 16) || has("CA", 2026, 6, 24));
  EXPECT_TRUE(has("US-FED", 2026, 7, 3));
  EXPECT_TRUE(demo::holidaysOf("nowhere").empty());
  const demo::WorkCalendar calendar(demo::holidaysOf("CA-ON"));
  const auto july = [](int day) { return DateTime::of(2026, 7, day); };
  EXPECT_EQ(calendar.workingDaysBefore(july(6), 1), july(3));
  EXPECT_EQ(calendar.workingDaysBefore(july(6), 3), DateTime::of(2026, 6, 30));
  EXPECT_EQ(calendar.workingDaysBefore(july(2), -3), july(7));
  EXPECT_EQ(calendar.workingDayOnOrBefore(july(5)), july(3));
}

TEST(SeedEssentials, AnEmptyFirmHasWhatEveryLookupFallsBackTo) {
  Firm firm;
  SqliteRowSink sink(firm.database());
  seedEssentials(sink, {"Étude & Fils", "Admin", countryCanada, provinceQuebec});
  for (const char* row :
       {"ScheduleTypes WHERE TotalNum = 101 AND ScheduleNum = 10",
        "CustomFields WHERE RemittanceLabel3 = 'Custom 3'",
        "Holidays WHERE HolidayDate = '2026-06-24'", "AccountantEmployeeInfo WHERE UserLevel = 1",
        "AccountantFirmInfo WHERE CompanyName = 'Étude & Fils'"})
    EXPECT_EQ(firm.count(row), 1) << row;
  EXPECT_EQ(firm.count("ScheduleTypes WHERE ScheduleNum = -1"), 14);
  EXPECT_EQ(firm.count("Companies") + firm.count("Contacts"), 0);
}

}  // namespace
}  // namespace autonotify::host
