#include "support/fault_walk.h"

#include <iostream>

namespace autonotify::test {
namespace {

constexpr int unknownChoice = 7;

/// Follow-up failures that a person settles alike before the test calls it a loop.
constexpr int mostFollowUps = 100;

struct Outcome {
  std::string result;
  std::string written;
  int rowsAdded = 0;
  int calls = 0;
  int failures = 0;
};

/// What was skipped or left may be missed later on, by the same procedure or its caller.
bool hasFollowUps(int choice) {
  return choice == error_choice::next || choice == error_choice::leave;
}

Outcome runOnce(const FaultWalk& walk, int failedCall, int choice) {
  const std::unique_ptr<TestHost> host = walk.makeHost();
  walk.prepare(*host);
  host->calls.reset();
  if (failedCall > 0) {
    host->calls.failAt(failedCall);
    host->errors.answer({choice});
    if (hasFollowUps(choice)) host->errors.answerRest(choice, mostFollowUps);
  }
  const int rowsBefore = host->notificationCount();
  Outcome outcome;
  outcome.result = walk.run(*host);
  outcome.calls = host->calls.count();
  outcome.failures = host->calls.failures();
  EXPECT_EQ(host->errors.entered(), host->errors.left()) << "every procedure is left once";
  EXPECT_EQ(host->errors.depth(), 0u);
  if (hasFollowUps(choice)) {
    EXPECT_GE(host->errors.dialogs(), outcome.failures);
  } else {
    EXPECT_EQ(host->errors.dialogs(), outcome.failures) << "one dialog for one failure";
  }
  outcome.written = walk.written(*host);
  outcome.rowsAdded = host->notificationCount() - rowsBefore;
  return outcome;
}

}  // namespace

FaultWalkReport walkFaults(const FaultWalk& walk) {
  const Outcome clean = runOnce(walk, 0, 0);
  FaultWalkReport report{clean.calls, 1};
  for (int n = 1; n <= clean.calls; n += walk.stride) {
    for (const int choice :
         {error_choice::next, error_choice::leave, error_choice::quit, unknownChoice}) {
      SCOPED_TRACE("host call " + std::to_string(n) + " fails, choice " + std::to_string(choice));
      const Outcome outcome = runOnce(walk, n, choice);
      ++report.runs;
      EXPECT_EQ(outcome.failures, 1);
      EXPECT_LE(outcome.rowsAdded, std::max(clean.rowsAdded, 0)) << "nothing is added twice";
      if (choice == error_choice::quit || choice == unknownChoice) {
        EXPECT_EQ(outcome.result, clean.result);
        EXPECT_EQ(outcome.written, clean.written);
      }
      if (choice == error_choice::leave && n == 1) {
        EXPECT_EQ(outcome.result, walk.defaultResult);
      }
      if (testing::Test::HasFailure()) return report;
    }
  }
  std::cout << "[  WALKED  ] " << report.runs << " runs over " << report.hostCalls
            << " host calls\n";
  return report;
}

}  // namespace autonotify::test
