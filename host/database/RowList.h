#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/database/Session.h"

namespace autonotify::host {

/// The rows of one execution of a statement, in its order, by their number from 0, followed by the
/// rows added through the same recordset, which are numbered from `firstAdded`.
///
/// The statement begins when the first row is asked for and is stepped no further than needed. Of a
/// row that has been passed its keys are kept, and of some rows the values that are likely to be
/// wanted (see Plan::kept). All other values are read again by the keys, so that a row shows what
/// this connection has written since; of a single table in blocks, which grow while row after row
/// is asked for and nothing is written. Rows without keys are kept with their values.
class RowList : private LiveRows {
 public:
  static constexpr std::size_t firstAdded = std::size_t{1} << 40;

  RowList(Session& session, const std::string& sql);
  ~RowList() override;
  RowList(const RowList&) = delete;
  RowList& operator=(const RowList&) = delete;

  const Plan& plan() const { return *plan_; }
  /// Goes to the first row, or remembers it.
  void begin() {
    if (!recallAhead()) beginAlone();
  }
  /// Learns the columns without beginning. Throws as Plan::describe.
  void describe() { plan_->describe(); }

  /// The number of the first row; the result need not be a row.
  std::size_t first() { return has(0) ? 0 : firstAdded; }
  /// Whether there is, or was, a row with this number.
  bool has(std::size_t row) { return row < known_ || hasFurther(row); }
  /// The number behind `row` in the order told above; the result need not be a row.
  std::size_t next(std::size_t row);
  /// Goes through all rows.
  std::size_t count();

  /// False when the row has been deleted. Requires: has(row).
  bool exists(std::size_t row) { return isLive(row) || hold(row); }
  /// The column's value is wanted from now on.
  void ask(int column) { plan_->ask(column); }
  /// Whether the statement is on the row, which is there then, and gives this column of it.
  bool isAtHand(std::size_t row, int column) const { return isLive(row) && rows_->gives(column); }
  /// Requires: isAtHand(row, column).
  Value valueAtHand(int column) const { return rows_->value(column); }
  /// Nothing when the row has been deleted. Requires: has(row).
  std::optional<Value> value(std::size_t row, int column);
  /// The same for a column that was asked for and is not at hand; good until the next call, null
  /// when it is nothing.
  const Value* passedValue(std::size_t row, int column);
  /// The key of the row in plan().tables()[table]. Requires: has(row), and the plan is keyed.
  Id key(std::size_t row, int table) const;

  /// A row that was added to the single table; gives its number.
  std::size_t append(Id key) {
    added_.push_back(key);
    return firstAdded + added_.size() - 1;
  }

 private:
  static constexpr std::size_t bufferLimit = Plan::blockRows;

  void settle(Settle how) override;
  bool hasFurther(std::size_t row);
  bool recall(ReadState now);
  void beginAlone();
  bool recallAhead();
  bool readAhead();
  void holdAll();
  void readAhead(RowsAhead& ahead, Id first, Id ids) const;
  void step();
  void start();
  void forget() noexcept;
  bool isAdded() const;
  Id liveKey(int table) const;
  void leaveRow();
  void narrow();
  void drain(std::size_t valuesToKeep);
  bool isLive(std::size_t row) const { return standsOnRow_ && row + 1 == known_; }
  bool isHeld(std::size_t row) const;
  bool isFresh() const;
  bool hold(std::size_t row);
  std::size_t rowsToRead(std::size_t row) const;
  std::span<const Id> keysFrom(std::size_t row) const;
  std::vector<Value> keysToRead(std::size_t row, std::span<const Id> block) const;
  void readAgain(std::size_t row);
  std::size_t widthOf(const RowStatement& rows) const;
  void appendValues();
  void writeValues(const RowStatement& rows, std::size_t width, Value* values) const;
  void startBuffer(std::size_t row, const RowStatement& rows);

  Session& session_;
  /// Keys are of all tables, row after row, up to the one that the statement is on. The buffer has
  /// of each row the first columns of Plan::kept; rows that are not there have been deleted.
  std::unique_ptr<RowMemory> memory_;
  std::shared_ptr<Plan> plan_;
  std::shared_ptr<RowStatement> rows_;  // once started
  std::vector<Id> added_;
  std::size_t known_ = 0;
  bool started_ = false;
  bool complete_ = false;
  bool standsOnRow_ = false;
  std::uint64_t bufferVersion_ = 0;
  ReadState found_;  // in which the row, or none, can be remembered; `others` is 0 where it cannot
};

}  // namespace autonotify::host
