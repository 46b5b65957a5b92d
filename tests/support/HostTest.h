#pragma once

#include <gmock/gmock.h>

#include "support/TestHost.h"
#include "support/golden_file.h"
#include "support/told_rows.h"

namespace autonotify::test {

/// A test on an attached host with an empty database. At its end nothing that was expected, of
/// errors, messages and windows, may be left.
class HostTest : public testing::Test, public AttachedHost, public TableRows {
 protected:
  HostTest() : TableRows(*plainDatabase) {}
  ~HostTest() override {
    EXPECT_EQ(errors.answersLeft(), 0u);
    screen.finish();
  }

  DateTime today() { return clock.today(); }

  void closeDatabase() { database.isClosed = true; }

  /// The next message, of a style, "4"; "6?" is a question that is denied, "6!" one that is
  /// affirmed.
  void hear(const std::string& style, const std::string& text) {
    if (style.ends_with('?') || style.ends_with('!'))
      screen.expectQuestion(text, std::stoi(style), style.ends_with('!'));
    else
      screen.expectMessage(text, std::stoi(style));
  }

  /// The calls of the operation during the run, without its name.
  template <class Run>
  std::vector<std::string> callsOf(const std::string& operation, Run&& run) {
    calls.reset();
    calls.record(true);
    run();
    return logged(operation);
  }
  template <class Run>
  std::vector<std::string> columnsWrittenBy(Run&& run) {
    return callsOf("updateFieldValue", run);
  }
  template <class Run>
  std::vector<std::string> statementsOf(Run&& run) {
    return callsOf("openRecordset", run);
  }
  /// The calls of the operation since the recording began.
  std::vector<std::string> logged(const std::string& operation) {
    const std::string start = operation + " ";
    std::vector<std::string> found;
    for (const std::string& line : calls.log())
      if (line.starts_with(start)) found.push_back(line.substr(start.size()));
    return found;
  }
  /// Which recorded call, counted from 1, was the `nth` that starts with `start`.
  int callNumber(const std::string& start, int nth) {
    const auto& log = calls.log();
    for (std::size_t i = 0; i < log.size(); ++i)
      if (log[i].starts_with(start) && --nth == 0) return static_cast<int>(i) + 1;
    ADD_FAILURE() << "no such call: " << start;
    return 0;
  }
};

}  // namespace autonotify::test
