#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/database/Plan.h"
#include "host/database/RowMemory.h"

namespace autonotify::host {

/// What a statement reads, and what this connection had written before.
struct ReadState {
  /// While it is the same and not 0, no one else has changed anything.
  std::uint64_t others = 0;
  /// The last write of this connection.
  std::uint64_t own = 0;
};

/// What statements of one row or none gave, by their plan and parameters: many are asked again
/// while nothing of what they read has changed.
class RememberedRows {
 public:
  /// Takes out what the plan gave for these parameters, where `isValid(its state)`; otherwise null.
  template <class Test>
  std::unique_ptr<RowMemory> take(const Plan& plan, const std::vector<Value>& parameters,
                                  Test&& isValid) {
    Slot& slot = slots_[placeOf(hashOf(plan, parameters))];
    const bool isKnown = slot.memory && slot.plan.get() == &plan &&
                         slot.memory->parameters == parameters && isValid(slot.state);
    return isKnown ? std::move(slot.memory) : nullptr;
  }

  /// Notes that the plan is asked for these parameters; whether it was before, as far as is known.
  bool isAskedAgain(const Plan& plan, const std::vector<Value>& parameters) noexcept {
    const std::size_t hash = hashOf(plan, parameters);
    return std::exchange(slots_[placeOf(hash)].asked, hash) == hash;
  }

  /// Gives the memory that is not kept, or null.
  std::unique_ptr<RowMemory> put(const std::shared_ptr<Plan>& plan,
                                 std::unique_ptr<RowMemory> memory, ReadState state) noexcept {
    if (isLarge(*memory)) return memory;
    Slot& slot = slots_[placeOf(hashOf(*plan, memory->parameters))];
    slot.plan = plan;
    slot.state = state;
    return std::exchange(slot.memory, std::move(memory));
  }

  void clear() noexcept {
    for (Slot& each : slots_) each = {};
  }

 private:
  /// Another statement may need the same slot, which then is its own.
  struct Slot {
    std::size_t asked = 0;
    std::shared_ptr<Plan> plan;
    std::unique_ptr<RowMemory> memory;
    ReadState state;
  };

  static std::size_t hashOf(const Plan& plan, const std::vector<Value>& parameters) noexcept {
    std::size_t hash = std::hash<const Plan*>()(&plan);
    for (const Value& each : parameters) {
      if (const auto* number = each.getIf<std::int64_t>())
        hash ^= static_cast<std::size_t>(*number);
      else if (const auto* text = each.getIf<std::string>())
        hash ^= std::hash<std::string>()(*text);
      else if (const auto* moment = each.getIf<DateTime>())
        hash ^= static_cast<std::size_t>(moment->totalMinutes());
      hash *= 0x9e3779b97f4a7c15;
      hash ^= hash >> 32;
    }
    return hash;
  }
  std::size_t placeOf(std::size_t hash) const { return hash % slots_.size(); }

  static bool isLarge(const RowMemory& memory) noexcept {
    constexpr std::size_t largest = 64u << 10;  // bytes of texts
    std::size_t bytes = 0;
    memory.buffer.forEach([&](const Value& value) {
      if (const auto* text = value.getIf<std::string>()) bytes += text->size();
    });
    return bytes > largest;
  }

  std::array<Slot, 512> slots_;
};

}  // namespace autonotify::host
