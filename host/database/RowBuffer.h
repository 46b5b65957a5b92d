#pragma once

#include <cstddef>
#include <vector>

#include "platform/Value.h"

namespace autonotify::host {

/// Values of rows that follow each other, as many of each.
class RowBuffer {
 public:
  /// Empties it, for rows of `width` values from the one with the number `first` on.
  void start(std::size_t first, std::size_t width) {
    values_.clear();
    isThere_.clear();
    first_ = first;
    width_ = width;
  }

  /// Empties it, for rows like this one of the other, which is copied as row 0.
  void startWith(const RowBuffer& other, std::size_t row) {
    start(0, other.width_);
    values_.reserve(width_);
    const Value* const values = &other.values_[(row - other.first_) * width_];
    for (std::size_t i = 0; i < width_; ++i) values_.push_back(values[i]);
    isThere_.push_back(true);
  }

  std::size_t width() const { return width_; }
  std::size_t size() const { return isThere_.size(); }
  /// The number behind the last row's.
  std::size_t end() const { return first_ + size(); }
  bool has(std::size_t row) const { return row >= first_ && row < end(); }

  /// Appends rows that are not there until they are put.
  void add(std::size_t rows) {
    values_.resize((size() + rows) * width_);
    isThere_.resize(size() + rows);
  }
  /// `fill` writes the values of the row. Requires: has(row).
  template <class Fill>
  void put(std::size_t row, Fill&& fill) {
    fill(values_.data() + (row - first_) * width_);
    isThere_[row - first_] = true;
  }
  /// Appends a row whose values `fill` writes.
  template <class Fill>
  void append(Fill&& fill) {
    values_.resize((size() + 1) * width_);
    fill(values_.data() + size() * width_);
    isThere_.push_back(true);
  }
  /// Requires: has(row).
  bool isThere(std::size_t row) const { return isThere_[row - first_] != 0; }
  /// Requires: isThere(row), and place < width().
  const Value& value(std::size_t row, std::size_t place) const {
    return values_[(row - first_) * width_ + place];
  }

  template <class Visit>
  void forEach(Visit&& visit) const {
    for (const Value& value : values_) visit(value);
  }

  /// For how many values there is memory.
  std::size_t capacity() const { return values_.capacity(); }

 private:
  std::size_t first_ = 0;
  std::size_t width_ = 0;
  std::vector<Value> values_;
  std::vector<char> isThere_;  // by row
};

}  // namespace autonotify::host
