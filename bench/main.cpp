#include <benchmark/benchmark.h>

#include <iostream>

#include "bench/MemoryMeter.h"
#include "bench/rows.h"

// Usage: autonotify_bench FOLDER [options of the benchmark library]. Databases are made in FOLDER.

int main(int argc, char** argv) {
  using namespace autonotify::bench;
  benchmark::Initialize(&argc, argv);
  if (argc != 2) {
    std::cerr << "usage: autonotify_bench FOLDER [--benchmark_...]\n";
    return 2;
  }
  Firms firms(argv[1]);
  for (const auto registerRows :
       {registerSingleRow, registerMerge, registerComments, registerAdding, registerManyRows})
    registerRows(firms);
  MemoryMeter meter;
  benchmark::RegisterMemoryManager(&meter);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::RegisterMemoryManager(nullptr);
  return 0;
}
