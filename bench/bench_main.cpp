#include <benchmark/benchmark.h>

#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>

#include "bench/MemoryMeter.h"
#include "bench/raw_rows.h"

// Usage: autonotify_bench FOLDER [ITERATIONS] [options of the benchmark library]. Databases are
// made in FOLDER. Memory is told of runs without repetitions alone, and not where the iterations
// are given: then each benchmark runs once.

namespace {

/// The benchmark library (1.7.1) reads freed memory when it writes down the memory of repeated
/// runs.
bool isRepeated(int argc, char** argv) {
  return std::any_of(argv, argv + argc, [](std::string_view argument) {
    return argument.starts_with("--benchmark_repetitions");
  });
}

}  // namespace

int main(int argc, char** argv) {
  using namespace autonotify::bench;
  bool isMetered = !isRepeated(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (argc != 2 && argc != 3) {
    std::cerr << "usage: autonotify_bench FOLDER [ITERATIONS] [--benchmark_...]\n";
    return 2;
  }
  if (argc == 3) {
    fixIterations(std::stoll(argv[2]));
    isMetered = false;
  }
  Firms firms(argv[1]);
  for (const auto registerRows :
       {registerSingleRow, registerMerge, registerComments, registerAdding, registerOpening,
        registerPropagation, registerBulkYear, registerManyRows, registerListLoad})
    registerRows(firms);
  MemoryMeter meter;
  if (isMetered) benchmark::RegisterMemoryManager(&meter);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::RegisterMemoryManager(nullptr);
  return 0;
}
