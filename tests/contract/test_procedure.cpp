#include <stdexcept>

#include "contract/procedure.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

constexpr const char* tag = "Morvane.exe-modTest-test";

[[noreturn]] void fail() {
  throw PlatformError(1000, "It failed", "test");
}

using Procedure = HostTest;

/// What a second of three statements, failing once for each choice, makes of the procedure.
struct Choices {
  std::vector<int> made;
  int runsOfSecond;
  bool thirdRuns;
  int result;
};

void expectEffect(const Choices& choices) {
  AttachedHost host;
  for (const int choice : choices.made) host.errors.answer({choice});
  int runs = 0;
  bool thirdRan = false;
  const int result = procedure(tag, 1, [&](Step& step, int& held) {
    step.run([&] { held = 10; });
    step.assign(held, [&] {
      if (++runs <= std::ssize(choices.made)) fail();
      return 20;
    });
    step.run([&] { thirdRan = true; });
  });
  EXPECT_EQ(runs, choices.runsOfSecond);
  EXPECT_EQ(thirdRan, choices.thirdRuns);
  EXPECT_EQ(result, choices.result);
  EXPECT_EQ(host.errors.dialogs(), std::ssize(choices.made));
  EXPECT_EQ(host.errors.left(), 1);
  EXPECT_EQ(host.errors.recorded().front().number, 1000);
  EXPECT_EQ(host.errors.recorded().front().tag, tag);
}

TEST(Choice, DecidesHowTheProcedureGoesOn) {
  const int next = error_choice::next, leave = error_choice::leave, quit = error_choice::quit;
  for (const Choices& choices : {Choices{{next}, 1, true, 10},
                                 {{leave}, 1, false, 10},
                                 {{quit}, 2, true, 20},
                                 {{0}, 2, true, 20},
                                 {{7}, 2, true, 20},
                                 {{quit, 7, leave}, 3, false, 10}})
    expectEffect(choices);
}

/// Fails after two steps of a calculation that the compiler would like to do right in its target.
inline DateTime dayAfterTwo(Step& step, DateTime day) {
  for (int i = 0; i < 3; ++i) {
    step.assign(day, [&] {
      if (i == 2) fail();
      return day.addDays(1);
    });
  }
  return day;
}

TEST_F(Procedure, TheResultIsUntouchedByACalculationThatWasLeft) {
  errors.answer({error_choice::leave});
  const DateTime start = DateTime::fromSerial(100, 5);
  const DateTime result =
      procedure(tag, start, [&](Step& step, DateTime& held) { held = dayAfterTwo(step, start); });
  EXPECT_EQ(result, start);
}

TEST_F(Procedure, ATargetIsUntouchedByAStatementThatFailed) {
  errors.answer({error_choice::next});
  DateTime target = DateTime::fromSerial(100, 5);
  procedure(tag, [&](Step& step) { step.assign(target, []() -> DateTime { fail(); }); });
  EXPECT_EQ(target, DateTime::fromSerial(100, 5));
}

TEST_F(Procedure, LeavingTheInnerOneGoesOnInTheOuterOne) {
  errors.answer({error_choice::leave});
  const int result = procedure(tag, 1, [](Step& step, int& held) {
    step.assign(held, [] {
      return procedure(tag, 5, [](Step& inner, int&) { inner.run([] { fail(); }); });
    });
    step.run([&] { ++held; });
  });
  EXPECT_EQ(result, 6);
  EXPECT_EQ(errors.entered(), 2);
  EXPECT_EQ(errors.left(), 2);
}

TEST_F(Procedure, RepeatsWithoutAnErrorClass) {
  references().errors = nullptr;
  int runs = 0;
  procedure(tag, [&](Step& step) {
    step.run([&] {
      if (++runs < 4) fail();
    });
  });
  EXPECT_EQ(runs, 4);
}

TEST_F(Procedure, ProgrammingFaultsAreNotOfferedForResumption) {
  EXPECT_THROW(procedure(tag, [](Step& step) { step.run([] { throw std::logic_error("bug"); }); }),
               std::logic_error);
  EXPECT_THROW(procedure(tag, [](Step& step) { step.run([] { throw std::bad_alloc(); }); }),
               std::bad_alloc);
  EXPECT_EQ(errors.dialogs(), 0);
  EXPECT_EQ(errors.left(), 2);
}

}  // namespace
}  // namespace autonotify::test
