#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "support/TestHost.h"

namespace autonotify::test {

/// One operation under test and what must hold of it whatever fails.
struct FaultWalk {
  /// Fills a fresh host before the operation.
  std::function<void(TestHost&)> prepare = [](TestHost&) {};
  /// Runs the operation and gives its result as text.
  std::function<std::string(TestHost&)> run;
  /// The result when the operation is left at its first statement; unset when it is not fixed.
  std::string defaultResult;
  /// Every how many calls one is failed, from the first on; more than 1 where runs are dear.
  int stride = 1;
  /// What has been written, as text; by default the tables that the component writes.
  std::function<std::string(TestHost&)> written = [](TestHost& host) { return host.dumpWritten(); };
  /// Makes a host; by default one for code that is linked into the test.
  std::function<std::unique_ptr<TestHost>()> makeHost = [] {
    auto host = std::make_unique<TestHost>();
    host->attach();
    return host;
  };
};

struct FaultWalkReport {
  int hostCalls = 0;
  int runs = 0;
};

/// Runs the operation clean, then fails host call n for each n, or those that `stride` leaves, and
/// each choice, on a fresh host each time, and expects: every procedure entered is left once; one
/// dialog for one failure, but after "next" and "leave" also for the failures that follow from what
/// is missing, which end; after "quit" and an unknown choice the clean result and the same rows;
/// after "next" and "leave" no more rows added than a clean run adds.
FaultWalkReport walkFaults(const FaultWalk& walk);

}  // namespace autonotify::test
