#include <benchmark/benchmark.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include <map>

#include "bench/Replay.h"
#include "bench/raw_rows.h"
#include "scheduling/clsAutoNotifyTemplate.h"

// A changed template carried into all unsent notifications, which are of one kind and of companies.

namespace autonotify::bench {
namespace {

struct PropagationPlace {
  const char* name;
  int notifications;
  std::unique_ptr<host::SqliteDatabase> (*copy)(Firms& firms);
};
constexpr PropagationPlace propagationPlaces[] = {
    {"propagation_memory", 10000,
     [](Firms& firms) { return std::make_unique<host::SqliteDatabase>(firms.copyInMemory()); }},
    {"propagation_disk", 200, [](Firms& firms) { return firms.copyOnDisk("propagation.db"); }},
};

/// The kind that most tasks of companies are of.
struct Kind {
  explicit Kind(SQLite::Database& database) {
    SQLite::Statement most(
        database,
        "SELECT t.ScheduleTypeID, t.TotalNum, t.ScheduleNum FROM ScheduleTypes t "
        "JOIN Schedule s ON s.totalNum=t.TotalNum AND s.scheduleNum=t.ScheduleNum "
        "WHERE s.ClientNum>=0 GROUP BY 1 ORDER BY COUNT(*) DESC LIMIT 1");
    most.executeStep();
    id = most.getColumn(0);
    tasks = "SELECT ScheduleID FROM Schedule WHERE ClientNum>=0 AND totalNum=" +
            most.getColumn(1).getString() + " AND scheduleNum=" + most.getColumn(2).getString();
  }

  Id id = noId;
  std::string tasks;
};

/// Leaves nothing unsent but new notifications of the kind.
void addUnsent(SQLite::Database& database, const Kind& kind, int notifications) {
  database.exec(
      "UPDATE ClientNotification SET NotificationSent=1; WITH RECURSIVE n(i) AS (SELECT 1 UNION "
      "ALL SELECT i+1 FROM n WHERE i<" +
      std::to_string(notifications) +
      "), e AS (SELECT ScheduleID, ROW_NUMBER() OVER () - 1 AS place, COUNT(*) OVER () AS size "
      "FROM (" +
      kind.tasks +
      ")) INSERT INTO ClientNotification (ScheduleIDNum, NotificationType, Memo) SELECT "
      "ScheduleID, 1, '' FROM n JOIN e ON e.place = n.i % e.size");
}

/// Both sides work on the rows of one database.
class Propagation {
 public:
  Propagation(Firms& firms, const PropagationPlace& place) : Propagation(place.copy(firms)) {
    SQLite::Database& database = firm_.database().connection();
    addUnsent(database, kind_, place.notifications);
    record(copyInMemory(firm_));
  }

  void carry() {
    firm_.attach();
    clsAutoNotifyTemplate kind;
    kind.openExistingScheduleType(kind_.id);
    kind.resetNotificationComments();
    firm_.requireNoErrors();
  }

  void replay() {
    for (std::size_t i = 0; i < replay_.pieces(); ++i) replay_.run(i);
  }

 private:
  explicit Propagation(std::unique_ptr<host::SqliteDatabase> database)
      : firm_(std::move(database)),
        kind_(firm_.database().connection()),
        replay_(firm_.connection()) {}

  /// A piece of each notification.
  void record(SQLite::Database copy) {
    auto recorded = std::make_unique<RecordedDatabase>(std::move(copy));
    RecordedDatabase& database = *recorded;
    Firm recording(std::move(recorded));
    recording.attach();
    clsAutoNotifyTemplate kind;
    kind.openExistingScheduleType(kind_.id);
    database.takeCalls();
    kind.incResetNotificationComments = [&] {
      replay_.add(database.takeCalls(), recording.connection());
    };
    kind.resetNotificationComments();
    recording.requireNoErrors();
  }

  Firm firm_;
  Kind kind_;
  Replay replay_;
};

}  // namespace

void registerPropagation(Firms& firms) {
  for (const PropagationPlace& place : propagationPlaces) {
    const auto add = [&](const char* side, void (Propagation::*turn)()) {
      auto* added = addBenchmark(
          place.name + std::string(side), [&firms, &place, turn](benchmark::State& state) {
            static std::map<const PropagationPlace*, Propagation> propagations;
            Propagation& propagation = propagations.try_emplace(&place, firms, place).first->second;
            (propagation.*turn)();
            for (auto _ : state) (propagation.*turn)();
          });
      added->Unit(benchmark::kMillisecond);
      if (place.notifications < 10000) added->UseRealTime();
    };
    add("/ours", &Propagation::carry);
    add("/floor", &Propagation::replay);
  }
}

}  // namespace autonotify::bench
