#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "host/dialogs/TerminalErrorClass.h"
#include "host/dialogs/TerminalMsgbox.h"

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

int ask(TerminalMsgbox& box, const std::string& text) {
  return box.askQuestion(text, message_style::inputRefused, nullptr, 0, 0, 101, 0, "", 0);
}

TEST(TerminalMsgboxTest, showsMessagesBehindAWordForTheirStyle) {
  const std::pair<int, const char*> cases[] = {
      {message_style::notice, "Note: Bell ? and ?[2J\nline\n"},
      {message_style::valueRefused, "Please check: Bell ? and ?[2J\nline\n"},
      {message_style::reportError, "Error: Bell ? and ?[2J\nline\n"},
      {message_style::warning, "Warning: Bell ? and ?[2J\nline\n"}};
  for (const auto& [style, said] : cases) {
    std::ostringstream out;
    TerminalMsgbox box({nullptr, &out});
    box.showMessage("Bell \a and \x1b[2J\r\nline", style, nullptr, 0, 0, 101, 0, "", 0);
    EXPECT_EQ(out.str(), said);
  }
}

TEST(TerminalMsgboxTest, personAnswersYesOrNo) {
  std::istringstream in("maybe\nY\nn\r\n");
  std::ostringstream out;
  TerminalMsgbox box({&in, &out}, true);
  EXPECT_EQ(ask(box, "Exit?"), 0);
  EXPECT_NE(ask(box, "Exit?"), 0);
  EXPECT_EQ(ask(box, "Exit?"), 0) << "the input has ended: the default";
  EXPECT_EQ(out.str().substr(0, 24), "Exit? (y/n) Exit? (y/n) ");
}

TEST(TerminalMsgboxTest, batchGivesTheStatedAnswer) {
  for (const bool yes : {false, true}) {
    std::ostringstream out;
    TerminalMsgbox box({nullptr, &out}, yes);
    EXPECT_EQ(ask(box, "Move to Friday?") == 0, yes);
    EXPECT_EQ(out.str(), yes ? "Move to Friday? Yes\n" : "Move to Friday? No\n");
  }
}

}  // namespace
}  // namespace autonotify::host
