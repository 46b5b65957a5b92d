#pragma once

#include <array>
#include <cstdint>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace autonotify::host {

/// The state of a file that several statements of a connection read, without asking for the file's
/// locks one by one. It is given up as soon as anyone has written, so that each statement still
/// reads what was written last before it began.
class SqliteSnapshot {
 public:
  /// The connection outlives this. A snapshot of any but one to a file with a log (WAL) holds
  /// nothing.
  explicit SqliteSnapshot(sqlite3* connection);
  ~SqliteSnapshot();
  SqliteSnapshot(const SqliteSnapshot&) = delete;
  SqliteSnapshot& operator=(const SqliteSnapshot&) = delete;

  /// A statement begins to read. The first one after a release stands alone.
  void beginReading() noexcept;
  /// Something is about to be written, or nothing is read for a while: a state that is held keeps
  /// the log from beginning anew.
  void release() noexcept;

  /// See Driver. What others do is told of a file with a log, and of a database in memory, which no
  /// one else has.
  std::uint64_t state() noexcept;
  /// So many rows have been changed by a statement of the driver.
  void countOwn(std::int64_t changes) noexcept { ownChanges_ += changes; }

 private:
  /// The head of the index of the log, which every commit changes; it is shared by all who have the
  /// file open. SQLite's description of its file formats tells its layout.
  using LogHead = std::array<std::uint32_t, 12>;
  static const volatile std::uint32_t* findLogHead(sqlite3* connection);
  LogHead logHead() const noexcept;
  bool knowsCommits() noexcept;

  sqlite3* connection_;
  sqlite3_stmt* holder_ = nullptr;
  const volatile std::uint32_t* shared_ = nullptr;
  LogHead seen_{};
  bool isReading_ = false;
  bool isHeld_ = false;

  struct Changes {
    std::int64_t commits = 0;  // of other connections, as the engine numbers them
    std::int64_t besides = 0;  // rows changed by this connection, though not by the driver

    bool operator==(const Changes&) const = default;
  };
  bool isInFile_;
  sqlite3_stmt* askCommits_ = nullptr;
  std::optional<LogHead> commitsHead_;  // when they were asked for
  std::int64_t commits_ = 0;
  std::int64_t ownChanges_ = 0;
  Changes changes_;
  std::uint64_t state_ = 1;
};

}  // namespace autonotify::host
