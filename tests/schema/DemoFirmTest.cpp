#include "host/demo/DemoFirm.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "host/demo/SqliteRowSink.h"
#include "host/demo/holidays.h"
#include "platform/date_time_text.h"
#include "schema/firm_in_memory.h"

namespace autonotify::host {
namespace {

class DefaultFirm : public testing::Test {
 protected:
  static Firm& firm() {
    static Firm made{DemoOptions{}};
    return made;
  }
  /// Rows that ought not to be there.
  static void expectNone(const std::string& fromWhere) {
    EXPECT_EQ(firm().number("SELECT COUNT(*) FROM " + fromWhere), 0) << fromWhere;
  }
};

TEST(DemoFirm, TheSeedDecidesEverything) {
  EXPECT_EQ(Firm(small()).content(), Firm(small()).content());
  EXPECT_NE(Firm(small(1)).content(), Firm(small(2)).content());
}

TEST(DemoFirm, ATransactionThatFailsLeavesNothing) {
  Firm firm;
  firm.database().exec("DROP TABLE Dockets");
  {
    SqliteRowSink sink(firm.database());
    EXPECT_THROW(makeDemoFirm(sink, small()), SQLite::Exception);
  }
  EXPECT_EQ(firm.count("Companies"), 0);
}

TEST(DemoFirm, MayHaveNoClients) {
  DemoOptions options = small();
  options.companies = options.contacts = 0;
  options.pastNotifications = 10;
  Firm firm(options);
  EXPECT_EQ(firm.count("ClientNotification") + firm.count("Appointments"), 0);
  EXPECT_EQ(firm.count("AccountantEmployeeInfo"), 4);
}

TEST_F(DefaultFirm, HasTheSizeOfAFirm) {
  EXPECT_EQ(firm().count("Companies"), 200);
  EXPECT_EQ(firm().count("Clients WHERE ContactIDNum > 0"), 300);
  EXPECT_EQ(firm().count("AccountantEmployeeInfo"), 15);
  EXPECT_EQ(firm().count("Schedule"), firm().count("Tasks"));
  EXPECT_NEAR(firm().count("Schedule"), 4000, 600);
  EXPECT_EQ(firm().number("SELECT COUNT(DISTINCT CompanyName) FROM Companies"), 200);
  EXPECT_EQ(firm().number("SELECT COUNT(DISTINCT DisplayName) FROM AccountantEmployeeInfo"), 15);
  EXPECT_GT(firm().count("archiveSchedule"), 500);
  EXPECT_EQ(firm().count("archiveSchedule"), firm().count("archiveTasks"));
  for (const char* table : {"AccountantFirmInfo", "CustomFields", "CustomAddressFields"})
    EXPECT_EQ(firm().count(table), 1) << table;
}

TEST_F(DefaultFirm, EveryTaskHasAClientAnAssigneeAndAKind) {
  expectNone(
      "Schedule WHERE NOT EXISTS (SELECT 1 FROM ClientData INNER JOIN Companies ON "
      "ClientData.CompanyIDNum = Companies.CompanyID WHERE ClientDataID = ClientNum) AND NOT "
      "EXISTS "
      "(SELECT 1 FROM Contacts WHERE ContactID = Schedule.ContactIDNum)");
  expectNone("Schedule WHERE ClientNum >= 0 AND ContactIDNum >= 0");
  expectNone(
      "Schedule WHERE EmployeeAssigned NOT IN (SELECT DisplayName FROM AccountantEmployeeInfo)");
  expectNone(
      "Schedule WHERE NOT EXISTS (SELECT 1 FROM ScheduleTypes WHERE ScheduleTypes.TotalNum = "
      "Schedule.totalNum AND ScheduleTypes.ScheduleNum = Schedule.scheduleNum)");
  expectNone("Schedule WHERE ScheduleID NOT IN (SELECT ScheduleIDNum FROM Tasks)");
  expectNone("Schedule WHERE ScheduleID IN (SELECT oldScheduleID FROM archiveSchedule)");
  expectNone("Tasks WHERE UserIDNum NOT IN (SELECT ContactID FROM AccountantEmployeeInfo)");
  EXPECT_EQ(firm().number("SELECT COUNT(DISTINCT totalNum) FROM Schedule"), 14);
}

TEST_F(DefaultFirm, TheBitsOfATaskAreTheChannelsOfItsRows) {
  const std::string sum =
      "(SELECT COALESCE(SUM(NotificationType), 0) FROM ClientNotification WHERE ";
  expectNone("Schedule WHERE notifyType <> " + sum + "ScheduleIDNum = ScheduleID)");
  expectNone("Appointments WHERE notifyType <> " + sum + "ApptIDNum = AppointmentID)");
  expectNone("Dockets WHERE notifyType <> " + sum + "DocketIDNum = DocketID)");
  expectNone("Appointments WHERE ClientNotifiedFlag <> (notifyType > 0)");
  expectNone(
      "(SELECT 1 FROM ClientNotification WHERE ScheduleIDNum >= 0 GROUP BY ScheduleIDNum, "
      "NotificationType HAVING COUNT(*) > 1)");
}

TEST_F(DefaultFirm, NotificationsStandInEveryStateAndChannel) {
  for (const char* state : {"NotificationSent = 0 AND NotificationSentStatus = 1",
                            "NotificationSent = 1 AND NotificationSentStatus = 2",
                            "NotificationSent = 1 AND NotificationSentStatus = 3"})
    for (const char* channel : {"1", "2", "4", "8"})
      EXPECT_GT(firm().count("ClientNotification WHERE NotificationType = " + std::string(channel) +
                             " AND " + state),
                0)
          << channel << ' ' << state;
  expectNone("ClientNotification WHERE NotificationSent <> (NotificationSentStatus > 1)");
  expectNone("ClientNotification WHERE (SentTime IS NULL) <> (NotificationSentStatus <> 2)");
  expectNone("ClientNotification WHERE NotificationType = 1 AND Field1 IS NULL");
  expectNone("ClientNotification WHERE NotificationDate IN (SELECT HolidayDate FROM Holidays)");
  expectNone(
      "ClientNotification INNER JOIN Schedule ON ScheduleIDNum = ScheduleID WHERE Closed = 1 "
      "AND NotificationSent = 0");
  const std::string due =
      "ClientNotification WHERE NotificationSent = 0 AND NotificationDate <= '" +
      dateTimeText(DemoOptions{}.today) + "'";
  EXPECT_GT(firm().count(due), 10);
  EXPECT_LT(firm().count(due), 200);
}

TEST_F(DefaultFirm, CompaniesHaveAtMostOneDefaultContactAndSomeHaveNone) {
  expectNone(
      "(SELECT 1 FROM ContactLinks WHERE DefaultContact = 1 GROUP BY CompanyNum "
      "HAVING COUNT(*) > 1)");
  EXPECT_GT(firm().count("Companies WHERE DefaultContactName IS NULL"), 2);
  expectNone(
      "Companies INNER JOIN ContactLinks ON ContactLinks.CompanyNum = CompanyID INNER JOIN "
      "Contacts ON "
      "ContactID = ContactIDNum WHERE DefaultContact = 1 AND DefaultContactName <> "
      "DisplayName");
  EXPECT_GT(firm().count("Contacts WHERE BusinessEmail IS NULL AND PersonalEmail IS NULL"), 2);
}

TEST_F(DefaultFirm, TheAccountingTablesShareOneKeyPerClient) {
  const char* keys[][2] = {{"AccountingServices", "AccountingServiceID"},
                           {"ClientOptions", "ClientOptionID"},
                           {"CorpTaxInfo", "CorpTaxInfoID"},
                           {"LawInfo", "LawInfoID"},
                           {"OtherInfo", "OtherInfoID"},
                           {"WSIB_EHTInfo", "WSIB_EHTInfoID"}};
  for (const auto& [table, key] : keys)
    EXPECT_EQ(
        firm().count(std::string("ClientData INNER JOIN ") + table + " ON ClientDataID = " + key),
        200)
        << table;
}

TEST_F(DefaultFirm, NothingInItReachesAnyone) {
  for (const char* column : {"BusinessEmail", "PersonalEmail", "SpouseEmail"})
    expectNone(std::string("Contacts WHERE ") + column + " NOT LIKE '%.example'");
  expectNone("Companies WHERE Email NOT LIKE '%.example' OR WebSite NOT LIKE '%.example'");
  for (const char* column : {"BusinessPhone_Main", "HomePhone_Main", "SpousePhone_Main"})
    expectNone(std::string("Contacts WHERE ") + column + " NOT LIKE '(___) 555-01__'");
  expectNone("Contacts WHERE SocialInsuranceNumber NOT LIKE '0%'");
}

TEST_F(DefaultFirm, HoldsNamesThatGoWrongFirst) {
  for (const char* part : {"'", "\"", "#", "é", "\\", "{"}) {
    SQLite::Statement rows(firm().database(),
                           "SELECT COUNT(*) FROM Companies WHERE instr(CompanyName, ?) > 0");
    rows.bind(1, part);
    ASSERT_TRUE(rows.executeStep());
    EXPECT_GT(rows.getColumn(0).getInt(), 0) << part;
  }
}

// Provinces and countries.

struct Place {
  countryCode country;
  provinceCode province;
  const char* tax;
  const char* provinceName;
};

class EveryPlace : public testing::TestWithParam<Place> {};

TEST_P(EveryPlace, SpeaksItsOwnLanguage) {
  const Place& place = GetParam();
  DemoOptions options = small();
  options.country = place.country;
  options.province = place.province;
  Firm firm(options);
  EXPECT_EQ(firm.texts("SELECT ShortAbbreviation FROM ScheduleTypes WHERE TotalNum = 101 AND "
                       "ScheduleNum = -1"),
            std::vector<std::string>{place.tax});
  EXPECT_GT(firm.count("Holidays"), 20);
  if (*place.provinceName) {
    EXPECT_EQ(firm.texts("SELECT DISTINCT Province FROM Companies"),
              std::vector<std::string>{place.provinceName});
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, EveryPlace,
    testing::Values(Place{countryCanada, provinceAlberta, "GST", "Alberta"},
                    Place{countryCanada, provinceBritishColumbia, "HST", "British Columbia"},
                    Place{countryCanada, provinceManitoba, "GST", "Manitoba"},
                    Place{countryCanada, provinceOntario, "HST", "Ontario"},
                    Place{countryCanada, provinceSaskatchewan, "GST", "Saskatchewan"},
                    Place{countryCanada, provinceQuebec, "GST", "Quebec"},
                    Place{countryCanada, provinceNovaScotia, "HST", "Nova Scotia"},
                    Place{countryCanada, provinceNewBrunswick, "HST", "New Brunswick"},
                    Place{countryCanada, provinceNewfoundland, "HST", "Newfoundland"},
                    Place{countryCanada, provincePrinceEdwardIsland, "GST", "Prince Edward Island"},
                    Place{countryUnitedStates, provinceOntario, "Sales Tax", ""}));

// Holidays and essentials.

TEST(DemoHolidays, ProvincesWithoutASetShareTheNationalDays) {
  const auto has = [](std::string_view set, DateTime date) {
    const auto days = demo::holidaysOf(set);
    return std::ranges::find(days, date, &demo::Holiday::date) != days.end();
  };
  EXPECT_TRUE(has("CA", DateTime::of(2026, 7, 1)));
  EXPECT_TRUE(has("CA-ON", DateTime::of(2026, 2, 16)));
  EXPECT_FALSE(has("CA", DateTime::of(2026, 2, 16)));
  EXPECT_FALSE(has("CA", DateTime::of(2026, 6, 24)));
  EXPECT_TRUE(has("US-FED", DateTime::of(2026, 7, 3)));
  EXPECT_TRUE(demo::holidaysOf("nowhere").empty());
}

TEST(DemoHolidays, WorkingDaysSkipWeekendsAndHolidays) {
  const demo::WorkCalendar calendar(demo::holidaysOf("CA-ON"));
  const DateTime monday = DateTime::of(2026, 7, 6);
  EXPECT_EQ(calendar.workingDaysBefore(monday, 1), DateTime::of(2026, 7, 3));
  EXPECT_EQ(calendar.workingDaysBefore(monday, 3), DateTime::of(2026, 6, 30));
  EXPECT_EQ(calendar.workingDaysBefore(DateTime::of(2026, 7, 2), -3), DateTime::of(2026, 7, 7));
  EXPECT_EQ(calendar.workingDayOnOrBefore(DateTime::of(2026, 7, 5)), DateTime::of(2026, 7, 3));
}

TEST(SeedEssentials, AnEmptyFirmHasWhatEveryLookupFallsBackTo) {
  Firm firm;
  SqliteRowSink sink(firm.database());
  seedEssentials(sink, {"Étude & Fils", "Admin", countryCanada, provinceQuebec});
  EXPECT_EQ(firm.count("ScheduleTypes WHERE TotalNum = 101 AND ScheduleNum = 10"), 1);
  EXPECT_EQ(firm.count("ScheduleTypes WHERE ScheduleNum = -1"), 14);
  EXPECT_EQ(firm.texts("SELECT RemittanceLabel3 FROM CustomFields"),
            std::vector<std::string>{"Custom 3"});
  EXPECT_EQ(firm.count("Holidays WHERE HolidayDate = '2026-06-24'"), 1);
  EXPECT_EQ(firm.texts("SELECT CompanyName FROM AccountantFirmInfo"),
            std::vector<std::string>{"Étude & Fils"});
  EXPECT_EQ(firm.count("AccountantEmployeeInfo WHERE UserLevel = 1"), 1);
  EXPECT_EQ(firm.count("Companies") + firm.count("Contacts"), 0);
}

TEST(DemoFirm, PastNotificationsComeOnTop) {
  DemoOptions options = small();
  options.pastNotifications = 1000;
  Firm firm(options);
  EXPECT_EQ(firm.count("ClientNotification WHERE ScheduleIDNum BETWEEN 1 AND 500"), 1000);
  EXPECT_EQ(firm.count("archiveSchedule WHERE oldScheduleID BETWEEN 1 AND 500"), 500);
  EXPECT_EQ(firm.number("SELECT COUNT(*) FROM Schedule WHERE ScheduleID IN (SELECT oldScheduleID "
                        "FROM archiveSchedule)"),
            0);
}

}  // namespace
}  // namespace autonotify::host
