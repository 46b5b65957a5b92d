#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <string>

#include "bench/Firm.h"

namespace autonotify::bench {

// Each registers its benchmarks under "row/ours" and "row/floor"; bench/report.py puts the two in
// proportion. Work whose cost is the disk's is measured in real time, all other in processor time.

using Measured = std::function<void(benchmark::State&)>;

/// `name` is "row/side".
benchmark::internal::Benchmark* addBenchmark(const std::string& name, const Measured& measured);
/// Each benchmark that is added from here on runs so many turns, and no longer for some time.
void fixIterations(std::int64_t count);

void registerSingleRow(Firms& firms);
void registerMerge(Firms& firms);
void registerComments(Firms& firms);
void registerAdding(Firms& firms);
void registerOpening(Firms& firms);
void registerPropagation(Firms& firms);
void registerBulkYear(Firms& firms);
void registerManyRows(Firms& firms);
void registerListLoad(Firms& firms);

}  // namespace autonotify::bench
