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

}  // namespace

SqliteSnapshot::SqliteSnapshot(sqlite3* connection) : connection_(connection) {
  if (!keepsLog(connection)) return;
  constexpr const char* anyRow = "SELECT rowid FROM sqlite_schema";
  if (sqlite3_prepare_v3(connection, anyRow, -1, SQLITE_PREPARE_PERSISTENT, &holder_, nullptr) !=
      SQLITE_OK)
    return;
  // Only who reads has the index at hand.
  if (sqlite3_step(holder_) == SQLITE_ROW) shared_ = findLogHead(connection);
  sqlite3_reset(holder_);
}

SqliteSnapshot::~SqliteSnapshot() {
  sqlite3_finalize(holder_);
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

}  // namespace autonotify::host
