#pragma once

#include <benchmark/benchmark.h>

namespace autonotify::bench {

/// The most memory in use at a time between Start and Stop, above what was in use before: blocks of
/// the program and of SQLite. Their peaks need not coincide, so that the figure is an upper bound.
class MemoryMeter : public benchmark::MemoryManager {
 public:
  void Start() override;
  void Stop(Result* result) override;

 private:
  std::int64_t sqliteBefore_ = 0;
};

}  // namespace autonotify::bench
