#pragma once

#include <string>

#include "contract/MsgboxClass.h"
#include "host/dialogs/Terminal.h"

namespace autonotify::host {

/// Messages as lines behind a word for their style; questions answered with y or n.
///
/// In a batch run every question gets the default answer, which is no unless stated otherwise; the
/// answer is written behind the question. When the input ends, the answer is the default too.
class TerminalMsgbox : public MsgboxClass {
 public:
  explicit TerminalMsgbox(Terminal terminal, bool yesByDefault = false)
      : terminal_(terminal), yesByDefault_(yesByDefault) {}

  void showMessage(const std::string& text, int style, HostObject* owner, int reserved1,
                   int reserved2, int reserved3, int reserved4, const std::string& reserved5,
                   int reserved6) override;
  int askQuestion(const std::string& text, int style, HostObject* owner, int reserved1,
                  int reserved2, int reserved3, int reserved4, const std::string& reserved5,
                  int reserved6) override;

 private:
  Terminal terminal_;
  bool yesByDefault_;
};

}  // namespace autonotify::host
