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

void recordComments(Firms& firms, Firm& measured, Replay& replay) {
  auto recorded = std::make_unique<RecordedDatabase>(firms.copyInMemory());
  RecordedDatabase& database = *recorded;
  Firm firm(std::move(recorded));
  firm.attach();
  for (const Id entry : measured.entries()) {
    generateClientAutoNotifyComment(entry);
    replay.add(database.takeCalls(), firm.connection());
  }
  firm.requireNoErrors();
}

void replayComments(benchmark::State& state, Firms& firms, Firm& firm) {
  Replay& comments =
      firm.replay("comments", [&](Replay& replay) { recordComments(firms, firm, replay); });
  const auto replayAll = [&] {
    for (std::size_t piece = 0; piece < comments.pieces(); ++piece) comments.run(piece);
  };
  replayAll();
  for (auto _ : state) replayAll();
}

}  // namespace

void registerComments(Firms& firms) {
  for (const CommentPlace& place : commentPlaces) {
    const std::string row = place.name;
    addBenchmark((row + "/ours"),
                 [&](auto& state) { generateComments(state, (firms.*place.firm)()); });
    addBenchmark((row + "/floor"),
                 [&](auto& state) { replayComments(state, firms, (firms.*place.firm)()); });
  }
}

}  // namespace autonotify::bench
