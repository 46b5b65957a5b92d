#include <benchmark/benchmark.h>

#include "bench/Replay.h"
#include "bench/raw_rows.h"
#include "channels/modChannelNotifications.h"

// A notification from end to end, by channel: date, recipient, text and the new row. In a file the
// disk's share is the same on both sides, as one connection serves both.

namespace autonotify::bench {
namespace {

struct Channel {
  const char* name;
  Id (*add)(Id scheduleId);
};
constexpr Channel channels[] = {
    {"email", addNewEmailNotificationFromScheduleIDNum},
    {"fax", addNewFaxNotificationFromScheduleIDNum},
    {"letter", addNewLetterNotificationFromScheduleIDNum},
    {"phone", addNewPhoneNotificationFromScheduleIDNum},
};

/// Where the rows go.
struct Place {
  const char* name;
  Firm& (Firms::*firm)();
  /// Entries served in one turn.
  std::size_t entries;
};
constexpr Place places[] = {{"memory", &Firms::inMemory, 200}, {"disk", &Firms::onDisk, 20}};

/// Runs `turn` again and again; the rows that it adds are taken away between two turns.
template <class Turn>
void measureTurns(benchmark::State& state, Firm& firm, const Place& place, Turn&& turn) {
  const Id last = firm.ids("SELECT max(ClientNotificationID) FROM ClientNotification").front();
  const std::string removal =
      "DELETE FROM ClientNotification WHERE ClientNotificationID>" + std::to_string(last);
  const auto remove = [&] { firm.database().connection().exec(removal); };
  turn();
  remove();
  for (auto _ : state) {
    turn();
    state.PauseTiming();
    remove();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * place.entries));
}

void addAll(benchmark::State& state, Firms& firms, const Channel& channel, const Place& place) {
  Firm& firm = (firms.*place.firm)();
  firm.attach();
  const std::vector<Id>& entries = firm.entries();
  measureTurns(state, firm, place, [&] {
    for (std::size_t i = 0; i < place.entries; ++i) channel.add(entries[i]);
  });
  firm.requireNoErrors();
}

void recordAdding(Firms& firms, Firm& firm, const Channel& channel, std::size_t entries,
                  Replay& replay) {
  auto recorded = std::make_unique<RecordedDatabase>(firms.copyInMemory());
  RecordedDatabase& database = *recorded;
  Firm recording(std::move(recorded));
  recording.attach();
  for (std::size_t i = 0; i < entries; ++i) {
    channel.add(firm.entries()[i]);
    replay.add(database.takeCalls(), recording.connection());
  }
  recording.requireNoErrors();
}

void replayAll(benchmark::State& state, Firms& firms, const Channel& channel, const Place& place) {
  Firm& firm = (firms.*place.firm)();
  Replay& replay = firm.replay(channel.name, [&](Replay& added) {
    recordAdding(firms, firm, channel, place.entries, added);
  });
  measureTurns(state, firm, place, [&] {
    for (std::size_t i = 0; i < place.entries; ++i) replay.run(i);
  });
}

}  // namespace

void registerAdding(Firms& firms) {
  for (const Place& place : places) {
    for (const Channel& channel : channels) {
      const std::string row = std::string("add_") + channel.name + "_" + place.name;
      const auto add = [&](const char* side, auto measure) {
        auto* added =
            addBenchmark(row + side, [&firms, &channel, &place, measure](benchmark::State& state) {
              measure(state, firms, channel, place);
            });
        if (place.firm == &Firms::onDisk) added->UseRealTime();
      };
      add("/ours", addAll);
      add("/floor", replayAll);
    }
  }
}

}  // namespace autonotify::bench
