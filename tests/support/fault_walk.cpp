#include "support/fault_walk.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "support/golden_file.h"

namespace autonotify::test {
namespace {

/// Taken for "quit", and in turn with it.
constexpr int unknownChoice = 7;

/// Under sanitizers and in a toolkit's windows, which slow a walk down, every third call fails,
/// with one choice, in turn.
bool areWalksShort() {
#ifdef AUTONOTIFY_SANITIZE
  return true;
#else
  static const bool areShort = std::getenv("AUTONOTIFY_SHORT_WALKS") != nullptr;
  return areShort;
#endif
}
int callsApart() {
  return areWalksShort() ? 3 : 1;
}
std::vector<int> choicesAt(int call) {
  const int quits = call % 2 == 0 ? error_choice::quit : unknownChoice;
  const std::vector<int> choices{error_choice::next, error_choice::leave, quits};
  const auto turn = static_cast<std::size_t>(call / callsApart()) + 1;
  return areWalksShort() ? std::vector{choices[turn % choices.size()]} : choices;
}

/// Follow-up failures that a person settles alike before the test calls it a loop.
constexpr int mostFollowUps = 100;

struct Outcome {
  std::string result, written;
  int rowsAdded = 0, calls = 0, failures = 0;
};

/// What was skipped or left may be missed later on, by the same procedure or its caller.
bool hasFollowUps(int choice) {
  return choice == error_choice::next || choice == error_choice::leave;
}

Outcome runOnce(const Run& run, const WalkedOffice& office, int failedCall, int choice) {
  const std::unique_ptr<TestHost> host = office.makeHost(office.fill);
  host->calls.reset();
  if (failedCall > 0) {
    host->calls.failAt(failedCall);
    host->errors.answer({choice});
    if (hasFollowUps(choice)) host->errors.answerRest(choice, mostFollowUps);
  }
  const int rowsBefore = host->notificationCount();
  Outcome outcome;
  outcome.result = run(*host);
  outcome.calls = host->calls.count();
  outcome.failures = host->calls.failures();
  EXPECT_EQ(host->errors.entered(), host->errors.left()) << "every procedure is left once";
  EXPECT_EQ(host->errors.depth(), 0u);
  if (hasFollowUps(choice))
    EXPECT_GE(host->errors.dialogs(), outcome.failures);
  else
    EXPECT_EQ(host->errors.dialogs(), outcome.failures) << "one dialog for one failure";
  outcome.written = office.written(*host);
  outcome.rowsAdded = host->notificationCount() - rowsBefore;
  return outcome;
}

/// The calls that open, write or go to a place, each once. What is opened must be closed.
std::string statementsOf(const WalkedOperation& operation, FillRows fill) {
  AttachedHost host(fill);
  host.calls.record(true);
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

}  // namespace

int walkFaults(const WalkedOperation& operation, const WalkedOffice& office) {
  const Outcome clean = runOnce(operation.run, office, 0, 0);
  for (int n = 1; n <= clean.calls && !testing::Test::HasFailure(); n += callsApart()) {
    for (const int choice : choicesAt(n)) {
      SCOPED_TRACE("host call " + std::to_string(n) + " fails, choice " + std::to_string(choice));
      const Outcome outcome = runOnce(operation.run, office, n, choice);
      EXPECT_EQ(outcome.failures, 1);
      EXPECT_LE(outcome.rowsAdded, std::max(clean.rowsAdded, 0)) << "nothing is added twice";
      if (!hasFollowUps(choice)) {
        EXPECT_EQ(outcome.result, clean.result);
        EXPECT_EQ(outcome.written, clean.written);
      }
      if (choice == error_choice::leave && n == 1) {
        EXPECT_EQ(outcome.result, operation.defaultResult);
      }
    }
  }
  return clean.calls;
}

std::string resultWhenLeft(const Run& run, FillRows fill, int call) {
  AttachedHost host(fill);
  host.calls.reset();
  host.calls.failAt(call);
  host.errors.answerRest(error_choice::leave, mostFollowUps);
  return run(host);
}

std::string resultWhenClosed(const Run& run, FillRows fill) {
  AttachedHost host(fill);
  host.database.isClosed = true;
  host.calls.record(true);
  const std::string result = run(host);
  using namespace testing;
  EXPECT_THAT(host.calls.log(), Each(Not(AnyOf(StartsWith("openRecordset"), "pumpMessages"))));
  return result;
}

void walkOperation(const WalkedOperation& operation, const WalkedOffice& office) {
  EXPECT_GE(walkFaults(operation, office), operation.calls);
  EXPECT_EQ(resultWhenClosed(operation.run, office.fill), operation.closedResult)
      << "the database is closed";
}

void expectStatements(std::span<const WalkedOperation> operations, FillRows fill,
                      const std::string& file) {
  std::string text;
  for (const WalkedOperation& operation : operations)
    text += "[" + operation.name + "]\n" + statementsOf(operation, fill);
  expectGolden(file, text);
}

}  // namespace autonotify::test
