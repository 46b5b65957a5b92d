#include "host/database/RowList.h"

#include <algorithm>
#include <limits>

namespace autonotify::host {

RowList::RowList(Session& session, Statement statement)
    : session_(session),
      plan_(std::move(statement.plan)),
      parameters_(std::move(statement.parameters)) {}

RowList::~RowList() {
  if (!started_ || complete_) return;
  rows_->statement->reset();
  session_.end(*this);
}

bool RowList::has(std::size_t row) {
  if (row >= firstAdded) return row - firstAdded < added_.size();
  while (known_ <= row && !complete_) step();
  return row < known_;
}

std::size_t RowList::next(std::size_t row) {
  return row + 1 < firstAdded && !has(row + 1) ? firstAdded : row + 1;
}

std::size_t RowList::count() {
  drain(bufferLimit);
  return known_ + added_.size();
}

void RowList::start() {
  rows_ = plan_->rows();
  session_.begin(*this, *rows_);
  started_ = true;
  rows_->statement->execute(*parameters_);
  plan_->describe();
}

// After a failure the whole execution begins anew, so that the caller may try again.
void RowList::forget() noexcept {
  if (started_) rows_->statement->reset();
  session_.end(*this);
  keys_.clear();
  buffer_.clear();
  known_ = 0;
  started_ = standsOnRow_ = false;
}

void RowList::step() try {
  if (!started_) start();
  if (standsOnRow_) leaveRow();
  const bool hasAll = known_ == 1 && plan_->isOneRow();
  if (hasAll) rows_->statement->reset();
  if (!hasAll && rows_->statement->step()) {
    if (isAdded()) return;
    if (plan_->isKeyed())
      standsOnRow_ = true;
    else
      buffer_.push_back(valuesOf(*rows_));
    ++known_;
  } else {
    complete_ = true;
    session_.end(*this);
  }
} catch (...) {
  forget();
  throw;
}

/// A row added before the statement began is told behind all others, where it was put.
bool RowList::isAdded() const {
  return !added_.empty() && std::find(added_.begin(), added_.end(), liveKey(0)) != added_.end();
}

Id RowList::liveKey(int table) const {
  return rows_->statement->key(rows_->keyPlace(table));
}

void RowList::leaveRow() {
  for (std::size_t table = 0; table < plan_->tables().size(); ++table)
    keys_.push_back(liveKey(static_cast<int>(table)));
  standsOnRow_ = false;
}

void RowList::settle(Settle how) {
  drain(how == Settle::keepValues ? bufferLimit : 0);
}

void RowList::drain(std::size_t valuesToKeep) {
  if (complete_) return;
  if (plan_->isKeyed() && valuesToKeep > 0) {
    if (!standsOnRow_) has(known_);
    if (standsOnRow_) startBuffer(known_ - 1);
    for (; standsOnRow_ && buffer_.size() < valuesToKeep; step())
      buffer_.push_back(valuesOf(*rows_));
  }
  has(firstAdded - 1);
}

void RowList::startBuffer(std::size_t row) {
  buffer_.clear();
  bufferFirst_ = row;
  bufferVersion_ = session_.version();
}

RowList::Values RowList::valuesOf(const RowStatement& rows) const {
  Values values;
  values.reserve(plan_->kept().size());
  for (const int column : plan_->kept()) {
    const int place = rows.place(column);
    if (place < 0) break;
    values.push_back(
        rows.statement->value(place, plan_->columns()[static_cast<std::size_t>(column)].origin));
  }
  return values;
}

bool RowList::isHeld(std::size_t row) const {
  return row >= bufferFirst_ && row - bufferFirst_ < buffer_.size() && isFresh();
}

bool RowList::isFresh() const {
  if (!plan_->isKeyed() || bufferVersion_ == session_.version()) return true;
  return std::all_of(plan_->tables().begin(), plan_->tables().end(), [&](const TableDef* table) {
    return session_.versionOf(table) <= bufferVersion_;
  });
}

Id RowList::key(std::size_t row, int table) const {
  if (row >= firstAdded) return added_[row - firstAdded];
  if (isLive(row)) return liveKey(table);
  return keys_[row * plan_->tables().size() + static_cast<std::size_t>(table)];
}

/// Walks take ever more rows at a time. Where something was written, or another row is wanted, the
/// next ones may not be.
std::size_t RowList::rowsToRead(std::size_t row) const {
  constexpr std::size_t growth = 4;
  const bool goesOn = !isLive(row) && row == bufferFirst_ + buffer_.size() && isFresh();
  if (!goesOn || !plan_->hasBlocks()) return 1;
  const std::size_t rows = std::clamp<std::size_t>(buffer_.size() * growth, 1, bufferLimit);
  return std::min(rows, keysFrom(row).size());
}

/// Of a single table, the keys of all rows that follow and have been passed.
std::span<const Id> RowList::keysFrom(std::size_t row) const {
  return row >= firstAdded ? std::span(added_).subspan(row - firstAdded)
                           : std::span(keys_).subspan(row);
}

void RowList::readAgain(std::size_t row) {
  std::vector<std::optional<Values>> block(rowsToRead(row));
  const bool isOne = block.size() == 1;
  const std::span<const Id> wanted =
      isOne ? std::span<const Id>() : keysFrom(row).first(block.size());
  std::vector<Value> keys(wanted.begin(), wanted.end());
  if (isOne) {
    for (std::size_t table = 0; table < plan_->tables().size(); ++table)
      keys.emplace_back(key(row, static_cast<int>(table)));
  } else {
    keys.resize(Plan::blockRows, wanted.back());
  }
  const RowStatement& rows = isOne ? plan_->rowByKeys() : plan_->blockByKeys();
  rows.statement->execute(keys);
  for (std::size_t left = block.size(); left > 0 && rows.statement->step(); --left) {
    const auto place =
        std::find(wanted.begin(), wanted.end(), rows.statement->key(rows.keyPlace(0)));
    block[static_cast<std::size_t>(place - wanted.begin())] = valuesOf(rows);
  }
  rows.statement->reset();
  startBuffer(row);
  buffer_ = std::move(block);
}

const RowList::Values* RowList::held(std::size_t row) {
  if (!isHeld(row)) readAgain(row);
  const std::optional<Values>& values = buffer_[row - bufferFirst_];
  return values ? &*values : nullptr;
}

std::optional<Value> RowList::value(std::size_t row, int column) {
  const PlanColumn& described = plan_->columns()[static_cast<std::size_t>(column)];
  plan_->ask(column);
  if (isLive(row) && rows_->place(column) >= 0)
    return rows_->statement->value(rows_->place(column), described.origin);
  plan_->keep(column);
  const auto place = static_cast<std::size_t>(described.keptAt);
  const Values* values = held(row);
  if (values && values->size() <= place) {
    readAgain(row);
    values = held(row);
  }
  return values ? std::optional((*values)[place]) : std::nullopt;
}

}  // namespace autonotify::host
