#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "host/database/RowMemory.h"

namespace autonotify::host {

class Plan;

/// Rows of ids that follow each other, read together because the look-ups before them went up by
/// little. The longer they do, the more are read.
class RowsAhead {
 public:
  static constexpr Id mostIds = 64;

  /// The id was looked up, and has one row or none.
  void note(std::int64_t id) { last_ = id; }
  /// How many ids, from this one on, to read now: none where they are here already, or where the
  /// next look-up is likely to be of an id far away. The same id may come several times.
  Id idsToRead(std::int64_t id) {
    constexpr Id furthestStep = 4, growth = 4;
    const bool goesOn = id >= last_ && id - last_ <= furthestStep;
    if (!goesOn) ids_ = 1;
    if (!goesOn || has(id) || id > std::numeric_limits<Id>::max() - mostIds) return 0;
    ids_ = std::min(ids_ * growth, mostIds);
    return ids_;
  }

  /// Empties it, for rows of `ids` ids with `width` values each.
  void start(std::int64_t first, Id ids, std::size_t width) {
    first_ = first;
    found_.assign(static_cast<std::size_t>(ids), {});
    rows_.start(0, width);
    rows_.add(found_.size());
  }
  /// A row of the id, whose values `fill` writes. Requires: the id is one of those.
  template <class Fill>
  void put(Id id, Id key, Fill&& fill) {
    Found& found = found_[placeOf(id)];
    found.key = key;
    ++found.rows;
    rows_.put(placeOf(id), fill);
  }

  /// The id's row, if there is one, goes to `memory`, which holds none. False where that is not
  /// known, and for an id of several rows.
  bool give(std::int64_t id, RowMemory& memory) const {
    if (!has(id)) return false;
    const Found& found = found_[placeOf(id)];
    if (found.rows == 1) {
      memory.keys.push_back(found.key);
      memory.buffer.startWith(rows_, placeOf(id));
    }
    return found.rows <= 1;
  }

 private:
  struct Found {
    Id key = noId;
    int rows = 0;
  };

  bool has(std::int64_t id) const { return id >= first_ && placeOf(id) < found_.size(); }
  std::size_t placeOf(std::int64_t id) const { return static_cast<std::size_t>(id - first_); }

  std::int64_t last_ = std::numeric_limits<Id>::max();  // that was looked up
  Id ids_ = 1;                                          // that were read at a time
  std::int64_t first_ = 0;
  std::vector<Found> found_;  // by id
  RowBuffer rows_;            // the last of each id
};

/// The rows ahead of the look-ups of a few plans.
class RowsAheadOfPlans {
 public:
  RowsAheadOfPlans() { plans_.reserve(most); }

  /// Null where those of enough other plans are kept.
  RowsAhead* ahead(const std::shared_ptr<Plan>& plan) noexcept {
    const auto same = std::ranges::find(plans_, plan, &OfPlan::plan);
    if (same != plans_.end()) return &same->ahead;
    if (plans_.size() == most) return nullptr;
    plans_.push_back({plan, {}});
    return &plans_.back().ahead;
  }

  void clear() noexcept { plans_.clear(); }

 private:
  static constexpr std::size_t most = 8;  // plans

  struct OfPlan {
    std::shared_ptr<Plan> plan;
    RowsAhead ahead;
  };

  std::vector<OfPlan> plans_;
};

}  // namespace autonotify::host
