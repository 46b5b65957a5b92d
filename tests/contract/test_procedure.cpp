#include "contract/procedure.h"
#include "contract/rows.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

constexpr const char* tag = "Morvane.exe-modTest-test";

[[noreturn]] void fail() {
  throw PlatformError(1000, "It failed", "test");
}

using Procedure = HostTest;

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

TEST_F(Procedure, IsLeftWhereNobodyCanBeAsked) {
  references().errors = nullptr;
  int runs = 0;
  const int result = procedure(tag, 1, [&](Step& step, int& held) {
    held = 2;
    step.run([&] {
      ++runs;
      fail();
    });
    held = 3;
  });
  EXPECT_EQ(result, 2);
  EXPECT_EQ(runs, 1);
}

TEST_F(Procedure, ProgrammingFaultsAreNotOfferedForResumption) {
  EXPECT_THROW(procedure(tag, [](Step& step) { step.run([] { throw std::logic_error("bug"); }); }),
               std::logic_error);
  EXPECT_THROW(procedure(tag, [](Step& step) { step.run([] { throw std::bad_alloc(); }); }),
               std::bad_alloc);
  EXPECT_EQ(errors.dialogs(), 0);
  EXPECT_EQ(errors.left(), 2);
}

constexpr const char* byId =
    "SELECT ClientNotification.* FROM ClientNotification WHERE ClientNotificationID=";
constexpr const char* all = "SELECT ClientNotification.* FROM ClientNotification;";

class RowsInUse : public HostTest {
 protected:
  RowsInUse() {
    for (const char* text : {"one", "two"}) addRow("ClientNotification", {{"Field1", text}});
  }
  /// The names of the host calls of a procedure with this body, of which the `failed`th fails.
  template <class Body>
  std::vector<std::string> callsIn(Body&& body, int failed = 0) {
    calls.reset();
    calls.record(true);
    calls.failAt(failed);
    procedure(tag, body);
    std::vector<std::string> names;
    for (const std::string& line : calls.log()) names.push_back(line.substr(0, line.find(' ')));
    return names;
  }
};

TEST_F(RowsInUse, AreClosedAtTheEndOfTheirScope) {
  for (const Id id : {1, 999}) {
    const auto made = callsIn([&](Step& step) {
      if (Rows row(step, byId, id, keysetRead); row) row.value("Field1");
      step.run([] { autonotify::clients().getListOrder(); });
    });
    EXPECT_EQ(made.size(), id == 1 ? 5u : 4u);
    EXPECT_EQ(made[made.size() - 2], "closeRecordset");
  }
  // Also while something else is on its way out.
  struct AtEnd {
    ~AtEnd() {
      procedure(tag, [](Step& step) { Rows(step, all, keysetRead); });
    }
  };
  EXPECT_THROW(callsIn([](Step&) {
                 const AtEnd end;
                 throw std::logic_error("bug");
               }),
               std::logic_error);
  EXPECT_EQ(calls.log().back(), "closeRecordset");
}

TEST_F(RowsInUse, StayOpenWhenTheProcedureIsLeft) {
  errors.answer({error_choice::leave, error_choice::leave});
  const auto openAndRead = [](Step& step) {
    for (const Row& row : Rows(step, all, keysetRead)) row.text("Field1");
  };
  EXPECT_THAT(callsIn(openAndRead, 4),
              ElementsAre("openRecordset", "hasRecords", "isEndOfRecordset", "getFieldValue"));
  const auto openAndGoOn = [](Step& step) {
    { Rows(step, all, keysetRead); }
    ADD_FAILURE() << "left while closing";
  };
  EXPECT_THAT(callsIn(openAndGoOn, 3),
              ElementsAre("openRecordset", "hasRecords", "closeRecordset"));
}

TEST_F(RowsInUse, AreWalkedUntilTheEndOrASkippedTestForIt) {
  errors.answer({error_choice::next});
  for (const auto& [failed, texts] : {std::pair{0, "one two "}, {7, "one "}}) {
    std::string seen;
    callsIn(
        [&](Step& step) {
          for (const Row& row : Rows(step, all, forwardRead)) seen += row.text("Field1") + " ";
        },
        failed);
    EXPECT_EQ(seen, texts);
  }
}

TEST_F(RowsInUse, ReturnToAPlaceThatTheyHold) {
  errors.answer({error_choice::next});
  for (const int failed : {0, 3}) {
    const auto made = callsIn(
        [&](Step& step) {
          const Rows rows(step, all, keysetRead);
          const auto place = rows.place();
          step.run([&] { autonotify::database().moveNext(rows.handle()); });
          rows.goTo(place);
          EXPECT_EQ(rows.text("Field1"), failed ? "two" : "one");
        },
        failed);
    EXPECT_EQ(std::ranges::count(made, "gotoBookmark"), failed ? 0 : 1);
  }
}

TEST_F(RowsInUse, ReadTheFallbackWhereNothingStandsOrAStatementIsSkipped) {
  for (const auto& [text, failed, expected] :
       {std::tuple{"5", 0, 5}, {"", 0, 7}, {"5", 3, 7}, {"5", 4, 7}, {"word", 0, 7}}) {
    const Id id = addRow("ClientNotification", {{"Field2", text}});
    if (*text && expected == 7) errors.answer({error_choice::next});
    Id read = noId;
    callsIn([&](Step& step) { read = Rows(step, byId, id, keysetRead).id("Field2", 7); }, failed);
    EXPECT_EQ(read, expected) << text << " " << failed;
  }
}

TEST_F(RowsInUse, ConvertWhatIsWrittenWithinTheStatement) {
  errors.answer({error_choice::next});
  EXPECT_THAT(columnsWrittenBy([] {
                procedure(tag, [](Step& step) {
                  const Rows row(step, byId, 1, keysetUpdate);
                  row.write("Field1", [] { return Value{}; });  // a null has no text
                  row.write("Field2", "text");
                  row.write("NotificationSent", true);
                  row.write("NotificationDate", [] { return DateTime::of(2026, 4, 30); });
                });
              }),
              ElementsAre("Field2=text", "NotificationSent=True", "NotificationDate=2026-04-30"));
  EXPECT_EQ(errors.recorded().back().number, error_number::invalidUseOfNull);
}

TEST_F(RowsInUse, AreAddedWithTheirKeyHeldBeforeTheyAreSaved) {
  errors.answer({error_choice::next, error_choice::leave});
  Id key = noId;
  EXPECT_THAT(callsIn(
                  [&](Step& step) {
                    NewRow row(step, "ClientNotification");
                    row.set("Field1", Value{});
                    row.set("Field2", "cc");
                    row.save(key, "ClientNotificationID");
                  },
                  5),
              ElementsAre("openRecordset", "addNewRecord", "setFieldValue", "getFieldValue",
                          "saveNewRecord"));
  EXPECT_EQ(key, 3);
  EXPECT_EQ(rowCount("ClientNotification"), 2);
}

}  // namespace
}  // namespace autonotify::test
