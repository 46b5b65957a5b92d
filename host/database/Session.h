#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/database/Driver.h"
#include "host/database/LruCache.h"
#include "host/database/Plan.h"
#include "host/database/RememberedRows.h"
#include "host/database/RowsAhead.h"
#include "host/database/dialect/Tokenizer.h"

namespace autonotify::host {

/// How a recordset whose statement is under way is brought to rest.
enum class Settle {
  keepValues,  ///< the next rows are wanted soon
  keysOnly,    ///< their values are about to change
};

/// Where a look-up of a walk finds its row and the next ones, and the id that it looks up.
struct LookUp {
  RowsAhead* ahead = nullptr;
  std::int64_t id = 0;

  explicit operator bool() const { return ahead != nullptr; }
};

/// A reader whose statement is under way.
class LiveRows {
 public:
  virtual ~LiveRows() = default;
  /// Steps through the rest, so that the statement ends and the rows no longer depend on it.
  virtual void settle(Settle how) = 0;
};

/// What the recordsets of one connection share: the driver, statements kept by their text, what has
/// been written, and memory.
///
/// A statement that is under way is settled before anything is written and before the next one
/// begins: rows are never read from a statement that sees later writes, and no connection reads an
/// old state for ever because a handle was left open. While it reads side by side, statements of
/// different texts are under way together; an engine may show all of them what the first one saw.
class Session {
 public:
  explicit Session(Driver& driver)
      : driver_(driver),
        plans_(planCapacity),
        plansBySkeleton_(planCapacity),
        inserts_(planCapacity) {}

  /// The plan of a statement; the values of its literals go to `parameters`, which is empty.
  std::shared_ptr<Plan> plan(const std::string& sql, std::vector<Value>& parameters);

  /// Statements that begin from now on do not settle each other, or do so again.
  void readSideBySide(bool sideBySide) noexcept {
    isSideBySide_ = sideBySide;
    readAnew();
  }
  /// The next statement settles what is under way all the same.
  void readAnew() noexcept { mayStay_ = false; }

  /// `rows` executes `statement` now; what may not be under way beside it is settled first.
  void begin(LiveRows& rows, const RowStatement& statement);
  /// Whether the statement may be executed now to go on with a walk that is under way: it is not
  /// under way itself, and reads the same state.
  bool mayGoOnWith(const RowStatement& statement) const {
    return driver_.sharesState() &&
           std::ranges::find(live_, &statement, &Live::statement) == live_.end();
  }
  /// `rows`, which is under way, does so.
  void goOnWith(const LiveRows& rows, const RowStatement& statement) {
    std::ranges::find(live_, &rows, &Live::rows)->statement = &statement;
  }
  /// No recordset is left.
  void rest() noexcept { driver_.rest(); }
  /// The statement of `rows` has ended, if it was under way.
  void end(const LiveRows& rows) noexcept {
    std::erase_if(live_, [&](const Live& each) { return each.rows == &rows; });
    if (live_.empty()) endWalk();
  }

  /// What a statement that begins now reads.
  ReadState readState();
  /// What the plan gave for the same parameters and would give in this state; null where that is
  /// not known.
  std::unique_ptr<RowMemory> recall(const Plan& plan, const std::vector<Value>& parameters,
                                    ReadState now);
  /// Whether the plan's rows are likely to be wanted again.
  bool isWorthRemembering(const Plan& plan, const std::vector<Value>& parameters) noexcept {
    return isWalking() || remembered_.isAskedAgain(plan, parameters);
  }
  /// The row that the plan gave in this state, or none.
  void remember(const std::shared_ptr<Plan>& plan, std::unique_ptr<RowMemory> memory,
                ReadState state) noexcept;
  /// The look-up of a walk that the plan is with these parameters; false outside of one, and where
  /// too many plans are looked up.
  LookUp lookUp(const std::shared_ptr<Plan>& plan, const std::vector<Value>& parameters) noexcept {
    if (!isWalking() || !plan->isLookUp()) return {};
    const auto* const id = parameters.front().getIf<std::int64_t>();
    return id ? LookUp{ahead_.ahead(plan), *id} : LookUp{};
  }

  /// Rises with each write of this connection.
  std::uint64_t version() const { return version_; }
  /// The version of the last write to the table.
  std::uint64_t versionOf(const TableDef* table) const;
  /// Whether this connection has written none of the tables since that version.
  bool isUnwritten(const std::vector<const TableDef*>& tables, std::uint64_t since) const;

  /// See RecordsetDatabase.
  void writeTogether(const std::function<void()>& write);
  Id reserveKey(const TableDef& table);
  void takeKey(const TableDef& table, Id key);
  // Each writes one row and is durable on return. False when there is no such row.
  bool updateField(const TableDef& table, const ColumnDef& column, Id key, Value value);
  bool deleteRow(const TableDef& table, Id key);
  /// One value for each of the columns.
  void insertRow(const TableDef& table, std::span<const ColumnDef* const> columns,
                 const std::vector<Value>& values);

  /// Memory that holds nothing.
  std::unique_ptr<RowMemory> takeMemory() { return memories_.take(); }
  void giveBack(std::unique_ptr<RowMemory> memory) noexcept {
    memories_.giveBack(std::move(memory));
  }

  /// Forgets all statements; no recordset may be left.
  void clear();

 private:
  static constexpr std::size_t planCapacity = 256;
  using Prepared = std::shared_ptr<DriverStatement>;

  /// A statement that came before, with its text around its last literal (see lastLiteral).
  struct Recent {
    std::string before;
    std::string behind;
    std::shared_ptr<Plan> plan;
    std::vector<Value> parameters;  // but for that of the last literal
  };
  struct Planned {
    std::shared_ptr<Plan> plan;
    bool literalsAreParameters;
  };

  struct Live {
    LiveRows* rows;
    const RowStatement* statement;
  };

  /// What comes next in the same place is compared with this one.
  std::shared_ptr<Plan> planAnew(const std::string& sql, const std::optional<Token>& literal,
                                 std::vector<Value>& parameters, Recent& recent);
  Planned planOf(const std::string& sql, std::vector<Value>& parameters);
  Prepared prepareInsert(const TableDef& table, std::span<const ColumnDef* const> columns);
  void settleAll(Settle how);
  int write(const TableDef& table, DriverStatement& statement, const std::vector<Value>& values);
  /// All that is read side by side shows one state: a statement has been under way all the time,
  /// and nothing has been written.
  bool isWalking() const { return mayStay_ && !live_.empty(); }
  void endWalk() noexcept {
    ++walk_;
    ahead_.clear();
  }

  Driver& driver_;
  // By the text before the last literal: most statements come again with another id.
  std::array<Recent, 512> recent_;
  LruCache<std::shared_ptr<Plan>> plans_;  // by translation
  // The same by the text before translation, where that says all.
  LruCache<std::shared_ptr<Plan>> plansBySkeleton_;
  std::string skeleton_;        // kept for its room
  LruCache<Prepared> inserts_;  // by the places of their columns in memory
  std::unordered_map<const ColumnDef*, Prepared> updates_;
  std::unordered_map<const TableDef*, Prepared> deletes_;
  std::unordered_map<const TableDef*, std::uint64_t> written_;
  std::uint64_t version_ = 0;
  std::vector<Live> live_;
  SpareRowMemory memories_;
  RememberedRows remembered_;
  RowsAheadOfPlans ahead_;  // since the walk began
  std::uint64_t walk_ = 0;
  bool isSideBySide_ = false;
  bool mayStay_ = false;  // what is under way, when the next statement begins
};

}  // namespace autonotify::host
