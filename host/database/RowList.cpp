#include "host/database/RowList.h"

#include <algorithm>
#include <bit>
#include <limits>

#include "host/database/dialect/DatabaseError.h"

namespace autonotify::host {
namespace {

/// At so many rows, and whenever they have doubled, a long walk looks at what it was asked for.
constexpr std::size_t rowsToShowColumns = 64;

}  // namespace

RowList::RowList(Session& session, const std::string& sql)
    : session_(session),
      memory_(session.takeMemory()),
      plan_(session.plan(sql, memory_->parameters)) {}

RowList::~RowList() {
  if (started_ && !complete_) {
    rows_->statement->reset();
    session_.end(*this);
  }
  if (found_.others != 0)
    session_.remember(plan_, std::move(memory_), found_);
  else
    session_.giveBack(std::move(memory_));
}

/// What is found is kept for the next time, where it is a row or none.
void RowList::beginAlone() {
  const ReadState now = plan_->tablesRead().empty() ? ReadState() : session_.readState();
  if (now.others != 0 && (recall(now) || (readAhead() && recallAhead()))) return;
  const bool isWanted = now.others != 0 && session_.isWorthRemembering(*plan_, memory_->parameters);
  if (has(0) && isWanted && plan_->isKeyed()) {
    startBuffer(0, *rows_);
    appendValues();
  }
  if (isWanted && !has(1)) found_ = now;
}

bool RowList::recall(ReadState now) {
  std::unique_ptr<RowMemory> known = session_.recall(*plan_, memory_->parameters, now);
  if (!known) return false;
  memory_.swap(known);
  session_.giveBack(std::move(known));
  found_ = now;
  holdAll();
  return true;
}

/// The rows of the buffer are all there are.
void RowList::holdAll() {
  known_ = memory_->buffer.size();
  bufferVersion_ = session_.version();
  complete_ = true;
}

bool RowList::recallAhead() {
  const LookUp sought = session_.lookUp(plan_, memory_->parameters);
  if (!sought || !sought.ahead->give(sought.id, *memory_)) return false;
  sought.ahead->note(sought.id);
  holdAll();
  return true;
}

bool RowList::readAhead() {
  const LookUp sought = session_.lookUp(plan_, memory_->parameters);
  const Id ids = sought ? sought.ahead->idsToRead(sought.id) : 0;
  if (ids > 0) readAhead(*sought.ahead, static_cast<Id>(sought.id), ids);
  return ids > 0;
}

/// Where other rows than the one that is wanted are many, or something is wrong with them, nothing
/// is read ahead: that one is read alone.
void RowList::readAhead(RowsAhead& ahead, Id first, Id ids) const try {
  constexpr Id mostRows = 4;  // of an id, on the average
  static_assert(RowsAhead::mostIds * mostRows <= Id{Plan::blockRows});
  plan_->describe();
  const RowStatement& rows = plan_->rowsAhead();
  rows.statement->execute({first, first + ids - 1});
  const std::size_t width = widthOf(rows);
  ahead.start(first, ids, width);
  Id left = ids * mostRows;
  for (; left > 0 && rows.statement->step(); --left)
    ahead.put(rows.statement->key(rows.keyPlace(1)), rows.statement->key(rows.keyPlace(0)),
              [&](Value* values) { writeValues(rows, width, values); });
  rows.statement->reset();
  if (left == 0) ahead = {};
} catch (const DatabaseError&) {
  ahead = {};
} catch (...) {
  ahead = {};
  throw;
}

bool RowList::hasFurther(std::size_t row) {
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
  rows_->statement->execute(memory_->parameters);
  plan_->describe();
  if (!plan_->isKeyed()) startBuffer(0, *rows_);
}

// After a failure the whole execution begins anew, so that the caller may try again.
void RowList::forget() noexcept {
  if (started_) rows_->statement->reset();
  session_.end(*this);
  memory_->keys.clear();
  memory_->buffer.start(0, 0);
  known_ = 0;
  started_ = standsOnRow_ = false;
}

void RowList::step() try {
  if (!started_) start();
  if (standsOnRow_) leaveRow();
  if (known_ >= rowsToShowColumns && std::has_single_bit(known_)) narrow();
  const bool hasAll = known_ == 1 && plan_->isOneRow();
  if (hasAll) rows_->statement->reset();
  if (!hasAll && rows_->statement->step()) {
    if (isAdded()) return;
    if (plan_->isKeyed())
      standsOnRow_ = true;
    else
      appendValues();
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
    memory_->keys.push_back(liveKey(static_cast<int>(table)));
  standsOnRow_ = false;
}

/// A walk over a whole table has shown which columns it wants: it goes on with these alone. The
/// rows before are gone through once more, so that this is worth while.
void RowList::narrow() {
  if (!plan_->isWholeTable() || !added_.empty()) return;
  const std::shared_ptr<RowStatement> narrow = plan_->narrowRows();
  if (!narrow || narrow == rows_ || !session_.mayGoOnWith(*narrow)) return;
  DriverStatement& statement = *narrow->statement;
  statement.execute(memory_->parameters);
  std::size_t passed = 0;
  while (passed < known_ && statement.step()) ++passed;
  if (passed == known_ && statement.key(narrow->keyPlace(0)) == memory_->keys.back()) {
    rows_->statement->reset();
    rows_ = narrow;
    session_.goOnWith(*this, *rows_);
  } else {
    statement.reset();
  }
}

void RowList::settle(Settle how) {
  drain(how == Settle::keepValues ? bufferLimit : 0);
}

void RowList::drain(std::size_t valuesToKeep) {
  if (complete_) return;
  if (plan_->isKeyed() && valuesToKeep > 0) {
    if (!standsOnRow_) has(known_);
    if (standsOnRow_) startBuffer(known_ - 1, *rows_);
    for (; standsOnRow_ && memory_->buffer.size() < valuesToKeep; step()) appendValues();
  }
  has(firstAdded - 1);
}

void RowList::startBuffer(std::size_t row, const RowStatement& rows) {
  memory_->buffer.start(row, widthOf(rows));
  bufferVersion_ = session_.version();
}

/// As many of the kept columns as the statement gives.
std::size_t RowList::widthOf(const RowStatement& rows) const {
  const std::vector<int>& kept = plan_->kept();
  const auto isGiven = [&](int column) { return rows.gives(column); };
  return static_cast<std::size_t>(std::ranges::find_if_not(kept, isGiven) - kept.begin());
}

void RowList::appendValues() {
  memory_->buffer.append(
      [&](Value* values) { writeValues(*rows_, memory_->buffer.width(), values); });
}

void RowList::writeValues(const RowStatement& rows, std::size_t width, Value* values) const {
  for (std::size_t i = 0; i < width; ++i) values[i] = rows.value(plan_->kept()[i]);
}

bool RowList::isHeld(std::size_t row) const {
  return memory_->buffer.has(row) && isFresh();
}

bool RowList::isFresh() const {
  return !plan_->isKeyed() || session_.isUnwritten(plan_->tables(), bufferVersion_);
}

Id RowList::key(std::size_t row, int table) const {
  if (row >= firstAdded) return added_[row - firstAdded];
  if (isLive(row)) return liveKey(table);
  return memory_->keys[row * plan_->tables().size() + static_cast<std::size_t>(table)];
}

/// Walks take ever more rows at a time. Where something was written, or another row is wanted, the
/// next ones may not be.
std::size_t RowList::rowsToRead(std::size_t row) const {
  constexpr std::size_t growth = 4;
  const RowBuffer& buffer = memory_->buffer;
  const bool goesOn = !isLive(row) && row == buffer.end() && isFresh();
  if (!goesOn || !plan_->hasBlocks()) return 1;
  const std::size_t rows = std::clamp<std::size_t>(buffer.size() * growth, 1, bufferLimit);
  return std::min(rows, keysFrom(row).size());
}

/// Of a single table, the keys of all rows that follow and have been passed.
std::span<const Id> RowList::keysFrom(std::size_t row) const {
  return row >= firstAdded ? std::span(added_).subspan(row - firstAdded)
                           : std::span(memory_->keys).subspan(row);
}

void RowList::readAgain(std::size_t row) try {
  const std::size_t count = rowsToRead(row);
  const RowStatement& rows = count == 1 ? plan_->rowByKeys() : plan_->blockByKeys();
  const std::span<const Id> wanted =
      count == 1 ? std::span<const Id>() : keysFrom(row).first(count);
  rows.statement->execute(keysToRead(row, wanted));
  startBuffer(row, rows);
  memory_->buffer.add(count);
  for (std::size_t left = count; left > 0 && rows.statement->step(); --left) {
    const auto place =
        std::find(wanted.begin(), wanted.end(), rows.statement->key(rows.keyPlace(0)));
    memory_->buffer.put(row + static_cast<std::size_t>(place - wanted.begin()),
                        [&](Value* values) { writeValues(rows, memory_->buffer.width(), values); });
  }
  rows.statement->reset();
} catch (...) {
  memory_->buffer.start(row, 0);
  found_ = {};
  throw;
}

/// The keys of one row, or those of a block.
std::vector<Value> RowList::keysToRead(std::size_t row, std::span<const Id> block) const {
  std::vector<Value> keys(block.begin(), block.end());
  if (!block.empty()) keys.resize(Plan::blockRows, block.back());
  if (block.empty())
    for (std::size_t table = 0; table < plan_->tables().size(); ++table)
      keys.emplace_back(key(row, static_cast<int>(table)));
  return keys;
}

/// Sees to it that the values kept of the row are in the buffer. False when it has been deleted.
bool RowList::hold(std::size_t row) {
  if (!isHeld(row)) readAgain(row);
  return memory_->buffer.isThere(row);
}

std::optional<Value> RowList::value(std::size_t row, int column) {
  ask(column);
  if (isAtHand(row, column)) return valueAtHand(column);
  const Value* const value = passedValue(row, column);
  return value ? std::optional(*value) : std::nullopt;
}

const Value* RowList::passedValue(std::size_t row, int column) {
  const PlanColumn& asked = plan_->columns()[static_cast<std::size_t>(column)];
  if (asked.keptAt < 0) plan_->keep(column);
  const auto place = static_cast<std::size_t>(asked.keptAt);
  if (!hold(row)) return nullptr;
  const RowBuffer& buffer = memory_->buffer;
  if (buffer.width() > place) return &buffer.value(row, place);
  readAgain(row);
  return buffer.isThere(row) ? &buffer.value(row, place) : nullptr;
}

}  // namespace autonotify::host
