#include <benchmark/benchmark.h>

#include "bench/raw_rows.h"

// A handle for adding on a table of a million rows, up to the key of the new row. No row is saved.

namespace autonotify::bench {
namespace {

void openForAdding(benchmark::State& state, Firms& firms) {
  DatabaseReference& database = firms.ofManyYears().database();
  const auto open = [&] {
    const RecordsetHandle handle =
        database.openRecordset("SELECT ClientNotification.* FROM ClientNotification;",
                               CursorMode::keyset, LockMode::updatable, -1, {}, -1, false);
    database.addNewRecord(handle);
    benchmark::DoNotOptimize(database.getFieldValue(handle, "ClientNotificationID"));
    database.closeRecordset(handle);
  };
  open();
  for (auto _ : state) open();
}

}  // namespace

void registerManyRows(Firms& firms) {
  addBenchmark("adding_handle/ours", [&](auto& s) { openForAdding(s, firms); })->UseRealTime();
}

}  // namespace autonotify::bench
