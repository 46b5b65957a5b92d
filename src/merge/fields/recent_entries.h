#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace autonotify {

/// The values made last, by their keys; at most `capacity`, fewer than pays for hashing.
template <class Key, class Kept>
class RecentEntries {
 public:
  explicit RecentEntries(std::size_t capacity) : capacity_(capacity) {}

  /// The value of the key, made when it is not there. A copy: the next call may drop it.
  template <class Make>
  Kept findOrMake(const Key& key, Make&& make) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const auto& entry) { return entry.first == key; });
    if (found != entries_.end()) return found->second;
    Kept made = make();
    if (entries_.size() < capacity_) {
      entries_.emplace_back(key, made);
    } else {
      entries_[oldest_] = {key, made};
      oldest_ = (oldest_ + 1) % capacity_;
    }
    return made;
  }

 private:
  std::size_t capacity_;
  std::size_t oldest_ = 0;
  std::vector<std::pair<Key, Kept>> entries_;
};

}  // namespace autonotify
