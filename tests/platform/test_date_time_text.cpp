#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/date_time_text.h"

namespace autonotify {
namespace {

TEST(DateTimeText, everyDayReadsBack) {
  const DateTime last = DateTime::of(9999, 12, 31);
  std::string previous;
  for (DateTime day = DateTime::of(100, 1, 1); day <= last; day = day.addDays(1)) {
    const std::string text = dateTimeText(day);
    ASSERT_EQ(parseDateTime(text), day) << text;
    ASSERT_LT(previous, text);
    previous = text;
  }
}

TEST(DateTimeText, everySecondOfADayReadsBack) {
  for (std::int32_t second = 1; second < 86400; ++second) {
    const DateTime moment = DateTime::fromSerial(46142, second);
    ASSERT_EQ(parseDateTime(dateTimeText(moment)), moment) << second;
  }
  EXPECT_EQ(dateTimeText(DateTime::of(2026, 4, 30, 14, 5)), "2026-04-30 14:05:00");
  EXPECT_EQ(dateTimeText(DateTime{}), "1899-12-30");
}

void expectMoments(const std::vector<std::pair<const char*, const char*>>& cases) {
  for (const auto& [text, expected] : cases) {
    const auto moment = parseDateTime(text);
    ASSERT_TRUE(moment) << text;
    EXPECT_EQ(dateTimeText(*moment), expected) << text;
  }
}

TEST(DateTimeText, readsTheFormsThatPeopleWrite) {
  expectMoments({{"  2026-04-30  ", "2026-04-30"},
                 {"2026-4-3", "2026-04-03"},
                 {"14:05", "1899-12-30 14:05:00"},
                 {"2:05 pm", "1899-12-30 14:05:00"},
                 {"2:05pm", "1899-12-30 14:05:00"},
                 {"12:00 am", "1899-12-30"},
                 {"12:30 am", "1899-12-30 00:30:00"},
                 {"12:30 pm", "1899-12-30 12:30:00"},
                 {"9:05:07", "1899-12-30 09:05:07"},
                 {"April 30, 2026", "2026-04-30"},
                 {"apr 30 2026", "2026-04-30"},
                 {"Sept. 3, 2026", "2026-09-03"},
                 {"Apr 30,2026", "2026-04-30"},
                 {"30 Apr 2026", "2026-04-30"},
                 {"30 april, 2026", "2026-04-30"},
                 {"4/30/2026", "2026-04-30"},
                 {"2024-02-29", "2024-02-29"},
                 {"0100-01-01", "0100-01-01"}});
  expectMoments({{"2026-04-30 14:05", "2026-04-30 14:05:00"},
                 {"2026-04-30T14:05:09", "2026-04-30 14:05:09"},
                 {"2026-04-30 2:05 PM", "2026-04-30 14:05:00"},
                 {"Thursday, April 30 2026", "2026-04-30"},
                 {"04/03/2026 08:15", "2026-04-03 08:15:00"}});
  expectMoments({{"Thu April 30, 2026 2:05 pm", "2026-04-30 14:05:00"}});
}

void expectRefused(const std::vector<const char*>& texts) {
  for (const char* text : texts) EXPECT_FALSE(parseDateTime(text)) << text;
}

TEST(DateTimeText, refusesEverythingElse) {
  expectRefused({"",          " ",         "hello",   "2026",     "2026-04", "24:00", "12:60",
                 "12:05:60",  "13:05 pm",  "0:05 am", "2:5",      "2:05 xm", "2:05:", "14",
                 "30/4/2026", "4/31/2026", "4/30/26", "April 30", "+1:00",   "1/2/3", "\xFF"});
  expectRefused({"2026-02-30", "2025-02-29", "2026-13-01", "2026-00-10", "2026-04-31", "0099-12-31",
                 "10000-01-01", "April 2026", "Ap 30, 2026", "Aprils 30 2026", "2026-04-30x",
                 "2026-04-30 x", "2026-04-3014:05", "2026-04-30 14", "14:05 2026-04-30",
                 "-2026-04-30", "2026-04-30T", "999999999999-1-1"});
}

}  // namespace
}  // namespace autonotify
