#pragma once

#include <ostream>

#include "support/TestHost.h"

namespace autonotify::test {

/// Runs an operation on a host and gives its result as text.
using Run = std::function<std::string(TestHost&)>;

/// An operation under test, each run on a fresh host.
struct WalkedOperation {
  std::string name = {};
  Run run;
  /// The result when the operation is left at its first statement.
  std::string defaultResult = {};
  /// With the database closed.
  std::string closedResult = defaultResult;
  /// How many host calls it makes at least.
  int calls = 4;

  friend void PrintTo(const WalkedOperation& walked, std::ostream* out) { *out << walked.name; }
};

template <class Call>
WalkedOperation gives(const std::string& name, const std::string& byDefault, Call call) {
  return {name, [call](TestHost&) { return call(); }, byDefault};
}
template <class Call>
WalkedOperation writes(const std::string& name, Call call) {
  return gives(name, "", [call] { return call(), std::string{}; });
}

/// What operations are walked on.
struct WalkedOffice {
  FillRows fill;
  /// What has been written, as text; by default the tables that the component writes.
  std::function<std::string(TestHost&)> written = &TestHost::dumpWritten;
  /// Makes a host; by default one for code that is linked into the test.
  std::function<std::unique_ptr<TestHost>(FillRows)> makeHost =
      std::make_unique<AttachedHost, FillRows>;
};

/// Runs the operation clean, then fails host call n for each n and each choice ("quit" and an
/// unknown one, which are the same, in turn), on a fresh host each time, and expects: every
/// procedure entered is left once; one dialog for one failure, but after "next" and "leave" also
/// for the failures that follow from what is missing, which end; after the others the clean result
/// and the same rows; after "next" and "leave" no more rows added than a clean run adds. Gives how
/// many host calls a clean run makes.
int walkFaults(const WalkedOperation& operation, const WalkedOffice& office);

/// The result when the person leaves whatever fails, from the host call on.
std::string resultWhenLeft(const Run& run, FillRows fill, int call);

/// The result while the database is closed, when nothing may be opened nor waited for.
std::string resultWhenClosed(const Run& run, FillRows fill);

/// Walks the operation's faults, then runs it with the database closed.
void walkOperation(const WalkedOperation& operation, const WalkedOffice& office);

/// A test for each operation, named like it, that walks it in the office of these words.
#define WALK_OPERATIONS(Suite, operations, ...)                              \
  class Suite : public testing::TestWithParam<WalkedOperation> {};           \
  TEST_P(Suite, LeavesNothingHalfDone) {                                     \
    walkOperation(GetParam(), {__VA_ARGS__});                                \
  }                                                                          \
  INSTANTIATE_TEST_SUITE_P(Operations, Suite, testing::ValuesIn(operations), \
                           [](const auto& each) { return each.param.name; })

/// Expects that the operations open and write what stands in the file; see expectGolden.
void expectStatements(std::span<const WalkedOperation> operations, FillRows fill,
                      const std::string& file);

}  // namespace autonotify::test
