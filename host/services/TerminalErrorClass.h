#pragma once

#include <string>
#include <vector>

#include "control/contract/errorClass.h"
#include "host/services/Terminal.h"

namespace autonotify::host {

/// An error as it was settled.
struct RecordedError {
  int number = 0;
  std::string description;
  std::string source;
  /// The tag on top of the stack; empty outside of every procedure.
  std::string procedure;
  /// The choice that was made: see error_choice.
  int choice = error_choice::leave;
};

/// How errors are settled when nobody is there to be asked.
struct BatchErrorPolicy {
  int choice = error_choice::leave;
  /// How often a choice that repeats the statement meets one and the same failure while its
  /// procedure lasts; the next time the procedure is left, so that no run hangs.
  int repeats = 3;
};

/// Records errors, and settles them with the person at the terminal or by a policy.
///
/// A person reads number, text and procedure and answers 1 (continue), 2 (leave) or 3 (retry); when
/// the input ends, the procedure is left.
class TerminalErrorClass : public errorClass {
 public:
  explicit TerminalErrorClass(Terminal terminal, BatchErrorPolicy policy = {})
      : terminal_(terminal), policy_(policy) {}

  void enterProcedure(std::string_view tag) override;
  void leaveProcedure() override;
  void recordError(const PlatformError& error) override;
  void showErrorDialog() override;
  int getErrorChoice() override { return choice_; }

  /// How many procedures are entered at present.
  std::size_t depth() const { return depth_; }
  /// All errors since the last takeRecorded, oldest first.
  const std::vector<RecordedError>& recorded() const { return recorded_; }
  /// The same, and forgets them: what happened to one row stays apart from the next.
  std::vector<RecordedError> takeRecorded();

 private:
  void tell(const RecordedError& error);
  int choiceByPolicy();

  Terminal terminal_;
  BatchErrorPolicy policy_;
  /// The first depth_ tags are in use; the others wait to be used again.
  std::vector<std::string> tags_;
  std::size_t depth_ = 0;
  RecordedError current_;
  std::vector<RecordedError> recorded_;
  int choice_ = error_choice::leave;
  /// The failure met last, how often in a row and at what depth.
  RecordedError repeated_;
  int timesMet_ = 0;
  std::size_t metAtDepth_ = 0;
};

}  // namespace autonotify::host
