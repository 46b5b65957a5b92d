#include "bench/raw_rows.h"

#include <optional>

namespace autonotify::bench {
namespace {

std::optional<std::int64_t> fixedIterations;

}  // namespace

benchmark::internal::Benchmark* addBenchmark(const std::string& name, const Measured& measured) {
  auto* added = benchmark::RegisterBenchmark(name.c_str(), measured);
  return fixedIterations ? added->Iterations(*fixedIterations) : added;
}

void fixIterations(std::int64_t count) {
  fixedIterations = count;
}

}  // namespace autonotify::bench
