#include "host/database/RowList.h"

#include <algorithm>
#include <limits>

namespace autonotify::host {

RowList::RowList(Session& session, std::shared_ptr<Plan> plan, std::vector<Value> parameters)
    : session_(session), plan_(std::move(plan)), parameters_(std::move(parameters)) {}

RowList::~RowList() {
  if (!started_ || complete_) return;
  plan_->rows().reset();
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
  session_.begin(*this);
  started_ = true;
  plan_->rows().execute(parameters_);
  plan_->describe();
}

// After a failure the whole execution begins anew, so that the caller may try again.
void RowList::forget() noexcept {
  plan_->rows().reset();
  session_.end(*this);
  keys_.clear();
  buffer_.clear();
  known_ = 0;
  started_ = standsOnRow_ = false;
}

void RowList::step() try {
  if (!started_) start();
  if (standsOnRow_) leaveRow();
  DriverStatement& statement = plan_->rows();
  if (statement.step()) {
    if (isAdded(statement)) return;
    if (plan_->isKeyed())
      standsOnRow_ = true;
    else
      buffer_.push_back(valuesOf(statement));
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
bool RowList::isAdded(DriverStatement& statement) const {
  return !added_.empty() && std::find(added_.begin(), added_.end(),
                                      statement.key(plan_->keyColumn(0))) != added_.end();
}

void RowList::leaveRow() {
  for (std::size_t table = 0; table < plan_->tables().size(); ++table)
    keys_.push_back(plan_->rows().key(plan_->keyColumn(static_cast<int>(table))));
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
      buffer_.push_back(valuesOf(plan_->rows()));
  }
  has(firstAdded - 1);
}

void RowList::startBuffer(std::size_t row) {
  buffer_.clear();
  bufferFirst_ = row;
  bufferVersion_ = session_.version();
}

RowList::Values RowList::valuesOf(DriverStatement& statement) const {
  Values values;
  values.reserve(plan_->kept().size());
  for (const int column : plan_->kept())
    values.push_back(
        statement.value(column, plan_->columns()[static_cast<std::size_t>(column)].origin));
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
  if (isLive(row)) return plan_->rows().key(plan_->keyColumn(table));
  return keys_[row * plan_->tables().size() + static_cast<std::size_t>(table)];
}

bool RowList::readAgain(std::size_t row) {
  std::vector<Value> keys;
  for (std::size_t table = 0; table < plan_->tables().size(); ++table)
    keys.emplace_back(key(row, static_cast<int>(table)));
  DriverStatement& statement = plan_->rowByKeys();
  statement.execute(keys);
  const bool found = statement.step();
  startBuffer(row);
  if (found) buffer_.push_back(valuesOf(statement));
  statement.reset();
  return found;
}

std::optional<Value> RowList::value(std::size_t row, int column) {
  const PlanColumn& described = plan_->columns()[static_cast<std::size_t>(column)];
  if (isLive(row)) return plan_->rows().value(column, described.origin);
  const auto isKept = [&] {
    return described.keptAt >= 0 &&
           static_cast<std::size_t>(described.keptAt) < buffer_[row - bufferFirst_].size();
  };
  if (!isHeld(row) || !isKept()) {
    plan_->keep(column);
    if (!readAgain(row)) return std::nullopt;
  }
  return buffer_[row - bufferFirst_][static_cast<std::size_t>(described.keptAt)];
}

}  // namespace autonotify::host
