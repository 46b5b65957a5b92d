#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "host/services/HostGridColumnList.h"
#include "support/error_number.h"

namespace autonotify::host {
namespace {

using test::errorOf;

void add(GridColumnList& list, const Value& key, std::vector<Value> items) {
  list.addEntry(key, items);
}

std::vector<Value> keysOf(GridColumnList& list) {
  std::vector<Value> keys;
  for (list.moveFirst(); !list.isAtEnd(); list.moveNext()) keys.push_back(list.getEntryKey());
  return keys;
}

TEST(GridColumnListTest, walksInOrderAndNeedsACurrentEntryForItems) {
  HostGridColumnList list;
  const int outOfRange = error_number::subscriptOutOfRange;
  EXPECT_FALSE(list.moveFirst());
  EXPECT_EQ(errorOf([&] { list.getEntryKey(); }), outOfRange);
  add(list, 3, {"c"});
  add(list, 1, {"a"});
  EXPECT_TRUE(list.moveFirst());
  for (const int item : {0, 25}) EXPECT_EQ(errorOf([&] { list.getItem(item); }), outOfRange);
  list.setItem(24, "z");
  EXPECT_EQ(list.getItem(24), Value("z"));
  list.moveNext();
  EXPECT_EQ(list.getItem(24), Value());
  EXPECT_EQ(keysOf(list), (std::vector<Value>{3, 1}));
  EXPECT_EQ(errorOf([&] { list.setItem(1, "b"); }), outOfRange) << "past the end";
  EXPECT_EQ(errorOf([&] { add(list, 2, std::vector<Value>(25)); }),
            error_number::invalidProcedureCall);
  EXPECT_EQ(list.getEntryCount(), 2);
}

TEST(GridColumnListTest, selectsTheFirstEntryOfAKeyAndKeepsTheCurrentOtherwise) {
  const std::vector<std::vector<Value>> keySets = {
      {1, 2, 3, 2}, {7, 2, 9, 2}, {"1", 2, 1, 2}, {2, 2, 5, 2}};
  for (const std::vector<Value>& keys : keySets) {
    HostGridColumnList list;
    for (std::size_t i = 0; i < keys.size(); ++i) add(list, keys[i], {static_cast<int>(i)});
    ASSERT_TRUE(list.selectEntry(2));
    EXPECT_EQ(list.getItem(1), Value(keys[0] == Value(2) ? 0 : 1));
    for (const Value& unknown : {Value(4), Value(0), Value(-1), Value("2"), Value(2.0), Value()})
      EXPECT_FALSE(list.selectEntry(unknown));
    EXPECT_EQ(list.getEntryKey(), Value(2));
  }
}

TEST(GridColumnListTest, findsExactlyAndReportsThePosition) {
  HostGridColumnList list;
  add(list, 10, {"Due", 1});
  add(list, 20, {"due", 2, "x"});
  add(list, 30, {"due", 3});
  EXPECT_EQ(list.findEntry(1, "due"), 1);
  EXPECT_EQ(list.getEntryKey(), Value(20));
  EXPECT_EQ(list.findEntry(1, "DUE"), -1);
  EXPECT_EQ(list.findEntry(2, "3"), -1);
  EXPECT_EQ(list.getEntryKey(), Value(20));
  EXPECT_EQ(list.findEntry(3, Value()), 0);
  EXPECT_EQ(list.findEntry(24, Value()), 0);
  EXPECT_EQ(list.findEntry(24, "x"), -1);
}

Value anyValue(std::mt19937& random) {
  static const std::string pieces[] = {"\t", "\n", "\r",          "\\", std::string(1, '\0'),
                                       "é",  "n",  "Client name", "«",  " "};
  std::string text;
  for (std::uint32_t i = random() % 6; i > 0; --i) text += pieces[random() % 10];
  const Value values[] = {
      Value(),
      random() % 2 == 0,
      text,
      static_cast<std::int64_t>(random()) * (random() % 2 ? 1 : -1) * 2147483647,
      std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 200) - 100),
      DateTime::fromSerial(static_cast<std::int32_t>(random() % 90000) - 20000,
                           static_cast<std::int32_t>(random() % 86400))};
  return values[random() % std::size(values)];
}

TEST(GridColumnListTest, textFormGivesEveryListBack) {
  std::mt19937 random(20260430);
  for (int round = 0; round < 300; ++round) {
    HostGridColumnList list;
    for (std::uint32_t i = random() % 8; i > 0; --i) {
      std::vector<Value> items(random() % 25);
      for (Value& item : items) item = anyValue(random);
      list.addEntry(anyValue(random), items);
    }
    HostGridColumnList copy;
    add(copy, "old", std::vector<Value>(24, "old"));
    ASSERT_TRUE(copy.fromText(list.toText()));
    ASSERT_EQ(copy.toText(), list.toText()) << round;
    ASSERT_EQ(keysOf(copy), keysOf(list)) << round;
    for (list.moveFirst(), copy.moveFirst(); !list.isAtEnd(); list.moveNext(), copy.moveNext())
      for (int item = 1; item <= 24; ++item)
        ASSERT_EQ(copy.getItem(item), list.getItem(item)) << round << " item " << item;
  }
}

TEST(GridColumnListTest, aCutOrForeignTextLeavesTheListEmpty) {
  HostGridColumnList list;
  add(list, 1, {"Due \\ date", 1400, true});
  add(list, 2, {"Client", DateTime::of(2026, 4, 30), 1.5});
  const std::string whole = list.toText();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    ASSERT_FALSE(list.fromText(whole.substr(0, length)));
    ASSERT_EQ(list.getEntryCount(), 0) << whole.substr(0, length);
  }
  for (const char* text :
       {"1,2,3", "columns/2 0\n", "columns/1 1\nx1\n", "columns/1 1\nsa\\q\n", "columns/1 1\ni1x\n",
        "columns/1 1\nt1:86400\n", "columns/1 -1\n", "columns/1 1\ni1\n\n", "columns/1 1\n\n"}) {
    EXPECT_FALSE(list.fromText(text)) << text;
    EXPECT_EQ(list.getEntryCount(), 0) << text;
  }
  list.fromText("columns/1 1\r\ni1\tsDue\r\n");
  EXPECT_EQ(list.getEntryCount(), 1);
}

}  // namespace
}  // namespace autonotify::host
