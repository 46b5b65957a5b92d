#include "support/operation_walk.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "support/fault_walk.h"
#include "support/golden_file.h"

namespace autonotify::test {
namespace {

class ClosedDatabase : public CountedDatabase {
 public:
  using CountedDatabase::CountedDatabase;
  bool isDatabaseOpen() override { return false; }
};

/// The calls of a run that open, write or go to a place, each once and to its first line end. What
/// is opened must be closed.
std::string statementsOf(const WalkedOperation& operation, TestHost& host) {
  operation.run(host);
  const auto count = [&](const char* call) {
    return std::ranges::count_if(host.calls.log(),
                                 [&](auto& line) { return line.starts_with(call); });
  };
  EXPECT_EQ(count("openRecordset"), count("closeRecordset")) << operation.name;
  std::string statements;
  std::set<std::string> seen;
  for (const std::string& call : host.calls.log()) {
    for (const char* kind : {"openRecordset", "setFieldValue", "updateFieldValue", "gotoBookmark"})
      if (call.starts_with(kind) && seen.insert(call).second)
        statements += call.substr(0, call.find('\r')) + "\n";
  }
  return statements;
}

void runClosed(const WalkedOperation& operation, TestHost& host) {
  ClosedDatabase closed(*host.plainDatabase, host.calls);
  references().databaseReference = &closed;
  EXPECT_EQ(operation.run(host), operation.closedResult) << "the database is closed";
  EXPECT_THAT(host.calls.log(), testing::Not(testing::Contains(testing::StartsWith("openRec"))));
}

/// Runs `use(host)` on a host that holds the rows and records the calls.
template <class Use>
void withHost(void (*fill)(Rows), Use&& use) {
  TestHost host;
  host.attach();
  fill(Rows(*host.plainDatabase));
  host.calls.record(true);
  use(host);
}

}  // namespace

void PrintTo(const WalkedOperation& operation, std::ostream* out) {
  *out << operation.name;
}

void walkOperation(const WalkedOperation& operation, void (*fill)(Rows),
                   const std::function<std::string(TestHost&)>& written) {
  FaultWalk walk;
  walk.prepare = [&](TestHost& host) { fill(Rows(*host.plainDatabase)); };
  walk.run = operation.run;
  walk.defaultResult = operation.defaultResult;
  walk.written = written;
  EXPECT_GE(walkFaults(walk).hostCalls, 4);
  withHost(fill, [&](TestHost& host) { runClosed(operation, host); });
}

void expectStatements(std::span<const WalkedOperation> operations, void (*fill)(Rows),
                      const std::string& file) {
  std::string text;
  for (const WalkedOperation& operation : operations) {
    text += std::string("[") + operation.name + "]\n";
    withHost(fill, [&](TestHost& host) { text += statementsOf(operation, host); });
  }
  expectGolden(file, text);
}

}  // namespace autonotify::test
