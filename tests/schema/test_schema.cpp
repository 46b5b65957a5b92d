#include <algorithm>
#include <set>

#include "platform/text.h"
#include "schema/firm_in_memory.h"

namespace autonotify::host {
namespace {

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
      "Contacts INNER JOIN ContactLinks ON Contacts.ContactID = ContactLinks.ContactIDNum WHERE "
      "ContactLinks.CompanyNum = 3 AND ContactLinks.DefaultContact=1",
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

}  // namespace
}  // namespace autonotify::host
