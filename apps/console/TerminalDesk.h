#pragma once

#include "Arguments.h"
#include "host/desk/Desk.h"
#include "host/dialogs/TerminalErrorClass.h"
#include "host/dialogs/TerminalMsgbox.h"
#include "host/documents/PrintingFormHost.h"

namespace autonotify::console {

/// The dialogs of a desk without windows.
struct TerminalDialogs {
  explicit TerminalDialogs(const GlobalOptions& options);

  host::Terminal terminal;
  host::TerminalErrorClass errors{terminal};
  host::TerminalMsgbox messages{terminal};
  host::PrintingFormHost forms;
};

/// The desk that a command works at.
class TerminalDesk : private TerminalDialogs, public host::Desk {
 public:
  explicit TerminalDesk(const GlobalOptions& options);
};

}  // namespace autonotify::console
