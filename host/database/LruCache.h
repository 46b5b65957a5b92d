#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace autonotify::host {

/// Keeps the `capacity` entries used last, by text. T is cheap to copy, such as a shared pointer.
template <class T>
class LruCache {
 public:
  explicit LruCache(std::size_t capacity) : capacity_(capacity) {}

  /// The entry of the key; `make()` gives it when there is none. When make throws nothing changes.
  template <class Make>
  T get(std::string_view key, Make&& make) {
    if (const T* found = find(key)) return *found;
    entries_.emplace_front(std::string(key), make());
    places_.emplace(entries_.front().first, entries_.begin());
    if (entries_.size() > capacity_) {
      places_.erase(entries_.back().first);
      entries_.pop_back();
    }
    return entries_.front().second;
  }

  /// The entry of the key, good until the next call; nullptr when there is none.
  const T* find(std::string_view key) {
    const auto found = places_.find(key);
    if (found == places_.end()) return nullptr;
    entries_.splice(entries_.begin(), entries_, found->second);
    return &found->second->second;
  }

  void clear() {
    places_.clear();
    entries_.clear();
  }

  std::size_t size() const { return entries_.size(); }

 private:
  using Entries = std::list<std::pair<std::string, T>>;

  std::size_t capacity_;
  Entries entries_;
  // The keys are views of the entries' own text, which a list never moves.
  std::unordered_map<std::string_view, typename Entries::iterator> places_;
};

}  // namespace autonotify::host
