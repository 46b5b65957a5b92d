#pragma once

#include "host/clients/ClientDirectory.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/services/ClassRegistry.h"
#include "host/services/HostLocale.h"
#include "host/services/HostWorkingFolder.h"
#include "support/HeadlessPerson.h"
#include "support/NotedEmail.h"
#include "support/document_files.h"
#include "support/fixed_clock.h"
#include "support/host_wrappers.h"
#include "support/scripted_error_class.h"
#include "support/table_rows.h"

namespace autonotify::test {

/// A locale with a window that is active.
class TestLocale : public host::HostLocale {
 public:
  using HostLocale::HostLocale;
  HostObject* getActiveWindow() override { return &window_; }

 private:
  HostObject window_;
};

/// Fills the tables of a new host, always alike.
using FillRows = void (*)(TableRows);

/// A complete host on an empty database in memory: the real services behind wrappers that count,
/// record and fail the calls of the component, a person before its windows and messages, and an
/// email program. Host services among themselves do not pass the wrappers.
class TestHost {
 public:
  /// Starts with the rows that `fill` adds, without it with empty tables.
  explicit TestHost(FillRows fill = nullptr);
  virtual ~TestHost() = default;
  TestHost(const TestHost&) = delete;
  TestHost& operator=(const TestHost&) = delete;

  /// All rows of the tables that the component writes.
  std::string dumpWritten();
  std::string dump(const std::string& sql);
  /// Of a table, or of those of its rows WHERE something holds.
  int rowCount(const std::string& from);
  int notificationCount() { return rowCount("ClientNotification"); }
  /// These columns of a notification, nothing where there is none.
  std::string notification(Id row, const std::string& columns);

  HostCalls calls;
  ScriptedErrorClass errors;
  FixedClock clock;
  TestLocale plainLocale;
  HeadlessPerson screen{calls, plainLocale.getActiveWindow()};
  NotedEmail::Notes mailProgram;
  TemporaryFolder documents;
  host::HostWorkingFolder plainWorkingFolder{documents / "temporary"};
  host::ClassRegistry registry;
  std::unique_ptr<host::SqliteDatabase> plainDatabase;
  host::ClientDirectory plainClients;

  CountedDatabase database;
  CountedClients clients;
  CountedLocale locale;
  CountedWorkingFolder workingFolder{plainWorkingFolder, calls};

  PlatformServices platform() { return {&registry, &clock, &screen}; }
};

/// A host that lends itself to the logic that is linked into the test while it lives.
class AttachedHost : public TestHost {
 public:
  explicit AttachedHost(FillRows fill = nullptr);
  ~AttachedHost() override { references() = References{}; }
};

}  // namespace autonotify::test
