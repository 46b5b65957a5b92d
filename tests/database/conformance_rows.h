#pragma once

#include <set>

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

TEST_P(Conformance, RowsAreWalkedMarkedAndCounted) {
  addNamed(desk, {"a", "b", "c"});
  for (const CursorMode cursor : {CursorMode::keyset, CursorMode::forwardOnly}) {
    const RecordsetHandle rows = open(desk, orderedNotifications, LockMode::readOnly, cursor);
    EXPECT_TRUE(desk.hasRecords(rows));
    EXPECT_FALSE(desk.isRecordsetEmpty(rows));
    desk.moveNext(rows);
    const Bookmark second = desk.getBookmark(rows);
    EXPECT_EQ(desk.getRecordCount(rows), 3);
    EXPECT_EQ(desk.getFieldValue(rows, "Field1"), Value("b"));
    desk.moveNext(rows);
    EXPECT_FALSE(desk.isEndOfRecordset(rows));
    desk.moveNext(rows);
    EXPECT_TRUE(desk.isEndOfRecordset(rows));
    desk.moveNext(rows);
    EXPECT_TRUE(desk.isEndOfRecordset(rows));
    EXPECT_TRUE(desk.hasRecords(rows));
    EXPECT_EQ(errorOf([&] { desk.getFieldValue(rows, "Field1"); }), database_error::noCurrentRow);
    EXPECT_TRUE(desk.gotoBookmark(rows, second));
    EXPECT_EQ(desk.getFieldValue(rows, "Field1"), Value("b"));
    EXPECT_FALSE(desk.gotoBookmark(rows, 99));
    EXPECT_FALSE(desk.gotoBookmark(rows, -1));
    desk.closeRecordset(rows);
  }
}

TEST_P(Conformance, SearchComparesByTheKindOfTheColumn) {
  const std::vector<Id> ids = addNamed(desk, {"one", "two", "two", "", "two"});
  const RecordsetHandle rows = open(desk, orderedNotifications);
  update(desk, rows, "NotificationDate", "2026-04-30");
  for (const auto& search : rowsOf("searches", 3)) {
    SCOPED_TRACE(search[0] + " = " + search[1]);
    const int row = std::stoi(search[2]);  // -1: in none
    const Id id = row < 0 ? noId : ids[static_cast<std::size_t>(row)];
    const std::string value = replaceAll(search[1], "{id}", std::to_string(id));
    EXPECT_EQ(find(desk, rows, search[0], value), row >= 0);
    EXPECT_EQ(desk.isEndOfRecordset(rows), row < 0);
    if (row < 0) continue;
    EXPECT_EQ(desk.getFieldValue(rows, "ClientNotificationID"), Value(id));
  }
  EXPECT_EQ(errorOf([&] { find(desk, rows, "ComapnyNum", "1"); }), database_error::unknownColumn);
  find(desk, rows, "Field1", "two");
  std::vector<Value> found;
  for (; !desk.isEndOfRecordset(rows); desk.findNextRecord(rows))
    found.push_back(desk.getFieldValue(rows, "ScheduleIDNum"));
  EXPECT_EQ(found, values({2, 3, 5}));
}

TEST_P(Conformance, SearchInALoopSeesWhatWasWritten) {
  const std::vector<Id> ids = addNamed(desk, {"x", "x", "x"});
  const RecordsetHandle rows = open(desk, allNotifications);
  const RecordsetHandle plain = open(desk, orderedNotifications, LockMode::readOnly);
  desk.findNextRecord(plain);
  EXPECT_EQ(desk.getFieldValue(plain, "ClientNotificationID"), Value(ids[1]));
  for (const Id id : ids) {
    ASSERT_TRUE(find(desk, rows, "Field1", "x"));
    ASSERT_TRUE(find(desk, rows, "ClientNotificationID", std::to_string(id)));
    update(desk, rows, "Field1", "y" + std::to_string(id));
    ASSERT_TRUE(find(desk, rows, "Field1", "y" + std::to_string(id)));
    EXPECT_EQ(desk.getFieldValue(rows, "ClientNotificationID"), Value(id));
  }
  EXPECT_FALSE(find(desk, rows, "Field1", "x"));
}

