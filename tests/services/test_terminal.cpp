#include "host/dialogs/TerminalErrorClass.h"
#include "host/dialogs/TerminalMsgbox.h"
#include "support/text_table.h"

namespace autonotify::host {
namespace {

const PlatformError lockedError(3218, "The table is locked", "Database");

int settle(TerminalErrorClass& errors, const PlatformError& error) {
  errors.recordError(error);
  errors.showErrorDialog();
  return errors.getErrorChoice();
}

TEST(TerminalErrorClassTest, personSeesTheErrorAndChooses) {
  std::istringstream in("what?\n\n4\n 1\n1\n3 \n");
  std::ostringstream out;
  TerminalErrorClass errors({&in, &out});
  errors.enterProcedure("Morvane.exe-modOne-outer");
  errors.enterProcedure("Morvane.exe-modOne-inner");
  errors.leaveProcedure();
  EXPECT_EQ(settle(errors, lockedError), 1);
  EXPECT_EQ(settle(errors, lockedError), 3);
  EXPECT_EQ(settle(errors, lockedError), 2) << "the input has ended";
  const std::string said = out.str();
  EXPECT_EQ(
      said.substr(0, said.find("1 continue")),
      "Error 3218: The table is locked\n  source: Database\n  in: Morvane.exe-modOne-outer\n");
}

TEST(TerminalErrorClassTest, batchLeavesByDefaultAndCollects) {
  TerminalErrorClass errors(Terminal{});
  errors.leaveProcedure();
  errors.enterProcedure("tag");
  EXPECT_EQ(settle(errors, lockedError), error_choice::leave);
  const std::vector<RecordedError> recorded = errors.takeRecorded();
  ASSERT_EQ(recorded.size(), 1u);
  EXPECT_EQ(recorded[0].number, 3218);
  EXPECT_EQ(recorded[0].procedure, "tag");
  EXPECT_EQ(recorded[0].choice, error_choice::leave);
  EXPECT_TRUE(errors.recorded().empty());
}

TEST(TerminalErrorClassTest, batchRepeatsAFewTimesThenLeaves) {
  TerminalErrorClass errors(Terminal{}, {.choice = error_choice::quit, .repeats = 2});
  errors.enterProcedure("outer");
  for (int round = 0; round < 2; ++round) {
    errors.enterProcedure("inner");
    EXPECT_EQ(settle(errors, lockedError), 3);
    // What the repeated statement calls does not begin the count anew.
    errors.enterProcedure("called");
    errors.leaveProcedure();
    EXPECT_EQ(settle(errors, lockedError), 3);
    EXPECT_EQ(settle(errors, lockedError), error_choice::leave);
    errors.leaveProcedure();
  }
  EXPECT_EQ(settle(errors, lockedError), 3);
  EXPECT_EQ(settle(errors, PlatformError(13, "Type mismatch")), 3) << "another failure";
  EXPECT_EQ(errors.depth(), 1u);
}

TEST(TerminalMsgboxTest, showsMessagesBehindAWordForTheirStyle) {
  for (const auto& [style, word] : {std::pair(message_style::notice, "Note"),
                                    {message_style::valueRefused, "Please check"},
                                    {message_style::reportError, "Error"},
                                    {message_style::warning, "Warning"}}) {
    std::ostringstream out;
    TerminalMsgbox box({nullptr, &out});
    box.showMessage("Bell \a and \x1b[2J\r\nline", style, nullptr, 0, 0, 101, 0, "", 0);
    EXPECT_EQ(out.str(), std::string(word) + ": Bell ? and ?[2J\nline\n");
  }
}

TEST(TerminalMsgboxTest, aPersonAnswersOrTheDefaultDoes) {
  for (const auto& [input, isThere, isYesDefault, answers, said] :
       test::casesOf<std::string, bool, bool, std::string, std::string>("service_texts.txt",
                                                                        "answers")) {
    std::istringstream in(input);
    std::ostringstream out;
    TerminalMsgbox box({isThere ? &in : nullptr, &out}, isYesDefault);
    std::string given;
    for (int i = 0; i < 3; ++i)
      given +=
          "yn"[box.askQuestion("Exit?", message_style::inputRefused, nullptr, 0, 0, 101, 0, "", 0)];
    EXPECT_EQ(given, answers);
    EXPECT_TRUE(out.str().starts_with(said)) << out.str();
  }
}

}  // namespace
}  // namespace autonotify::host
