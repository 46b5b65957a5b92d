#pragma once

#include <set>

#include "host/database/RecordsetDatabase.h"
#include "host/database/RecordsetObject.h"
#include "host/database/dialect/DatabaseError.h"
#include "tests/database/conformance.h"

// Positions, searches, writes, and several handles and desks at once.
namespace autonotify::host::conformance {

inline const char* const allNotifications = "SELECT ClientNotification.* FROM ClientNotification;";
inline const char* const orderedNotifications =
    "SELECT ClientNotification.* FROM ClientNotification ORDER BY ClientNotificationID;";

/// Rows with Field1 as told and ScheduleIDNum 1, 2, 3 ...
inline std::vector<Id> addNamed(DatabaseReference& database,
                                const std::vector<std::string>& names) {
  std::vector<Id> ids;
  ids.reserve(names.size());
  for (const std::string& name : names)
    ids.push_back(addNotification(
        database, {{"Field1", name}, {"ScheduleIDNum", std::to_string(ids.size() + 1)}}));
  return ids;
}

TEST_P(Conformance, RowsAreReadWholeForReports) {
  addNamed(desk, {"a", "b", "c"});
  auto* object = dynamic_cast<RecordsetObject*>(desk.getRecordsetObject(open(
      desk, "SELECT ScheduleIDNum, Field1 AS Address FROM ClientNotification WHERE Field1<>'b';")));
  ASSERT_TRUE(object);
  EXPECT_EQ(object->columnNames().size(), 2u);
  EXPECT_EQ(object->allRows(),
            (std::vector<std::vector<Value>>{values({1, "a"}), values({3, "c"})}));
}

/// Each row is marked or the tenth from it deleted, but for a stretch where nothing is written.
inline void walkWhileRowsLeave(DatabaseReference& desk, int total) {
  for (int i = 1; i <= total; ++i) addNotification(desk, {{"ScheduleIDNum", std::to_string(i)}});
  const RecordsetHandle rows = open(desk,
                                    "SELECT * FROM ClientNotification WHERE NotificationSent = "
                                    "FALSE ORDER BY ScheduleIDNum DESC;");
  const auto isBusy = [](Id id) { return id < 320 || id > 1000; };
  for (Id id = total; id > 0; id -= isBusy(id) && id % 40 == 21 ? 2 : 1) {
    const Bookmark here = desk.getBookmark(rows);
    const RecordsetHandle row = open(desk, notification(id));
    const bool isWritten = isBusy(id) && id % 100 > 80;
    if (isWritten) update(desk, row, "NotificationSent", "True");
    if (const RecordsetHandle later = open(desk, notification(id - 10));
        isBusy(id) && id % 40 == 30)
      desk.deleteRecord(later);
    ASSERT_TRUE(desk.gotoBookmark(rows, here));
    ASSERT_EQ(desk.getFieldValue(rows, "ScheduleIDNum"), Value(id));
    ASSERT_EQ(desk.getFieldValue(rows, "NotificationSent"), Value(isWritten)) << id;
    desk.moveNext(rows);
  }
  EXPECT_TRUE(desk.isEndOfRecordset(rows));
  EXPECT_EQ(desk.getRecordCount(rows), total);
}

TEST_P(Conformance, AWalkKeepsItsRowsWhileTheyLeaveTheConditionOrTheTable) {
  walkWhileRowsLeave(desk, 310);  // more than are kept in memory with their values
}

TEST_P(Conformance, WhatIsWrittenTogetherLastsTogetherOrNotAtAll) {
  const auto other = connect();
  const std::vector<Id> ids = addNamed(desk, {"a", "b"});
  const RecordsetHandle walk = open(desk, orderedNotifications);
  for (const bool fails : {true, false}) {
    const auto writeBoth = [&] {
      for (const Id id : ids) update(desk, open(desk, notification(id)), "Field1", "new");
      EXPECT_EQ(field(desk, ids[1], "Field1"), Value("new"));
      EXPECT_EQ(field(*other, ids[0], "Field1"), Value("a"));
      if (fails) throw DatabaseError(database_error::constraint, "a row that cannot be written");
    };
    auto& together = dynamic_cast<RecordsetDatabase&>(desk);
    EXPECT_EQ(errorOf([&] { together.writeTogether(writeBoth); }),
              fails ? database_error::constraint : 0);
    for (DatabaseReference* each : {&desk, other.get()})
      EXPECT_EQ(column(*each, orderedNotifications, "Field1"),
                fails ? values({"a", "b"}) : values({"new", "new"}));
  }
  desk.moveNext(walk);
  EXPECT_EQ(desk.getFieldValue(walk, "ClientNotificationID"), Value(ids[1]));
}

TEST_P(Conformance, LookUpsBesideAWalkFindTheirRowsAgainAndAgain) {
  addNamed(desk, {"a", "b", "c"});
  dynamic_cast<RecordsetDatabase&>(desk).readSideBySide(true);
  open(desk, orderedNotifications);
  const std::string sql =
      "SELECT ScheduleIDNum, Field1 FROM ClientNotification WHERE ScheduleIDNum";
  const std::pair<const char*, std::vector<Value>> lookUps[] = {
      {"=2", {"b"}}, {"=3", {"c"}}, {"=9", {}}, {">=2", {"b", "c"}}};
  for (const auto& [which, names] : lookUps) {
    for (int i = 0; i < 3; ++i)
      EXPECT_EQ(column(desk, sql + which + ";", "Field1"), names) << which;
    EXPECT_EQ(column(desk, sql + which + ";", "ScheduleIDNum").size(), names.size()) << which;
  }
}

/// Of each id up to 300: none, one or two rows.
inline std::size_t rowsOf(int id) {
  return id % 7 == 3 ? 2 : id % 5 == 2 ? 0 : 1;
}

TEST_P(Conformance, LookUpsBesideAWalkOfIdsThatGoUpFindTheirOwnRows) {
  const std::string last = "2147483647";
  for (int id = 1; id <= 300; ++id)
    for (std::size_t i = 0; i < rowsOf(id); ++i)
      addNotification(desk,
                      {{"Field1", std::to_string(id)}, {"ScheduleIDNum", std::to_string(id)}});
  for (int i = 0; i < 500; ++i) addNotification(desk, {{"ScheduleIDNum", "160"}});
  addNotification(desk, {{"Field1", last}, {"ScheduleIDNum", last}});
  dynamic_cast<RecordsetDatabase&>(desk).readSideBySide(true);
  const auto lookUp = [&](const std::string& id, const char* name) {
    const std::string sql = "SELECT ScheduleIDNum, Field1 FROM ClientNotification WHERE ";
    return column(desk, sql + "ScheduleIDNum=" + id + ";", name);
  };
  for (const int step : {1, 3, 4, 5, -1}) {
    open(desk, orderedNotifications);
    for (int id = step > 0 ? 1 : 300; id >= 1 && id <= 300; id += step) {
      if (id == 160) continue;
      const std::string text = std::to_string(id);
      for (int i = 0; i < (id % 3 == 0 ? 2 : 1); ++i)
        EXPECT_EQ(lookUp(text, "Field1"), std::vector<Value>(rowsOf(id), text)) << step;
      EXPECT_EQ(lookUp(text, "ScheduleIDNum"), std::vector<Value>(rowsOf(id), id)) << step;
      if (id % 50 != 49) continue;
      addNotification(desk, {{"Field2", "written in between"}});
      open(desk, orderedNotifications);
    }
  }
  for (int before = 3; before >= 0; --before)
    EXPECT_EQ(lookUp(std::to_string(2147483647 - before), "Field1").size(), before == 0 ? 1u : 0u);
}

TEST_P(Conformance, KeysAreNeverUsedTwice) {
  const auto other = connect();
  std::set<Id> keys;
  for (int i = 0; i < 20; ++i) {
    DatabaseReference& writer = i % 3 == 0 ? *other : desk;
    const RecordsetHandle rows = open(writer, allNotifications);
    writer.addNewRecord(rows);
    const Id key = toInteger(writer.getFieldValue(rows, "ClientNotificationID"));
    EXPECT_TRUE(keys.insert(key).second) << key;
    if (i % 4 != 0) writer.saveNewRecord(rows);
    // The row with the greatest key goes: its key must not come again.
    if (i % 4 == 2) writer.deleteRecord(rows);
    writer.closeRecordset(rows);
  }
  EXPECT_EQ(column(desk, allNotifications, "Field1").size(), 10u);
  const auto addGiven = [&](Id key) {
    return addNotification(desk, {{"ClientNotificationID", std::to_string(key)}});
  };
  for (const Id given : {107, 190, 5000, 4000}) {
    EXPECT_EQ(addGiven(given), given);
    const Id next = addNotification(*other, {});
    EXPECT_GT(next, given);
    EXPECT_LT(next, 5100) << "no more are left out than must be";
  }
  EXPECT_EQ(errorOf([&] { addGiven(190); }), database_error::constraint);
  addGiven(2147483647);
  EXPECT_EQ(errorOf([&] { addNotification(*other, {}); }), database_error::keysExhausted);
}

TEST_P(Conformance, HandlesAreNeverReused) {
  std::set<RecordsetHandle> handles;
  for (int i = 0; i < 50; ++i) {
    const RecordsetHandle rows = open(desk, allNotifications);
    EXPECT_TRUE(rows > 0 && handles.insert(rows).second && desk.isRecordsetOpen(rows));
    if (i % 2 == 0) desk.closeRecordset(rows);
    EXPECT_EQ(desk.isRecordsetOpen(rows), i % 2 != 0);
  }
  for (const RecordsetHandle closed : {*handles.begin(), noRecordset}) {
    EXPECT_EQ(errorOf([&] { desk.moveNext(closed); }), database_error::badHandle);
    EXPECT_EQ(errorOf([&] { desk.closeRecordset(closed); }), database_error::badHandle);
    EXPECT_FALSE(desk.isRecordsetOpen(closed));
  }
}

}  // namespace autonotify::host::conformance
