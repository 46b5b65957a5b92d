#include <benchmark/benchmark.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include "bench/raw_rows.h"
#include "contract/recordsets.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "store/modNotificationLinks.h"

// A changed template carried into 10,000 unsent notifications, against the sum of the merges and
// writes that it comes to.

namespace autonotify::bench {
namespace {

constexpr int notifications = 10000;

/// One notification and what its merge goes by.
struct Merge {
  Id notification;
  Id schedule;
  Id task;
  Id company;
};

/// A firm whose unsent notifications are of one kind, and of companies.
class PropagationFirm {
 public:
  explicit PropagationFirm(Firms& firms)
      : firm_(std::make_unique<host::SqliteDatabase>(firms.copyInMemory())) {
    SQLite::Database& database = firm_.database().connection();
    database.exec("UPDATE ClientNotification SET NotificationSent=1");
    SQLite::Statement most(
        database,
        "SELECT t.ScheduleTypeID, t.TotalNum, t.ScheduleNum FROM ScheduleTypes t "
        "JOIN Schedule s ON s.totalNum=t.TotalNum AND s.scheduleNum=t.ScheduleNum "
        "WHERE s.ClientNum>=0 GROUP BY 1 ORDER BY COUNT(*) DESC LIMIT 1");
    most.executeStep();
    kind_ = most.getColumn(0);
    const std::string entries = "SELECT ScheduleID FROM Schedule WHERE ClientNum>=0 AND totalNum=" +
                                most.getColumn(1).getString() +
                                " AND scheduleNum=" + most.getColumn(2).getString();
    database.exec(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" +
        std::to_string(notifications) +
        "), e AS (SELECT ScheduleID, ROW_NUMBER() OVER () - 1 AS place, COUNT(*) OVER () "
        "AS size FROM (" +
        entries +
        ")) INSERT INTO ClientNotification (ScheduleIDNum, NotificationType, Memo) SELECT "
        "ScheduleID, 1, '' FROM n JOIN e ON e.place = n.i % e.size");
    firm_.attach();
    for (const Id id : firm_.ids(
             "SELECT ClientNotificationID FROM ClientNotification WHERE NotificationSent=0")) {
      const Id schedule = getScheduleIDFromNotificationID(id);
      merges_.push_back(
          {id, schedule, getTaskIDFromScheduleID(schedule), getCompanyIDFromScheduleID(schedule)});
    }
  }

  Firm& firm() { return firm_; }
  Id kind() const { return kind_; }
  const std::vector<Merge>& merges() const { return merges_; }

 private:
  Firm firm_;
  Id kind_ = noId;
  std::vector<Merge> merges_;
};

PropagationFirm& propagationFirm(Firms& firms) {
  static PropagationFirm firm(firms);
  firm.firm().attach();
  return firm;
}

void propagate(benchmark::State& state, Firms& firms) {
  PropagationFirm& firm = propagationFirm(firms);
  clsAutoNotifyTemplate kind;
  kind.openExistingScheduleType(firm.kind());
  for (auto _ : state) kind.resetNotificationComments();
  firm.firm().requireNoErrors();
}

void mergeAndWrite(const Merge& merge, const std::string& templateText) {
  const std::string text =
      generateComment(templateText, merge.schedule, merge.task, merge.company, noId);
  const RecordsetHandle handle = openRecordset(
      "SELECT ClientNotification.* FROM ClientNotification WHERE "
      "ClientNotificationID=" +
          std::to_string(merge.notification) + ";",
      keysetUpdate);
  updateField(handle, "ClientNotificationModifiedStamp", nowText());
  updateField(handle, "Memo", text);
  database().closeRecordset(handle);
}

void mergeOneByOne(benchmark::State& state, Firms& firms) {
  PropagationFirm& firm = propagationFirm(firms);
  clsAutoNotifyTemplate kind;
  kind.openExistingScheduleType(firm.kind());
  for (auto _ : state) {
    for (const Merge& merge : firm.merges()) mergeAndWrite(merge, kind.get_notificationComment());
  }
  firm.firm().requireNoErrors();
}

}  // namespace

void registerPropagation(Firms& firms) {
  benchmark::RegisterBenchmark("propagation/ours", [&](auto& s) {
    propagate(s, firms);
  })->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("propagation/floor", [&](auto& s) {
    mergeOneByOne(s, firms);
  })->Unit(benchmark::kMillisecond);
}

}  // namespace autonotify::bench
