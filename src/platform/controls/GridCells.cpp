#include "platform/controls/GridCells.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <utility>

#include "platform/text.h"

namespace autonotify {
namespace {

// The two lowest bits of a code tell what it stands for; code 0 is the empty text and no text.
constexpr std::uint32_t textMark = 0;
constexpr std::uint32_t numberMark = 1;
constexpr std::uint32_t digitsMark = 2;  ///< a number that needs all bits: its digits are a text
/// A sort value that is the empty text although the cell has one.
constexpr std::uint32_t emptyCode = 3;

constexpr Id lastShortNumber = (1 << 29) - 1;

constexpr std::uint32_t markOf(std::uint32_t code) {
  return code & 3U;
}

constexpr std::uint32_t codeOfText(TextPool::TextId id) {
  return id << 2 | textMark;
}

constexpr Id shortNumber(std::uint32_t code) {
  return static_cast<Id>(code) >> 2;
}

Id numberIn(std::string_view digits) {
  Id number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

/// Of numbers, behind nothing at all and before any text.
constexpr std::uint64_t weightOf(Id number) {
  return (std::uint64_t{1} << 32) + (static_cast<std::uint32_t>(number) ^ 0x80000000U);
}

constexpr std::uint64_t weightOfRank(std::uint32_t rank) {
  return (std::uint64_t{2} << 32) + rank;
}

}  // namespace

bool CodeColumn::Block::putWithoutCodes(std::size_t row, std::uint32_t newCode) {
  if (at(row) == newCode) return false;
  if (row != rows || (rows > 0 && newCode != code)) return putApart(row, newCode);
  code = newCode;
  ++rows;
  return true;
}

bool CodeColumn::Block::putApart(std::size_t row, std::uint32_t newCode) {
  codes = std::make_unique<Codes>();
  std::fill_n(codes->begin(), rows, code);
  (*codes)[row] = newCode;
  return true;
}

bool CodeColumn::putBehind(std::size_t row, std::uint32_t code) {
  blocks_.resize(row / rowsOfBlock + 1);
  return put(row, code);
}

void GridCells::addRow() {
  if (!order_.empty()) order_.push_back(static_cast<std::uint32_t>(rowCount_));
  ++rowCount_;
}

void GridCells::clearRows() {
  for (Column& column : columns_) column = {};
  order_ = {};
  rowCount_ = 0;
  pool_.clear();
}

void GridCells::clearAll() {
  clearRows();
  columns_.clear();
}

std::uint32_t GridCells::codeOfNumber(Id number) {
  if (number >= -lastShortNumber && number <= lastShortNumber)
    return static_cast<std::uint32_t>(number) << 2 | numberMark;
  return pool_.add(std::to_string(number)).id << 2 | digitsMark;
}

std::uint32_t GridCells::codeOf(const CellValue& value, TextPool::Entry& last) {
  if (value.isNumber()) return codeOfNumber(value.number());
  if (value.text() != last.text) last = pool_.add(value.text());
  return codeOfText(last.id);
}

std::string GridCells::text(int row, int column) const {
  const std::uint32_t code = at(column).texts.at(lineOf(row));
  if (markOf(code) == numberMark) return std::to_string(shortNumber(code));
  return std::string(pool_.text(code >> 2));
}

bool GridCells::putText(int row, int column, const CellValue& value) {
  Column& target = at(column);
  return target.texts.put(lineOf(row), codeOf(value, target.lastText));
}

void GridCells::putSortValue(int row, int column, const CellValue& value) {
  const std::size_t line = lineOf(row);
  Column& target = at(column);
  const std::uint32_t text = target.texts.at(line);
  const bool isLastText = !value.isNumber() && value.text() == target.lastText.text;
  const std::uint32_t code =
      isLastText ? codeOfText(target.lastText.id) : codeOf(value, target.lastSortText);
  target.sortValues.put(line, code == text ? 0 : code == 0 ? emptyCode : code);
}

bool GridCells::isTicked(int row, int column) const {
  return at(column).ticks.at(lineOf(row)) != 0;
}

bool GridCells::tick(int row, int column, bool isTicked) {
  return at(column).ticks.put(lineOf(row), isTicked);
}

std::uint32_t GridCells::sortCode(const Column& column, std::size_t line) const {
  const std::uint32_t code = column.sortValues.at(line);
  return code == 0 ? column.texts.at(line) : code;
}

/// By the number of a text: its place among the texts of the column, the same for texts that differ
/// in case alone.
GridCells::Ranks GridCells::ranksOf(const Column& column) const {
  Ranks ranks(pool_.last() + std::size_t{1});
  std::vector<std::pair<std::string, TextPool::TextId>> texts;
  for (std::size_t line = 0; line < rowCount_; ++line) {
    const std::uint32_t code = sortCode(column, line);
    const TextPool::TextId id = code >> 2;
    if (markOf(code) != textMark || std::exchange(ranks[id], 1U) == 1U) continue;
    texts.emplace_back(lowerCase(pool_.text(id)), id);
  }
  std::ranges::sort(texts);
  std::uint32_t rank = 0;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i > 0 && texts[i].first != texts[i - 1].first) ++rank;
    ranks[texts[i].second] = rank;
  }
  return ranks;
}

/// By line: the lower comes first.
std::vector<std::uint64_t> GridCells::weightsOf(const GridSortKey& key) const {
  const Column& column = at(key.column);
  const Ranks ranks = ranksOf(column);
  const auto weigh = [&](std::uint32_t code) -> std::uint64_t {
    if (code == 0 || code == emptyCode) return 0;
    if (markOf(code) == numberMark) return weightOf(shortNumber(code));
    if (markOf(code) == digitsMark) return weightOf(numberIn(pool_.text(code >> 2)));
    return weightOfRank(ranks[code >> 2]);
  };
  std::vector<std::uint64_t> weights(rowCount_);
  for (std::size_t line = 0; line < rowCount_; ++line) {
    const std::uint64_t weight = weigh(sortCode(column, line));
    weights[line] = key.order == sort_order::descending ? ~weight : weight;
  }
  return weights;
}

int GridCells::sort(std::span<const GridSortKey> keys, int followed) {
  const std::size_t followedLine = followed < 0 ? rowCount_ : lineOf(followed);
  if (order_.empty()) {
    order_.resize(rowCount_);
    std::iota(order_.begin(), order_.end(), 0U);
  }
  for (std::size_t i = keys.size(); i > 0; --i) {
    const std::vector<std::uint64_t> weights = weightsOf(keys[i - 1]);
    std::ranges::stable_sort(order_, {}, [&](std::uint32_t line) { return weights[line]; });
  }
  const auto found = std::ranges::find(order_, followedLine);
  return found == order_.end() ? -1 : static_cast<int>(found - order_.begin());
}

}  // namespace autonotify
