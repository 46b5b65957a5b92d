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

/// What a failing second of three statements makes of the procedure, by choice.
struct ChoiceRow {
  int choice;
  int runsOfSecond;
  bool thirdRuns;
  int result;
};

class Choice : public HostTest, public testing::WithParamInterface<ChoiceRow> {};

TEST_P(Choice, DecidesHowTheProcedureGoesOn) {
  const ChoiceRow row = GetParam();
  errors.answer({row.choice});
  int runs = 0;
  bool thirdRan = false;
  const int result = procedure(tag, 1, [&](Step& step, int& held) {
    step.run([&] { held = 10; });
    step.assign(held, [&] {
      if (++runs == 1) fail();
      return 20;
    });
    step.run([&] { thirdRan = true; });
  });
  EXPECT_EQ(runs, row.runsOfSecond);
  EXPECT_EQ(thirdRan, row.thirdRuns);
  EXPECT_EQ(result, row.result);
  EXPECT_EQ(errors.dialogs(), 1);
  EXPECT_EQ(errors.left(), 1);
  EXPECT_EQ(errors.recorded().front().number, 1000);
  EXPECT_EQ(errors.recorded().front().tag, tag);
}

INSTANTIATE_TEST_SUITE_P(Choices, Choice,
                         testing::Values(ChoiceRow{error_choice::next, 1, true, 10},
                                         ChoiceRow{error_choice::leave, 1, false, 10},
                                         ChoiceRow{error_choice::quit, 2, true, 20},
                                         ChoiceRow{0, 2, true, 20}, ChoiceRow{7, 2, true, 20}));

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
