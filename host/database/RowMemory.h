#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "host/database/RowBuffer.h"

namespace autonotify::host {

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

}  // namespace autonotify::host
