#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "host/services/ClassRegistry.h"
#include "host/services/HostGeneralUtilities.h"
#include "host/services/HostItemLinksClass.h"
#include "host/services/HostLocale.h"
#include "host/services/HostValidationUtilities.h"
#include "host/services/clocks.h"
#include "platform/PlatformError.h"

namespace autonotify::host {
namespace {

TEST(GeneralUtilitiesTest, emptyAreNullAndEmptyTextAlone) {
  HostGeneralUtilities utilities;
  EXPECT_TRUE(utilities.isValueEmpty(Value()));
  EXPECT_TRUE(utilities.isValueEmpty(Value("")));
  for (const Value& value : {Value(" "), Value(0), Value(false), Value(0.0), Value(DateTime())}) {
    EXPECT_FALSE(utilities.isValueEmpty(value));
    EXPECT_EQ(utilities.textOrDefault(value, true), value);
  }
  EXPECT_EQ(utilities.textOrDefault(Value(), true), Value(""));
}

TEST(GeneralUtilitiesTest, numericFieldTakesDigitsAndControlKeys) {
  HostGeneralUtilities utilities;
  for (int key : {48, 57, 8, 9, 13, 22}) EXPECT_EQ(utilities.filterKeyPress(key), key);
  for (int key : {47, 58, 32, 45, 46, 97, 0, -1, 0x2460})
    EXPECT_EQ(utilities.filterKeyPress(key), 0) << key;
}

TEST(ValidationUtilitiesTest, durationText) {
  struct Case {
    int minutes;
    const char* text;
  };
  const Case cases[] = {{0, "0 min"},
                        {1, "1 min"},
                        {31, "31 min"},
                        {59, "59 min"},
                        {60, "1 hr"},
                        {90, "1 hr 30 min"},
                        {120, "2 hr"},
                        {1501, "25 hr 1 min"},
                        {-31, "-31 min"},
                        {-90, "-1 hr 30 min"},
                        {INT_MIN, "-35791394 hr 8 min"}};
  HostValidationUtilities validation;
  for (const Case& each : cases) EXPECT_EQ(validation.getDurationText(each.minutes), each.text);
}

TEST(ValidationUtilitiesTest, readsDatesAsPeopleLeaveThemInAField) {
  const DateTime day = DateTime::of(2026, 4, 30);
  HostValidationUtilities validation;
  for (const char* text :
       {"2026-04-30", "April 30, 2026", "Thursday, April 30, 2026", " thursday, April 30, 2026 ",
        "Thu April 30, 2026", "Friday, April 30, 2026"}) {
    DateTime date;
    EXPECT_TRUE(validation.parseDateText(text, date)) << text;
    EXPECT_EQ(date, day) << text;
  }
}

TEST(ValidationUtilitiesTest, refusesWhatIsNoDateAndLeavesTheTarget) {
  HostValidationUtilities validation;
  for (const char* text : {"", " ", "Thursday", "Thursday,", "Thursday, ", "soon", "2026-02-30",
                           "14:05", "1899-12-30", "Thursday, April 31, 2026"}) {
    DateTime date = DateTime::of(2020, 1, 1);
    EXPECT_FALSE(validation.parseDateText(text, date)) << text;
    EXPECT_FALSE(validation.isDateText(text)) << text;
    EXPECT_EQ(date, DateTime::of(2020, 1, 1)) << text;
  }
}

TEST(ValidationUtilitiesTest, weekendsAndYears) {
  HostValidationUtilities validation;
  const DateTime monday = DateTime::of(2026, 4, 27);
  for (int day = 0; day < 14; ++day)
    EXPECT_EQ(validation.isWeekend(monday.addDays(day)), day % 7 >= 5) << day;
  for (std::int16_t year : {1900, 2026, 2099}) EXPECT_TRUE(validation.isValidYear(year));
  for (std::int16_t year : {-1, 0, 26, 1899, 2100}) EXPECT_FALSE(validation.isValidYear(year));
}

TEST(ItemLinksTest, eachLinkStandsForItselfAndResetsToNone) {
  HostItemLinksClass links;
  EXPECT_EQ(links.get_link(ItemLink::ApptIDNum), noId);
  for (int link = 0; link < itemLinkCount; ++link)
    links.put_link(static_cast<ItemLink>(link), 100 + link);
  for (int link = 0; link < itemLinkCount; ++link)
    EXPECT_EQ(links.get_link(static_cast<ItemLink>(link)), 100 + link);
  links.resetAllValues();
  for (int link = 0; link < itemLinkCount; ++link)
    EXPECT_EQ(links.get_link(static_cast<ItemLink>(link)), noId);
}

TEST(ClassRegistryTest, createsByNameInAnyCase) {
  ClassRegistry registry;
  for (const char* name : {"FileUtility", "GENERALUTILITIES", "validationutilities",
                           "GridColumnList", "ItemLinksClass"})
    EXPECT_NE(registry.create(name), nullptr) << name;
  EXPECT_NE(dynamic_cast<GeneralUtilities*>(registry.create("generalUtilities").get()), nullptr);
}

TEST(ClassRegistryTest, programsAddClassesAndReplaceThem) {
  class Marked : public HostObject {};
  ClassRegistry registry;
  try {
    registry.create("EmailSender");
    ADD_FAILURE() << "an unknown class was created";
  } catch (const PlatformError& error) {
    EXPECT_EQ(error.number(), error_number::cannotCreateObject);
    EXPECT_EQ(error.source(), "EmailSender");
  }
  for (const char* name : {"EmailSender", "FileUtility"}) {
    registry.registerClass(name, [] { return std::make_unique<Marked>(); });
    EXPECT_NE(dynamic_cast<Marked*>(registry.create(name).get()), nullptr) << name;
  }
}

class SettableClock : public Clock {
 public:
  DateTime now() override { return moment; }
  DateTime moment;
};

TEST(ClocksTest, shiftedClockKeepsTheTimeOfDayAndGoesOn) {
  SettableClock base;
  base.moment = DateTime::of(2026, 4, 30, 23, 59, 58);
  DateShiftedClock clock(base, DateTime::of(2024, 2, 28));
  EXPECT_EQ(clock.now(), DateTime::of(2024, 2, 28, 23, 59, 58));
  base.moment = DateTime::of(2026, 5, 1, 0, 0, 3);
  EXPECT_EQ(clock.now(), DateTime::of(2024, 2, 29, 0, 0, 3));
  EXPECT_EQ(clock.today(), DateTime::of(2024, 2, 29));
}

TEST(ClocksTest, systemClockShowsLocalTime) {
  setenv("TZ", "UTC", 1);
  tzset();
  SystemClock clock;
  const DateTime utc = clock.now();
  setenv("TZ", "XYZ-14", 1);
  tzset();
  const std::int64_t ahead = clock.now().totalSeconds() - utc.totalSeconds();
  unsetenv("TZ");
  tzset();
  EXPECT_GE(ahead, 14 * 3600);
  EXPECT_LE(ahead, 14 * 3600 + 5);
  EXPECT_GE(utc.year(), 2020);
}

TEST(HostLocaleTest, settingsShowThroughAtOnce) {
  HostLocale locale({.userId = 7, .firmCode = "F1", .province = provinceQuebec, .year = 2026});
  EXPECT_EQ(locale.getCurrentUserID(), 7);
  EXPECT_EQ(locale.getProductName(), "Morvane");
  EXPECT_EQ(locale.getProvinceCode(), 8);
  EXPECT_EQ(locale.getCountryCode(), 1);
  locale.settings().accessLevel = 5;
  EXPECT_EQ(locale.getUserAccessLevel(), 5);
  ASSERT_NE(locale.getInterfaceStyler(), nullptr);
  locale.getInterfaceStyler()->styleForm(nullptr);
}

}  // namespace
}  // namespace autonotify::host