TEST_P(Conformance, ColumnsAndRowsAreReadWholeAndThePositionStays) {
  addNamed(desk, {"a", "b", "c"});
  const RecordsetHandle rows = open(desk, orderedNotifications, LockMode::readOnly);
  desk.moveNext(rows);
  std::vector<Value> array = {"before"};
  desk.readColumnIntoArray(rows, array, "field1");
  EXPECT_EQ(array, values({"before", "a", "b", "c"}));
  EXPECT_EQ(errorOf([&] { desk.readColumnIntoArray(rows, array, "None"); }),
            database_error::unknownColumn);
  EXPECT_EQ(array.size(), 4u);
  EXPECT_EQ(desk.getFieldValue(rows, "Field1"), Value("b"));

  auto* object = dynamic_cast<RecordsetObject*>(desk.getRecordsetObject(open(
      desk, "SELECT ScheduleIDNum, Field1 AS Address FROM ClientNotification WHERE Field1<>'b';")));
  ASSERT_TRUE(object);
  EXPECT_EQ(object->columnNames().size(), 2u);
  EXPECT_EQ(object->allRows(),
            (std::vector<std::vector<Value>>{values({1, "a"}), values({3, "c"})}));
}

TEST_P(Conformance, AWriteReachesTheTableOfItsColumn) {
  for (const char* client : {"3", "4"}) {
    const Id schedule = add(desk, "Schedule", "ScheduleID", {{"ClientNum", client}});
    addNotification(desk, {{"ScheduleIDNum", std::to_string(schedule)}});
  }
  const RecordsetHandle rows = open(desk, rowsOf("joins", 1)[0][0]);
  update(desk, rows, "Memo", "note");
  update(desk, rows, "notifytype", "9");
  EXPECT_EQ(desk.getFieldValue(rows, "Memo"), Value("note"));
  EXPECT_EQ(column(desk, "SELECT notifyType FROM Schedule WHERE ClientNum=4;", "notifyType"),
            values({9}));
  EXPECT_EQ(
      column(desk, "SELECT Field1 FROM ClientNotification WHERE Memo='note';", "Field1").size(),
      1u);
  EXPECT_EQ(errorOf([&] { desk.addNewRecord(rows); }), database_error::notUpdatable);
  desk.deleteRecord(rows);
  EXPECT_EQ(column(desk, allNotifications, "ScheduleIDNum").size(), 1u);
  EXPECT_EQ(column(desk, "SELECT ClientNum FROM Schedule;", "ClientNum").size(), 2u);
}

TEST_P(Conformance, WritingNeedsAnUpdatableRecordsetAndARow) {
  addNamed(desk, {"a"});
  const RecordsetHandle reading = open(desk, allNotifications, LockMode::readOnly);
  const RecordsetHandle empty = open(desk, notification(99));
  const RecordsetHandle counting =
      open(desk, "SELECT COUNT(ClientNotificationID) AS Total FROM ClientNotification;");
  for (const RecordsetHandle rows : {reading, empty}) {
    const int error = rows == empty ? database_error::noCurrentRow : database_error::notUpdatable;
    EXPECT_EQ(errorOf([&] { update(desk, rows, "Field1", "x"); }), error);
    EXPECT_EQ(errorOf([&] { desk.deleteRecord(rows); }), error);
    EXPECT_EQ(errorOf([&] { desk.setFieldValue(rows, "Field1", "x"); }), error);
    EXPECT_EQ(errorOf([&] { desk.saveNewRecord(rows); }), error);
  }
  EXPECT_EQ(errorOf([&] { desk.addNewRecord(reading); }), database_error::notUpdatable);
  EXPECT_EQ(errorOf([&] { update(desk, counting, "Total", "5"); }), database_error::notUpdatable);
  EXPECT_EQ(errorOf([&] { desk.deleteRecord(counting); }), database_error::notUpdatable);
  EXPECT_EQ(column(desk, allNotifications, "Field1"), values({"a"}));
}

TEST_P(Conformance, AWalkKeepsItsRowsWhileTheyLeaveTheCondition) {
  const int total = 300;  // more than are kept in memory with their values
  for (int i = 0; i < total; ++i) addNotification(desk, {});
  const std::string sql =
      "SELECT ClientNotification.* FROM ClientNotification WHERE NotificationSent = FALSE;";
  const RecordsetHandle rows = open(desk, sql);
  int walked = 0;
  for (; !desk.isEndOfRecordset(rows); desk.moveNext(rows)) {
    const Bookmark here = desk.getBookmark(rows);
    const RecordsetHandle row =
        open(desk, notification(toInteger(desk.getFieldValue(rows, "ClientNotificationID"))));
    update(desk, row, "NotificationSent", "True");
    desk.closeRecordset(row);
    desk.gotoBookmark(rows, here);
    EXPECT_EQ(desk.getFieldValue(rows, "NotificationSent"), Value(true));
    ++walked;
  }
  EXPECT_EQ(walked, total);
  EXPECT_EQ(desk.getRecordCount(rows), total);
  EXPECT_TRUE(column(desk, sql, "ClientNotificationID").empty());
}

