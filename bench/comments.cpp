#include <benchmark/benchmark.h>

#include "bench/Replay.h"
#include "bench/raw_rows.h"
#include "scheduling/modNotificationComments.h"

// The text of a notification from end to end, for 1,000 tasks.

namespace autonotify::bench {
namespace {

struct CommentPlace {
  const char* name;
  Firm& (Firms::*firm)();
};
constexpr CommentPlace commentPlaces[] = {{"comments", &Firms::inMemory},
                                          {"comments_disk", &Firms::onDisk}};

void generateComments(benchmark::State& state, Firm& firm) {
  firm.attach();
  const auto generateAll = [&] {
    for (const Id entry : firm.entries())
      benchmark::DoNotOptimize(generateClientAutoNotifyComment(entry));
  };
  generateAll();
  for (auto _ : state) generateAll();
  firm.requireNoErrors();
}

std::unique_ptr<Replay> recordComments(Firms& firms, Firm& measured) {
  auto recorded = std::make_unique<RecordedDatabase>(firms.copyInMemory());
  RecordedDatabase& database = *recorded;
  Firm firm(std::move(recorded));
  firm.attach();
  auto replay = std::make_unique<Replay>(measured.connection());
  for (const Id entry : measured.entries()) {
    generateClientAutoNotifyComment(entry);
    replay->add(database.takeCalls(), firm.connection());
  }
  firm.requireNoErrors();
  return replay;
}

void replayComments(benchmark::State& state, Firms& firms, Firm& firm) {
  const std::unique_ptr<Replay> replay = recordComments(firms, firm);
  const auto replayAll = [&] {
    for (std::size_t piece = 0; piece < replay->pieces(); ++piece) replay->run(piece);
  };
  replayAll();
  for (auto _ : state) replayAll();
}

}  // namespace

void registerComments(Firms& firms) {
  for (const CommentPlace& place : commentPlaces) {
    const std::string row = place.name;
    benchmark::RegisterBenchmark((row + "/ours").c_str(), [&](auto& state) {
      generateComments(state, (firms.*place.firm)());
    });
    benchmark::RegisterBenchmark((row + "/floor").c_str(), [&](auto& state) {
      replayComments(state, firms, (firms.*place.firm)());
    });
  }
}

}  // namespace autonotify::bench
