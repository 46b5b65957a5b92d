#include <benchmark/benchmark.h>

#include "bench/Replay.h"
#include "bench/raw_rows.h"

// A row by its key: open, read three columns, close.

namespace autonotify::bench {
namespace {

constexpr const char* select =
    "SELECT Schedule.ScheduleID, Schedule.scheduleName, Schedule.DueDate FROM Schedule WHERE "
    "ScheduleID=";
const std::string columns[] = {"ScheduleID", "scheduleName", "DueDate"};

void readThroughContract(benchmark::State& state, Firms& firms) {
  DatabaseReference& database = firms.inMemory().database();
  const std::vector<Id>& entries = firms.inMemory().entries();
  std::size_t next = 0;
  for (auto _ : state) {
    const RecordsetHandle handle =
        database.openRecordset(select + std::to_string(entries[next]) + ";", CursorMode::keyset,
                               LockMode::readOnly, -1, {}, -1, false);
    for (const std::string& column : columns)
      benchmark::DoNotOptimize(database.getFieldValue(handle, column));
    database.closeRecordset(handle);
    next = next + 1 == entries.size() ? 0 : next + 1;
  }
}

void readRawRow(benchmark::State& state, Firms& firms) {
  const RawStatement statement =
      prepareRaw(firms.inMemory().connection(), std::string(select) + "?");
  const std::vector<Id>& entries = firms.inMemory().entries();
  std::size_t next = 0;
  bool areNumbers[3];
  for (int i = 0; i < 3; ++i) areNumbers[i] = isNumber(statement.get(), i);
  for (auto _ : state) {
    sqlite3_bind_int(statement.get(), 1, entries[next]);
    sqlite3_step(statement.get());
    for (int i = 0; i < 3; ++i) readKnown(statement.get(), i, areNumbers[i]);
    sqlite3_reset(statement.get());
    next = next + 1 == entries.size() ? 0 : next + 1;
  }
}

}  // namespace

void registerSingleRow(Firms& firms) {
  addBenchmark("single_row/ours", [&](auto& s) { readThroughContract(s, firms); });
  addBenchmark("single_row/floor", [&](auto& s) { readRawRow(s, firms); });
}

}  // namespace autonotify::bench
