#include <benchmark/benchmark.h>

#include <iostream>
#include <vector>

#include "host/database/postgres/PostgresDatabase.h"

// A row by its key on a server: open, read three columns, close; and the same through the library
// alone. Usage: bench_postgres URL [options of the benchmark library].

namespace autonotify::bench {
namespace {

using host::PostgresConnection;
using host::ServerAddress;

constexpr const char* select =
    "SELECT Schedule.ScheduleID, Schedule.scheduleName, Schedule.DueDate FROM Schedule WHERE "
    "ScheduleID=";
const std::string columns[] = {"ScheduleID", "scheduleName", "DueDate"};

std::vector<Id> readEntries(const std::string& url) {
  std::vector<Id> entries;
  PostgresConnection connection{ServerAddress(url)};
  for (const pqxx::row& row :
       connection.execute("SELECT ScheduleID FROM Schedule ORDER BY ScheduleID LIMIT 2000"))
    entries.push_back(row[0].as<Id>());
  return entries;
}

void readThroughContract(benchmark::State& state, const std::string& url,
                         const std::vector<Id>& entries) {
  const auto database = host::openPostgres(url);
  std::size_t next = 0;
  for (auto _ : state) {
    const RecordsetHandle handle =
        database->openRecordset(select + std::to_string(entries[next]) + ";", CursorMode::keyset,
                                LockMode::readOnly, -1, {}, -1, false);
    for (const std::string& column : columns)
      benchmark::DoNotOptimize(database->getFieldValue(handle, column));
    database->closeRecordset(handle);
    next = next + 1 == entries.size() ? 0 : next + 1;
  }
}

void readRaw(benchmark::State& state, const std::string& url, const std::vector<Id>& entries) {
  pqxx::connection connection(ServerAddress(url).parameters());
  connection.prepare("row", std::string(select) + "$1");
  pqxx::nontransaction transaction(connection);
  std::size_t next = 0;
  for (auto _ : state) {
    const pqxx::result rows = transaction.exec_prepared("row", entries[next]);
    benchmark::DoNotOptimize(rows[0][0].as<int>());
    benchmark::DoNotOptimize(rows[0][1].as<std::string>());
    benchmark::DoNotOptimize(rows[0][2].as<std::string>());
    next = next + 1 == entries.size() ? 0 : next + 1;
  }
}

}  // namespace
}  // namespace autonotify::bench

int main(int argc, char** argv) {
  using namespace autonotify::bench;
  benchmark::Initialize(&argc, argv);
  if (argc != 2) {
    std::cerr << "usage: bench_postgres URL [--benchmark_...]\n";
    return 2;
  }
  const std::string url = argv[1];
  const std::vector<autonotify::Id> entries = readEntries(url);
  benchmark::RegisterBenchmark("keyed_row/ours", [&](auto& state) {
    readThroughContract(state, url, entries);
  })->UseRealTime();
  benchmark::RegisterBenchmark("keyed_row/floor", [&](auto& state) {
    readRaw(state, url, entries);
  })->UseRealTime();
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
