#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "host/database/RowBuffer.h"

namespace autonotify::host {

class Plan;

/// What a list of rows keeps of them.
struct RowMemory {
  std::vector<Value> parameters;
  std::vector<Id> keys;
  RowBuffer buffer;
};

/// Memory of lists that are gone, for those that come: most lists are short and live briefly.
class SpareRowMemory {
 public:
  SpareRowMemory() { spare_.reserve(most); }

  std::unique_ptr<RowMemory> take() {
    if (spare_.empty()) return std::make_unique<RowMemory>();
    std::unique_ptr<RowMemory> memory = std::move(spare_.back());
    spare_.pop_back();
    return memory;
  }

  /// Keeps it, emptied, unless there is enough, or it is large.
  void giveBack(std::unique_ptr<RowMemory> memory) noexcept {
    const bool isLarge = memory->keys.capacity() > largest || memory->buffer.capacity() > largest;
    if (isLarge || spare_.size() == most) return;
    memory->parameters.clear();
    memory->keys.clear();
    memory->buffer.start(0, 0);
    spare_.push_back(std::move(memory));
  }

 private:
  static constexpr std::size_t most = 16;
  static constexpr std::size_t largest = 1024;  // keys, or values

  std::vector<std::unique_ptr<RowMemory>> spare_;
};

/// Rows that were looked up by their keys, the last of each of a few plans.
class LookedUpRows {
 public:
  LookedUpRows() { rows_.reserve(most); }

  /// What the plan gave for these parameters; null where it is not known.
  std::unique_ptr<RowMemory> take(const Plan* plan, const std::vector<Value>& parameters) {
    for (Row& row : rows_)
      if (row.plan.get() == plan && row.memory && row.memory->parameters == parameters)
        return std::move(row.memory);
    return nullptr;
  }

  /// Gives the memory that is not needed any more, or null.
  std::unique_ptr<RowMemory> put(const std::shared_ptr<Plan>& plan,
                                 std::unique_ptr<RowMemory> memory) noexcept {
    const auto same = std::ranges::find(rows_, plan, &Row::plan);
    if (same != rows_.end()) return std::exchange(same->memory, std::move(memory));
    if (rows_.size() == most) return memory;
    rows_.push_back({plan, std::move(memory)});
    return nullptr;
  }

  void clear() noexcept { rows_.clear(); }

 private:
  static constexpr std::size_t most = 8;  // plans

  struct Row {
    std::shared_ptr<Plan> plan;
    std::unique_ptr<RowMemory> memory;
  };
  std::vector<Row> rows_;
};

}  // namespace autonotify::host
