#include <SQLiteCpp/SQLiteCpp.h>

#include <set>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/schema/Schema.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"
#include "host/demo/holidays.h"
#include "support/text_table.h"

namespace autonotify::host {
namespace {

constexpr const char* file = "firm_tables.txt";

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
  Firm firm;
  for (const auto& lookup : test::rowsOf(file, "lookups", 1)) {
    SQLite::Statement plan(firm.database(), "EXPLAIN QUERY PLAN SELECT * FROM " + lookup[0]);
    while (plan.executeStep()) {
      const std::string step = plan.getColumn(3).getString();
      for (const char* slow : {"SCAN", "TEMP B-TREE"})
        EXPECT_EQ(step.find(slow), std::string::npos) << lookup[0] << ": " << step;
    }
  }
}

// They are read by name: one that two tables of the join hold would give the value of either.
TEST(Schema, AccountingFieldsStandInOneTableOfTheirJoin) {
  for (const auto& tables : test::rowsOf(file, "joins of the accounting fields", 5)) {
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
  Firm firm{DemoOptions{}};
  const std::string today = dateTimeText(DemoOptions{}.today);
  for (const auto& row : test::rowsOf(file, "counts in the demo firm, from and to", 3)) {
    const int count = firm.count(replaceAll(row[0], "{today}", today));
    EXPECT_TRUE(count >= std::stoi(row[1]) && count <= std::stoi(row[2])) << count << row[0];
  }
  for (const char* oddity : {"''", "\"", "#", "é", "\\", "{"})
    EXPECT_GT(firm.count("Companies WHERE instr(CompanyName, '" + std::string(oddity) + "')"), 0);
}

TEST(DemoFirm, SpeaksTheWordsOfItsPlace) {
  const char* tax101 =
      "SELECT ShortAbbreviation FROM ScheduleTypes WHERE TotalNum = 101 AND ScheduleNum = -1";
  for (const auto& [province, tax, provinceName] :
       test::casesOf<provinceCode, std::string, std::string>(file, "words of provinces")) {
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
  for (const auto& row : test::rowsOf(file, "rows of an empty firm", 1))
    EXPECT_EQ(firm.count(row[0]), 1) << row[0];
  EXPECT_EQ(firm.count("ScheduleTypes WHERE ScheduleNum = -1"), 14);
  EXPECT_EQ(firm.count("Companies") + firm.count("Contacts"), 0);
}

}  // namespace
}  // namespace autonotify::host
