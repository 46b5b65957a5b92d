#include <benchmark/benchmark.h>

#include "bench/Replay.h"
#include "bench/raw_rows.h"
#include "scheduling/modNotificationComments.h"

// The text of a notification from end to end, for 1,000 tasks.

namespace autonotify::bench {
namespace {

void generateComments(benchmark::State& state, Firms& firms) {
  Firm& firm = firms.inMemory();
  firm.attach();
  const auto generateAll = [&] {
    for (const Id entry : firm.entries())
      benchmark::DoNotOptimize(generateClientAutoNotifyComment(entry));
  };
  generateAll();
  for (auto _ : state) generateAll();
  firm.requireNoErrors();
}

std::unique_ptr<Replay> recordComments(Firms& firms) {
  auto recorded = std::make_unique<RecordedDatabase>(firms.copyInMemory());
  RecordedDatabase& database = *recorded;
  Firm firm(std::move(recorded));
  firm.attach();
  auto replay = std::make_unique<Replay>(firms.inMemory().connection());
  for (const Id entry : firms.inMemory().entries()) {
    generateClientAutoNotifyComment(entry);
    replay->add(database.takeCalls(), firm.connection());
  }
  firm.requireNoErrors();
  return replay;
}

void replayComments(benchmark::State& state, Firms& firms) {
  const std::unique_ptr<Replay> replay = recordComments(firms);
  const auto replayAll = [&] {
    for (std::size_t piece = 0; piece < replay->pieces(); ++piece) replay->run(piece);
  };
  replayAll();
  for (auto _ : state) replayAll();
}

}  // namespace

void registerComments(Firms& firms) {
  benchmark::RegisterBenchmark("comments/ours", [&](auto& s) { generateComments(s, firms); });
  benchmark::RegisterBenchmark("comments/floor", [&](auto& s) { replayComments(s, firms); });
}

}  // namespace autonotify::bench
