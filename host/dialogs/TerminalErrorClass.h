#pragma once

#include "host/dialogs/RecordingErrorClass.h"
#include "host/dialogs/Terminal.h"

namespace autonotify::host {

/// How errors are settled when nobody is there to be asked.
struct BatchErrorPolicy {
  int choice = error_choice::leave;
  /// How often a choice that repeats the statement meets one and the same failure while its
  /// procedure lasts; the next time the procedure is left, so that no run hangs.
  int repeats = 3;
};

/// Settles errors with the person at the terminal or by a policy.
///
/// A person reads number, text and procedure and answers 1 (continue), 2 (leave) or 3 (retry); when
/// the input ends, the procedure is left.
class TerminalErrorClass : public RecordingErrorClass {
 public:
  explicit TerminalErrorClass(Terminal terminal, BatchErrorPolicy policy = {})
      : terminal_(terminal), policy_(policy) {}

 protected:
  int choose(const RecordedError& error) override;
  void onLeave() override;

 private:
  void tell(const RecordedError& error);
  int choiceByPolicy(const RecordedError& error);

  Terminal terminal_;
  BatchErrorPolicy policy_;
  /// The failure met last, how often in a row and at what depth.
  RecordedError repeated_;
  int timesMet_ = 0;
  std::size_t metAtDepth_ = 0;
};

}  // namespace autonotify::host
