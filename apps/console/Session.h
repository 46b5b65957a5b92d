#pragma once

#include <string>
#include <vector>

#include "Arguments.h"
#include "Reply.h"
#include "host/desk/Desk.h"
#include "host/dialogs/TerminalErrorClass.h"
#include "host/dialogs/TerminalMsgbox.h"
#include "host/services/HeadlessFormHost.h"

namespace autonotify::console {

/// The dialogs of a desk without windows.
struct TerminalDialogs {
  explicit TerminalDialogs(const GlobalOptions& options);

  host::Terminal terminal;
  host::TerminalErrorClass errors{terminal};
  host::TerminalMsgbox messages{terminal};
  host::HeadlessFormHost forms;
};

/// The desk that a command works at.
class Session : private TerminalDialogs, public host::Desk {
 public:
  explicit Session(const GlobalOptions& options);

  /// Runs `call` and gives the errors that the component met meanwhile, as one line; empty when all
  /// went well.
  template <class Call>
  std::string errorsOf(Call&& call) {
    errors.takeRecorded();
    call();
    return errorLine(errors.takeRecorded());
  }
  /// Throws Refusal when the component met errors; `subject` is what they are about: "task 12".
  template <class Call>
  void callOrRefuse(const std::string& subject, Call&& call) {
    const std::string met = errorsOf(call);
    if (!met.empty()) throw Refusal(subject + ": " + met);
  }

 private:
  static std::string errorLine(const std::vector<host::RecordedError>& errors);
};

}  // namespace autonotify::console
