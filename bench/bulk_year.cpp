#include <benchmark/benchmark.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include "bench/Replay.h"
#include "bench/raw_rows.h"
#include "bulk/bulk_pass.h"
#include "host/services/HostProgressDialog.h"

// A company's year in one pass: 10,000 open tasks, armed by all four channels.

namespace autonotify::bench {
namespace {

constexpr int taskCount = 10000;
constexpr Id company = 1;

const std::string removal = "DELETE FROM ClientNotification; UPDATE Schedule SET notifyType=0";

/// All open tasks are of the company and of one year, and nothing is armed.
SQLite::Database prepared(SQLite::Database database) {
  database.exec(removal +
                "; UPDATE Schedule SET Closed=1; UPDATE Schedule SET Closed=0, Year=2026, "
                "ContactIDNum=-1, ClientNum=(SELECT ClientDataID FROM ClientData WHERE "
                "CompanyIDNum=" +
                std::to_string(company) +
                ") WHERE ScheduleID IN (SELECT ScheduleIDNum FROM Tasks WHERE ScheduleIDNum>=0 "
                "LIMIT " +
                std::to_string(taskCount) + ")");
  return database;
}

BulkOrder orderOfAll() {
  BulkOrder order{{enumAutoNotifyCompany, company, noId}, 2026, {}, {}, {}, {}};
  order.choice.families.fill(true);
  order.choice.channels.fill(true);
  order.email.to = "office@birch.example";
  order.fax.to = order.phone.to = "Cara Holm";
  order.fax.receiverFax = "555-0101";
  order.phone.number = "555-0102";
  return order;
}

/// Composes a piece of each task.
class PieceTaker : public host::HostProgressDialog {
 public:
  PieceTaker(Replay& replay, RecordedDatabase& database) : replay_(replay), database_(database) {}

  void put_value(int value) override {
    HostProgressDialog::put_value(value);
    replay_.add(database_.takeCalls(), database_.connection().getHandle());
  }

 private:
  Replay& replay_;
  RecordedDatabase& database_;
};

Firm& yearFirm(Firms& firms) {
  static Firm firm(
      std::make_unique<host::SqliteDatabase>(prepared(copyInMemory(firms.ofManyTasks()))));
  firm.attach();
  return firm;
}

/// Runs `turn` on a year without notifications; it leaves one of each task and channel.
template <class Turn>
void measureYear(benchmark::State& state, Firm& firm, Turn&& turn) {
  SQLite::Database& database = firm.database().connection();
  for (auto _ : state) {
    turn();
    state.PauseTiming();
    const int armed = database.execAndGet("SELECT count(*) FROM Schedule WHERE notifyType=15");
    const int rows = database.execAndGet(
        "SELECT count(*) FROM ClientNotification WHERE Field1 IS NOT NULL OR NotificationType=4");
    if (armed != taskCount || rows != 4 * taskCount)
      throw std::logic_error("armed " + std::to_string(armed) + " tasks by " +
                             std::to_string(rows) + " notifications");
    database.exec(removal);
    state.ResumeTiming();
  }
}

void armYear(benchmark::State& state, Firms& firms) {
  Firm& firm = yearFirm(firms);
  const BulkOrder order = orderOfAll();
  measureYear(state, firm, [&] {
    host::HostProgressDialog dialog;
    scheduleAutoNotifications(order, dialog);
  });
  firm.requireNoErrors();
}

void recordYear(Firms& firms, Replay& replay) {
  auto recorded = std::make_unique<RecordedDatabase>(prepared(copyInMemory(firms.ofManyTasks())));
  RecordedDatabase& database = *recorded;
  Firm recording(std::move(recorded));
  recording.attach();
  PieceTaker taker(replay, database);
  scheduleAutoNotifications(orderOfAll(), taker);
  recording.requireNoErrors();
}

void replayYear(benchmark::State& state, Firms& firms) {
  Firm& firm = yearFirm(firms);
  Replay& replay = firm.replay("year", [&](Replay& year) { recordYear(firms, year); });
  measureYear(state, firm, [&] {
    for (std::size_t i = 0; i < replay.pieces(); ++i) replay.run(i);
  });
}

}  // namespace

void registerBulkYear(Firms& firms) {
  addBenchmark("bulk_year/ours", [&](auto& s) {
    armYear(s, firms);
  })->Unit(benchmark::kMillisecond);
  addBenchmark("bulk_year/floor", [&](auto& s) {
    replayYear(s, firms);
  })->Unit(benchmark::kMillisecond);
}

}  // namespace autonotify::bench
