#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Value.h"
#include "platform/controls/TextPool.h"

namespace autonotify {

/// The text or the number of a cell, as it is handed over. Holds no text of its own.
class CellValue {
 public:
  CellValue(std::string_view text) : text_(text) {}
  CellValue(const std::string& text) : text_(text) {}
  CellValue(const char* text) : text_(text) {}
  CellValue(Id number) : number_(number), isNumber_(true) {}

  bool isNumber() const { return isNumber_; }
  Id number() const { return number_; }
  std::string_view text() const { return text_; }

 private:
  std::string_view text_;
  Id number_ = 0;
  bool isNumber_ = false;
};

/// A key by which rows are sorted. Order: see sort_order.
struct GridSortKey {
  int column = -1;
  int order = 1;
  bool operator==(const GridSortKey&) const = default;
};
namespace sort_order {
inline constexpr int ascending = 1;
inline constexpr int descending = 2;
}  // namespace sort_order

/// A code for each row, 0 where none was put. Rows lie in blocks; one in which the first rows have
/// one code and the others none, as in a column of buttons, takes no memory for them.
class CodeColumn {
 public:
  std::uint32_t at(std::size_t row) const {
    const std::size_t block = row / rowsOfBlock;
    return block < blocks_.size() ? blocks_[block].at(row % rowsOfBlock) : 0;
  }
  /// False when that code was there before.
  bool put(std::size_t row, std::uint32_t code) {
    const std::size_t block = row / rowsOfBlock;
    if (block >= blocks_.size()) return code != 0 && putBehind(row, code);
    return blocks_[block].put(row % rowsOfBlock, code);
  }

 private:
  static constexpr std::size_t rowsOfBlock = 1024;
  using Codes = std::array<std::uint32_t, rowsOfBlock>;
  struct Block {
    std::uint32_t code = 0;
    /// How many rows have that code; none where `codes` tells.
    std::uint32_t rows = 0;
    std::unique_ptr<Codes> codes;

    std::uint32_t at(std::size_t row) const {
      if (codes) return (*codes)[row];
      return row < rows ? code : 0;
    }
    bool put(std::size_t row, std::uint32_t newCode) {
      return codes ? std::exchange((*codes)[row], newCode) != newCode
                   : putWithoutCodes(row, newCode);
    }
    // Both require: no `codes`.
    bool putWithoutCodes(std::size_t row, std::uint32_t newCode);
    bool putApart(std::size_t row, std::uint32_t newCode);
  };
  /// Requires: no such block yet.
  bool putBehind(std::size_t row, std::uint32_t code);
  std::vector<Block> blocks_;
};

/// The cells of a grid, column by column, each a code of 32 bits for a number or a text. A sort
/// value that equals the cell's text is not kept: it follows the text. Requires everywhere: row <
/// rowCount(), and the column is there.
class GridCells {
 public:
  void addColumn() { columns_.emplace_back(); }
  /// Appends an empty row.
  void addRow();
  void clearRows();
  void clearAll();
  int rowCount() const { return static_cast<int>(rowCount_); }

  std::string text(int row, int column) const;
  /// False when nothing changes.
  bool putText(int row, int column, const CellValue& value);
  void putSortValue(int row, int column, const CellValue& value);
  bool isTicked(int row, int column) const;
  /// False when nothing changes.
  bool tick(int row, int column, bool isTicked);

  /// Rows that are equal by all keys keep their order. Empty cells come first, then numbers, then
  /// texts by their characters, in any case. Gives the new place of the row at `followed`, -1 for
  /// none.
  int sort(std::span<const GridSortKey> keys, int followed);

 private:
  struct Column {
    CodeColumn texts;
    CodeColumn sortValues;
    CodeColumn ticks;
    // What came in last: the next row may well have the same.
    TextPool::Entry lastText;
    TextPool::Entry lastSortText;
  };
  using Ranks = std::vector<std::uint32_t>;

  std::uint32_t codeOfNumber(Id number);
  /// `last` becomes the text that the value is.
  std::uint32_t codeOf(const CellValue& value, TextPool::Entry& last);
  std::uint32_t sortCode(const Column& column, std::size_t line) const;
  Ranks ranksOf(const Column& column) const;
  std::vector<std::uint64_t> weightsOf(const GridSortKey& key) const;
  /// Where the row lies in its columns.
  std::size_t lineOf(int row) const {
    const auto place = static_cast<std::size_t>(row);
    return order_.empty() ? place : order_[place];
  }
  Column& at(int column) { return columns_[static_cast<std::size_t>(column)]; }
  const Column& at(int column) const { return columns_[static_cast<std::size_t>(column)]; }

  TextPool pool_;
  std::vector<Column> columns_;
  std::size_t rowCount_ = 0;
  /// The lines in the order of the rows; empty while that is their own.
  std::vector<std::uint32_t> order_;
};

}  // namespace autonotify
