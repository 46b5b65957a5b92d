#include <chrono>
#include <iostream>

#include "bench/Firm.h"
#include "bench/Replay.h"
#include "channels/modChannelNotifications.h"
#include "store/modNotifyClients.h"

// The least that arming by email comes to: what the component asks its host for, as nothing but the
// engine's own statements, which are recorded on a copy. Usage: arm_floor DATABASE TASK...
// The tasks are armed then; it prints the seconds.

namespace autonotify::bench {
namespace {

void record(Firm& firm, const std::vector<Id>& tasks, Replay& replay) {
  auto recorded = std::make_unique<RecordedDatabase>(copyInMemory(firm));
  RecordedDatabase& database = *recorded;
  Firm recording(std::move(recorded));
  recording.attach();
  for (const Id task : tasks) {
    addNewEmailNotificationFromScheduleIDNum(task);
    changeNotificationStatus(nt_Email, nt_AddStatus, task);
    replay.add(database.takeCalls(), recording.connection());
  }
  recording.requireNoErrors();
}

double secondsOfArming(const char* file, const std::vector<Id>& tasks) {
  Firm firm(host::openSqlite(file));
  Replay replay(firm.connection());
  record(firm, tasks, replay);
  const auto begin = std::chrono::steady_clock::now();
  for (std::size_t piece = 0; piece < replay.pieces(); ++piece) replay.run(piece);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

}  // namespace
}  // namespace autonotify::bench

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "usage: arm_floor DATABASE TASK...\n";
    return 2;
  }
  std::vector<autonotify::Id> tasks;
  for (int i = 2; i < argc; ++i) tasks.push_back(std::stoi(argv[i]));
  std::cout << autonotify::bench::secondsOfArming(argv[1], tasks) << '\n';
  return 0;
}
