#pragma once

#include <string>
#include <vector>

#include "control/contract/MsgboxClass.h"
#include "host/services/Terminal.h"

namespace autonotify::host {

/// A message or a question as it was shown.
struct ShownMessage {
  std::string text;
  int style = 0;
  bool isQuestion = false;
  /// The answer to a question.
  bool saidYes = false;
};

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

  /// All that was shown since the last takeShown, oldest first.
  const std::vector<ShownMessage>& shown() const { return shown_; }
  std::vector<ShownMessage> takeShown();

 private:
  Terminal terminal_;
  bool yesByDefault_;
  std::vector<ShownMessage> shown_;
};

}  // namespace autonotify::host
