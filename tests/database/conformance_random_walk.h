#pragma once

#include <map>
#include <random>

#include "host/database/RecordsetDatabase.h"
#include "tests/database/conformance.h"

// Random operations on the database and on a simple model of it.
namespace autonotify::host::conformance {

class RandomWalk {
 public:
  RandomWalk(DatabaseReference& database, unsigned seed) : database_(database), random_(seed) {}

  void run(int steps) {
    void (RandomWalk::*const actions[])() = {
        &RandomWalk::addRow,     &RandomWalk::addRow,   &RandomWalk::updateRow,
        &RandomWalk::updateRow,  &RandomWalk::remove,   &RandomWalk::keepOpen,
        &RandomWalk::stepKept,   &RandomWalk::stepKept, &RandomWalk::stepKept,
        &RandomWalk::searchKept, &RandomWalk::compare,  &RandomWalk::readOtherwise,
        &RandomWalk::lookUp,     &RandomWalk::lookUp};
    for (int i = 0; i < steps && !testing::Test::HasFailure(); ++i)
      (this->*actions[upTo(static_cast<int>(std::size(actions)) - 1)])();
    compare();
  }

 private:
  struct Row {
    int schedule;
    std::string text;
    std::optional<DateTime> date;
  };
  /// An open recordset: the rows it had when it was opened, and where it stands.
  struct Kept {
    RecordsetHandle handle;
    std::vector<Id> ids;
    std::size_t at = 0;
  };

  int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(random_); }
  std::string someText() { return std::string(1, static_cast<char>('a' + upTo(5))); }

  Id someId() {
    return std::next(model_.begin(), upTo(static_cast<int>(model_.size()) - 1))->first;
  }

  std::string where(int schedule) {
    return "SELECT ClientNotification.* FROM ClientNotification WHERE " +
           std::string(upTo(1) ? "ScheduleIDNum>=" : "NOT ScheduleIDNum<") +
           std::to_string(schedule) + " ORDER BY ClientNotification.ClientNotificationID;";
  }

  void addRow() {
    const Row row{upTo(9), someText(), std::nullopt};
    const Id id = addNotification(
        database_, {{"ScheduleIDNum", std::to_string(row.schedule)}, {"Field1", row.text}});
    EXPECT_TRUE(model_.emplace(id, row).second) << "key used twice: " << id;
  }

  void updateRow() {
    if (model_.empty()) return;
    const Id id = someId();
    Row& row = model_[id];
    const RecordsetHandle rows = open(database_, notification(id));
    const int schedule = upTo(9);
    update(database_, rows, "ScheduleIDNum", std::to_string(schedule));
    update(database_, rows, "Field1", row.text = someText());
    row.schedule = schedule;
    row.date.reset();
    if (upTo(1)) row.date = DateTime::of(2026, 1, 1).addDays(upTo(400));
    update(database_, rows, "SentTime", row.date ? database_.formatDateForSQL(*row.date) : "");
    check(rows, id);
    database_.closeRecordset(rows);
  }

  void remove() {
    if (model_.empty()) return;
    const Id id = someId();
    const RecordsetHandle rows = open(database_, notification(id));
    database_.deleteRecord(rows);
    database_.closeRecordset(rows);
    model_.erase(id);
  }

  /// One of a few rows, often asked for again; it may be gone.
  void lookUp() {
    const Id id = model_.empty() ? 1 : model_.begin()->first + upTo(3);
    const RecordsetHandle rows = open(database_, notification(id));
    ASSERT_EQ(database_.isEndOfRecordset(rows), !model_.count(id));
    if (model_.count(id)) check(rows, id);
    database_.closeRecordset(rows);
  }

  std::vector<Id> expected(int schedule) const {
    std::vector<Id> ids;
    for (const auto& [id, row] : model_)
      if (row.schedule >= schedule) ids.push_back(id);
    return ids;
  }

  void keepOpen() {
    if (kept_.size() == 6) {
      database_.closeRecordset(kept_.front().handle);
      kept_.erase(kept_.begin());
    }
    const int schedule = upTo(9);
    kept_.push_back({open(database_, where(schedule), LockMode::readOnly,
                          upTo(1) ? CursorMode::keyset : CursorMode::forwardOnly),
                     expected(schedule)});
  }

  void check(RecordsetHandle rows, Id id) {
    const Row& row = model_.at(id);
    EXPECT_EQ(database_.getFieldValue(rows, "ClientNotificationID"), Value(id));
    EXPECT_EQ(database_.getFieldValue(rows, "ScheduleIDNum"), Value(row.schedule));
    EXPECT_EQ(database_.getFieldValue(rows, "Field1"), Value(row.text));
    EXPECT_EQ(database_.getFieldValue(rows, "SentTime"), row.date ? Value(*row.date) : Value());
    // Now and then a column that was not asked for before.
    if (upTo(50) == 0) {
      EXPECT_EQ(database_.getFieldValue(rows, "Field" + std::to_string(2 + upTo(4))), Value());
    }
  }

  void readOtherwise() {
    if (auto* shared = dynamic_cast<RecordsetDatabase*>(&database_))
      shared->readSideBySide(upTo(2));
  }

  void stepKept() {
    if (kept_.empty()) return;
    Kept& kept = kept_[static_cast<std::size_t>(upTo(static_cast<int>(kept_.size()) - 1))];
    if (kept.at < kept.ids.size()) ++kept.at;
    while (kept.at < kept.ids.size() && !model_.count(kept.ids[kept.at])) ++kept.at;
    database_.moveNext(kept.handle);
    ASSERT_EQ(database_.isEndOfRecordset(kept.handle), kept.at >= kept.ids.size());
    if (kept.at < kept.ids.size()) check(kept.handle, kept.ids[kept.at]);
  }

  void searchKept() {
    if (kept_.empty()) return;
    Kept& kept = kept_[static_cast<std::size_t>(upTo(static_cast<int>(kept_.size()) - 1))];
    const std::string text = someText();
    const auto matches = [&](Id id) {
      const auto row = model_.find(id);
      return row != model_.end() && row->second.text == text;
    };
    bool found = find(database_, kept.handle, "Field1", text);
    auto next = std::find_if(kept.ids.begin(), kept.ids.end(), matches);
    for (; next != kept.ids.end(); next = std::find_if(next + 1, kept.ids.end(), matches)) {
      ASSERT_TRUE(found);
      check(kept.handle, *next);
      kept.at = static_cast<std::size_t>(next - kept.ids.begin());
      if (upTo(2) == 0) break;
      database_.findNextRecord(kept.handle);
      found = !database_.isEndOfRecordset(kept.handle);
    }
    if (next != kept.ids.end()) return;
    ASSERT_FALSE(found);
    kept.at = kept.ids.size();
  }

  void compare() {
    const int schedule = upTo(9);
    const std::vector<Id> ids = expected(schedule);
    const RecordsetHandle rows = open(database_, where(schedule));
    if (upTo(1)) {
      EXPECT_EQ(database_.getRecordCount(rows), static_cast<int>(ids.size()));
    }
    for (const Id id : ids) {
      ASSERT_FALSE(database_.isEndOfRecordset(rows));
      check(rows, id);
      database_.moveNext(rows);
    }
    EXPECT_TRUE(database_.isEndOfRecordset(rows));
    database_.closeRecordset(rows);
  }

  DatabaseReference& database_;
  std::mt19937 random_;
  std::map<Id, Row> model_;
  std::vector<Kept> kept_;
};

TEST_P(Conformance, ARandomWalkAgreesWithAModel) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomWalk(desk, seed).run(600);
}

}  // namespace autonotify::host::conformance
