#pragma once

#include <array>
#include <cstdint>

struct sqlite3;
struct sqlite3_stmt;

namespace autonotify::host {

/// The state of a file that several statements of a connection read, without asking for the file's
/// locks one by one. It is given up as soon as anyone has written, so that each statement still
/// reads what was written last before it began.
class SqliteSnapshot {
 public:
  /// The connection is one to a file with a log (WAL), and outlives this; a snapshot of any other
  /// does nothing.
  explicit SqliteSnapshot(sqlite3* connection);
  ~SqliteSnapshot();
  SqliteSnapshot(const SqliteSnapshot&) = delete;
  SqliteSnapshot& operator=(const SqliteSnapshot&) = delete;

  /// A statement begins to read. The first one after a release stands alone.
  void beginReading() noexcept;
  /// Something is about to be written, or nothing is read for a while: a state that is held keeps
  /// the log from beginning anew.
  void release() noexcept;

 private:
  /// The head of the index of the log, which every commit changes; it is shared by all who have the
  /// file open. SQLite's description of its file formats tells its layout.
  using LogHead = std::array<std::uint32_t, 12>;
  static const volatile std::uint32_t* findLogHead(sqlite3* connection);
  LogHead logHead() const noexcept;

  sqlite3* connection_;
  sqlite3_stmt* holder_ = nullptr;
  const volatile std::uint32_t* shared_ = nullptr;
  LogHead seen_{};
  bool isReading_ = false;
  bool isHeld_ = false;
};

}  // namespace autonotify::host
