#pragma once

#include <memory>
#include <string>

#include "contract/PlatformServices.h"
#include "host/clients/ClientDirectory.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/services/ClassRegistry.h"
#include "host/services/HostLocale.h"
#include "host/services/HostWorkingFolder.h"
#include "support/HeadlessPerson.h"
#include "support/NotedEmail.h"
#include "support/fixed_clock.h"
#include "support/host_calls.h"
#include "support/host_wrappers.h"
#include "support/scripted_error_class.h"

namespace autonotify::test {

/// A locale with a window that is active.
class TestLocale : public host::HostLocale {
 public:
  using HostLocale::HostLocale;
  HostObject* getActiveWindow() override { return &window_; }

 private:
  HostObject window_;
};

/// A complete host on an empty database in memory: the real services behind wrappers that count,
/// record and fail the calls of the component, a person before its windows and messages, and an
/// email program. Host services among themselves do not pass the wrappers.
class TestHost {
 public:
  /// Starts with a copy of `content`, made by snapshot(); without one with empty tables.
  explicit TestHost(const std::string* content = nullptr);
  /// On a database of another engine, where `plainDatabase` is null and the derived class gives
  /// dump().
  explicit TestHost(DatabaseReference& other);
  virtual ~TestHost();
  TestHost(const TestHost&) = delete;
  TestHost& operator=(const TestHost&) = delete;

  /// Lends itself to the logic that is linked into the test, with fresh utilities, until it is
  /// destroyed.
  void attach();

  /// The tables' content, to start another host with.
  std::string snapshot();

  /// All rows of the tables that the component writes.
  std::string dumpWritten();
  virtual std::string dump(const std::string& sql);
  int notificationCount();

  HostCalls calls;
  ScriptedErrorClass errors;
  FixedClock clock;
  TestLocale plainLocale;
  HeadlessPerson screen{calls, plainLocale.getActiveWindow()};
  NotedEmail::Notes mailProgram;
  host::HostWorkingFolder workingFolder;
  host::ClassRegistry registry;
  std::unique_ptr<host::SqliteDatabase> plainDatabase;
  host::ClientDirectory plainClients;

  CountedDatabase database;
  CountedClients clients;
  CountedLocale locale;

  PlatformServices platform() { return {&registry, &clock, &screen}; }

 private:
  TestHost(std::unique_ptr<host::SqliteDatabase> own, DatabaseReference* other);

  bool isAttached_ = false;
};

}  // namespace autonotify::test
