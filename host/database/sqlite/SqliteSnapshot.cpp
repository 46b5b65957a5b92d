#include "host/database/sqlite/SqliteSnapshot.h"

#include <sqlite3.h>

#include <atomic>
#include <string_view>

namespace autonotify::host {
namespace {

/// In bytes, as the file systems of the engine share it.
constexpr int logIndexBlock = 32768;

bool keepsLog(sqlite3* connection) {
  sqlite3_stmt* mode = nullptr;
  if (sqlite3_prepare_v2(connection, "PRAGMA journal_mode", -1, &mode, nullptr) != SQLITE_OK)
    return false;
  const bool isTold = sqlite3_step(mode) == SQLITE_ROW;
  const auto* text = isTold ? reinterpret_cast<const char*>(sqlite3_column_text(mode, 0)) : nullptr;
  const bool isLog = text && std::string_view(text) == "wal";
  sqlite3_finalize(mode);
  return isLog;
}

/// Null where the engine does not accept it.
sqlite3_stmt* prepareToKeep(sqlite3* connection, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v3(connection, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  return statement;
}

}  // namespace

SqliteSnapshot::SqliteSnapshot(sqlite3* connection)
    : connection_(connection), isInFile_(*sqlite3_db_filename(connection, "main") != 0) {
  if (!keepsLog(connection)) return;
  holder_ = prepareToKeep(connection, "SELECT rowid FROM sqlite_schema");
  askCommits_ = prepareToKeep(connection, "PRAGMA data_version");
  if (!holder_ || !askCommits_) return;
  // Only who reads has the index at hand.
  if (sqlite3_step(holder_) == SQLITE_ROW) shared_ = findLogHead(connection);
  sqlite3_reset(holder_);
}

SqliteSnapshot::~SqliteSnapshot() {
  sqlite3_finalize(holder_);
  sqlite3_finalize(askCommits_);
}

const volatile std::uint32_t* SqliteSnapshot::findLogHead(sqlite3* connection) {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  const sqlite3_io_methods* methods = file ? file->pMethods : nullptr;
  if (!methods || methods->iVersion < 2 || !methods->xShmMap) return nullptr;
  volatile void* block = nullptr;
  if (methods->xShmMap(file, 0, logIndexBlock, 0, &block) != SQLITE_OK) return nullptr;
  return static_cast<volatile std::uint32_t*>(block);
}

SqliteSnapshot::LogHead SqliteSnapshot::logHead() const noexcept {
  LogHead head;
  for (std::size_t i = 0; i < head.size(); ++i) head[i] = shared_[i];
  std::atomic_thread_fence(std::memory_order_acquire);
  return head;
}

void SqliteSnapshot::beginReading() noexcept {
  if (!shared_ || (isHeld_ && seen_ == logHead())) return;
  const bool isFirst = !isReading_;
  release();
  isReading_ = true;
  // A statement under way keeps the state that it reads, whatever was written since.
  if (isFirst || sqlite3_txn_state(connection_, "main") != SQLITE_TXN_NONE) return;
  // Looked at before: who writes in between makes this state an old one.
  seen_ = logHead();
  isHeld_ = sqlite3_step(holder_) == SQLITE_ROW;
  if (!isHeld_) sqlite3_reset(holder_);
}

void SqliteSnapshot::release() noexcept {
  if (isHeld_) sqlite3_reset(holder_);
  isHeld_ = isReading_ = false;
}

std::uint64_t SqliteSnapshot::state() noexcept {
  // What is written in a transaction may still be undone.
  const bool isSettled = sqlite3_get_autocommit(connection_) != 0;
  if (!isSettled || (isInFile_ && !knowsCommits())) return 0;
  const Changes now{commits_, sqlite3_total_changes64(connection_) - ownChanges_};
  if (now != changes_) ++state_;
  changes_ = now;
  return state_;
}

/// While the log's head is the same no one has committed. While a statement reads an older state
/// the engine tells of that one.
bool SqliteSnapshot::knowsCommits() noexcept {
  if (!shared_) return false;
  const LogHead head = logHead();
  if (head == commitsHead_) return true;
  const bool isNew =
      sqlite3_txn_state(connection_, "main") == SQLITE_TXN_NONE || (isHeld_ && seen_ == head);
  const bool isTold = isNew && sqlite3_step(askCommits_) == SQLITE_ROW;
  if (isTold) {
    commits_ = sqlite3_column_int64(askCommits_, 0);
    commitsHead_ = head;
  }
  if (isNew) sqlite3_reset(askCommits_);
  return isTold;
}

}  // namespace autonotify::host
