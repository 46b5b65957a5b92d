#pragma once

#include <functional>
#include <ostream>
#include <span>
#include <string>

#include "support/TestHost.h"
#include "support/table_rows.h"

namespace autonotify::test {

/// An operation of a folder as all of them are tested, each run on a fresh host.
struct WalkedOperation {
  const char* name;
  /// Gives the result as text.
  std::function<std::string(TestHost&)> run;
  /// See FaultWalk.
  std::string defaultResult = {};
  /// With the database closed, when nothing is opened.
  std::string closedResult = defaultResult;
};

template <class Call>
WalkedOperation gives(const char* name, const std::string& byDefault, Call call) {
  return {name, [call](TestHost&) { return call(); }, byDefault};
}
template <class Call>
WalkedOperation writes(const char* name, Call call) {
  return gives(name, "", [call] { return call(), std::string{}; });
}

void PrintTo(const WalkedOperation& operation, std::ostream* out);

/// Walks the operation's faults, then runs it with the database closed. `written` gives what it may
/// have written.
void walkOperation(const WalkedOperation& operation, void (*fill)(Rows),
                   const std::function<std::string(TestHost&)>& written);

/// Expects that the operations open and write what stands in the file of the test's folder, in that
/// order; see expectGolden.
void expectStatements(std::span<const WalkedOperation> operations, void (*fill)(Rows),
                      const std::string& file);

}  // namespace autonotify::test