TEST_P(Conformance, DeletedRowsArePassedOver) {
  const std::vector<Id> ids = addNamed(desk, {"a", "b", "c"});
  const RecordsetHandle kept = open(desk, orderedNotifications);
  const RecordsetHandle rows = open(desk, notification(ids[1]));
  desk.deleteRecord(rows);
  EXPECT_FALSE(desk.hasRecords(rows));
  EXPECT_EQ(desk.getRecordCount(rows), 0);
  EXPECT_TRUE(desk.isEndOfRecordset(rows));
  EXPECT_NE(errorOf([&] { desk.deleteRecord(rows); }), 0);
  EXPECT_FALSE(find(desk, kept, "Field1", "b"));
  EXPECT_FALSE(find(desk, kept, "ClientNotificationID", std::to_string(ids[1])));
  ASSERT_TRUE(find(desk, kept, "Field1", "a"));
  desk.moveNext(kept);
  EXPECT_EQ(desk.getFieldValue(kept, "Field1"), Value("c"));
  desk.closeRecordset(rows);
  const RecordsetHandle last = open(desk, notification(ids[2]));
  desk.deleteRecord(last);
  EXPECT_EQ(errorOf([&] { desk.getFieldValue(kept, "Field1"); }), database_error::rowGone);
  EXPECT_EQ(errorOf([&] { update(desk, kept, "Field1", "x"); }), database_error::rowGone);
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

TEST_P(Conformance, AnAbandonedRowLeavesNothing) {
  const RecordsetHandle rows = open(desk, allNotifications);
  desk.addNewRecord(rows);
  desk.setFieldValue(rows, "Field1", "lost");
  EXPECT_EQ(errorOf([&] { desk.setFieldValue(rows, "ScheduleIDNum", "x"); }),
            error_number::typeMismatch);
  EXPECT_EQ(errorOf([&] { update(desk, rows, "Field1", "x"); }), database_error::noCurrentRow);
  desk.addNewRecord(rows);
  desk.setFieldValue(rows, "Memo", "kept");
  desk.saveNewRecord(rows);
  EXPECT_EQ(errorOf([&] { desk.saveNewRecord(rows); }), database_error::noCurrentRow);
  desk.addNewRecord(rows);
  desk.closeRecordset(rows);
  EXPECT_EQ(column(desk, allNotifications, "Memo"), values({"kept"}));
  EXPECT_EQ(column(desk, allNotifications, "Field1"), values({Null{}}));
}

TEST_P(Conformance, AddedRowsStandBehindTheOthersOnce) {
  addNamed(desk, {"old"});
  for (const bool askedBefore : {false, true}) {
    const RecordsetHandle rows = open(desk, allNotifications);
    const int before = askedBefore ? desk.getRecordCount(rows) : 1;
    for (const char* name : {"new", "newer"}) {
      desk.addNewRecord(rows);
      desk.setFieldValue(rows, "Field1", name);
      desk.saveNewRecord(rows);
      EXPECT_EQ(desk.getFieldValue(rows, "Field1"), Value(name));
    }
    const Bookmark newest = desk.getBookmark(rows);
    update(desk, rows, "Memo", "written");
    EXPECT_EQ(desk.getRecordCount(rows), before + 2);
    desk.moveNext(rows);
    EXPECT_TRUE(desk.isEndOfRecordset(rows));
    desk.gotoBookmark(rows, newest);
    EXPECT_EQ(desk.getFieldValue(rows, "Memo"), Value("written"));
    ASSERT_TRUE(find(desk, rows, "Field1", "new"));
    desk.deleteRecord(rows);
    ASSERT_TRUE(find(desk, rows, "Field1", "newer"));
    desk.deleteRecord(rows);
    ASSERT_TRUE(find(desk, rows, "Field1", "old"));
    EXPECT_EQ(desk.getRecordCount(rows), before);
  }
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

TEST_P(Conformance, DesksSeeEachOthersWrites) {
  const auto other = connect();
  const std::vector<Id> ids = addNamed(desk, {"a", "b", "c"});
  // A procedure that was left leaves its recordset open, halfway through.
  const RecordsetHandle left = open(*other, orderedNotifications);
  other->moveNext(left);
  const RecordsetHandle rows = open(desk, notification(ids[0]));
  update(desk, rows, "Field1", "changed");
  EXPECT_EQ(field(*other, ids[0], "Field1"), Value("changed"));
  const Id added = addNotification(*other, {{"Field1", "from there"}});
  EXPECT_EQ(field(desk, added, "Field1"), Value("from there"));
  EXPECT_EQ(other->getFieldValue(left, "Field1"), Value("b"));
}

}  // namespace autonotify::host::conformance
