#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/clients/ClientDirectory.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/dialogs/TerminalErrorClass.h"
#include "host/dialogs/TerminalMsgbox.h"
#include "host/services/ClassRegistry.h"
#include "host/services/HeadlessFormHost.h"
#include "host/services/HostLocale.h"
#include "host/services/HostWorkingFolder.h"
#include "platform/Clock.h"
#include "platform/Value.h"

struct sqlite3;

namespace autonotify::bench {

class Replay;

/// The day on which all benchmarks happen.
class BenchClock : public Clock {
 public:
  DateTime now() override { return DateTime::of(2026, 4, 15, 9, 30); }
};

/// A host as a program would set it up, on a firm's database, for the logic that is linked in.
class FirmHost {
 public:
  explicit FirmHost(std::unique_ptr<host::RecordsetDatabase> database);
  ~FirmHost();
  FirmHost(const FirmHost&) = delete;
  FirmHost& operator=(const FirmHost&) = delete;

  /// From here on the logic works for this firm. Forgets the errors noted before.
  void attach();
  /// Throws std::logic_error when the logic met an error since the last attach: a benchmark of
  /// something that fails would measure the wrong thing.
  void requireNoErrors() const;

  clientDropDownCtrlReference& clients() { return clients_; }

 private:
  std::unique_ptr<host::RecordsetDatabase> database_;
  host::ClientDirectory clients_;
  host::TerminalErrorClass errors_;
  host::TerminalMsgbox messages_;
  host::HostLocale locale_;
  host::HostWorkingFolder workingFolder_;
  host::HeadlessFormHost forms_;
  host::ClassRegistry registry_;
  BenchClock clock_;
};

/// A firm in SQLite.
class Firm : public FirmHost {
 public:
  explicit Firm(std::unique_ptr<host::SqliteDatabase> database);
  ~Firm();

  host::SqliteDatabase& database() { return database_; }
  /// The same connection, for statements beside the logic. No recordset may be open meanwhile.
  sqlite3* connection();
  std::vector<Id> ids(const std::string& select);
  /// Up to 1,000 schedule entries that have a task and a client, spread over the firm.
  const std::vector<Id>& entries();
  /// The replay of this name on the same connection. `record` fills it when it is first asked for,
  /// so that no turn waits for a recording.
  Replay& replay(const std::string& name, const std::function<void(Replay&)>& record);

 private:
  Firm(host::SqliteDatabase& kept, std::unique_ptr<host::SqliteDatabase>&& database);

  host::SqliteDatabase& database_;
  std::vector<Id> entries_;
  std::map<std::string, Replay> replays_;
};

/// A connection to a fresh copy of the firm.
SQLite::Database copyInMemory(Firm& firm);

/// The firms of one run, each made when first asked for.
class Firms {
 public:
  /// Database files are made in `folder`; those of an earlier run are replaced, but for the firm of
  /// many years.
  explicit Firms(std::filesystem::path folder);

  /// 200 companies and 300 people, three years of entries.
  Firm& inMemory();
  /// The same in memory, with 250 kinds of entries.
  Firm& ofManyKinds();
  /// The same in a file, with the settings that every program uses.
  Firm& onDisk();
  /// The same in memory with 100,000 notifications of years past.
  Firm& ofManyNotifications();
  /// The same in a file with 1,000,000 notifications of years past. What measures it adds no row.
  Firm& ofManyYears();
  /// More than 10,000 open tasks, in a file.
  Firm& ofManyTasks();
  /// A connection to a fresh copy of the firm in memory.
  SQLite::Database copyInMemory() { return bench::copyInMemory(onDisk()); }
  /// The same in a file of this name.
  std::unique_ptr<host::SqliteDatabase> copyOnDisk(const std::string& name);

  /// Where the firm of many years is kept for other programs and runs.
  std::filesystem::path fileOfManyYears() const { return folder_ / "million.db"; }

 private:
  std::filesystem::path folder_;
  std::unique_ptr<Firm> inMemory_;
  std::unique_ptr<Firm> ofManyKinds_;
  std::unique_ptr<Firm> onDisk_;
  std::unique_ptr<Firm> ofManyNotifications_;
  std::unique_ptr<Firm> ofManyYears_;
  std::unique_ptr<Firm> ofManyTasks_;
};

}  // namespace autonotify::bench
