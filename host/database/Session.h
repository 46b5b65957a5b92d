#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/database/Driver.h"
#include "host/database/LruCache.h"
#include "host/database/Plan.h"

namespace autonotify::host {

/// How a recordset whose statement is under way is brought to rest.
enum class Settle {
  keepValues,  ///< the next rows are wanted soon
  keysOnly,    ///< their values are about to change
};

/// A reader whose statement is under way.
class LiveRows {
 public:
  virtual ~LiveRows() = default;
  /// Steps through the rest, so that the statement ends and the rows no longer depend on it.
  virtual void settle(Settle how) = 0;
};

/// What the recordsets of one connection share: the driver, statements kept by their text, and what
/// has been written.
///
/// At most one statement is under way at a time. It is settled before anything is written and
/// before the next one begins: rows are never read from a statement that sees later writes, and no
/// connection reads an old state for ever because a handle was left open.
class Session {
 public:
  explicit Session(Driver& driver)
      : driver_(driver),
        plans_(planCapacity),
        plansBySkeleton_(planCapacity),
        inserts_(planCapacity) {}

  /// Translates and plans. `parameters` receives the statement's literals.
  std::shared_ptr<Plan> plan(const std::string& sql, std::vector<Value>& parameters);

  /// `rows` begins its statement now; another one under way is settled first.
  void begin(LiveRows& rows);
  /// The statement of `rows`, if it is the one under way, has ended.
  void end(const LiveRows& rows) noexcept {
    if (live_ == &rows) live_ = nullptr;
  }

  /// Rises with each write of this connection.
  std::uint64_t version() const { return version_; }
  /// The version of the last write to the table.
  std::uint64_t versionOf(const TableDef* table) const;

  Id reserveKey(const TableDef& table);
  void takeKey(const TableDef& table, Id key);
  // Each writes one row and is durable on return. False when there is no such row.
  bool updateField(const TableDef& table, const ColumnDef& column, Id key, const Value& value);
  bool deleteRow(const TableDef& table, Id key);
  /// One value for each of the columns.
  void insertRow(const TableDef& table, const std::vector<const ColumnDef*>& columns,
                 const std::vector<Value>& values);

  /// Forgets all statements; no recordset may be left.
  void clear();

 private:
  static constexpr std::size_t planCapacity = 256;
  using Statement = std::shared_ptr<DriverStatement>;

  void beforeWrite();
  int write(const TableDef& table, DriverStatement& statement, const std::vector<Value>& values);

  Driver& driver_;
  LruCache<std::shared_ptr<Plan>> plans_;  // by translation
  // The same by the text before translation, where that says all. Most statements come again with
  // other ids, and are found here without being translated.
  LruCache<std::shared_ptr<Plan>> plansBySkeleton_;
  std::string skeleton_;  // kept for its room
  LruCache<Statement> inserts_;
  std::unordered_map<const ColumnDef*, Statement> updates_;
  std::unordered_map<const TableDef*, Statement> deletes_;
  std::unordered_map<const TableDef*, std::uint64_t> written_;
  std::uint64_t version_ = 0;
  LiveRows* live_ = nullptr;
};

}  // namespace autonotify::host
