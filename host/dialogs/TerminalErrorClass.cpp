#include "host/dialogs/TerminalErrorClass.h"

namespace autonotify::host {
namespace {

bool isSameFailure(const RecordedError& left, const RecordedError& right) {
  return left.number == right.number && left.description == right.description &&
         left.procedure == right.procedure;
}

}  // namespace

void TerminalErrorClass::onLeave() {
  if (depth() < metAtDepth_) timesMet_ = 0;
}

int TerminalErrorClass::choose(const RecordedError& error) {
  tell(error);
  if (!terminal_.isInteractive()) return choiceByPolicy(error);
  return static_cast<int>(terminal_.ask("1 continue, 2 leave, 3 retry?", "123", 1)) + 1;
}

void TerminalErrorClass::tell(const RecordedError& error) {
  terminal_.say("Error " + std::to_string(error.number) + ": " + error.description);
  if (!error.source.empty()) terminal_.say("  source: " + error.source);
  if (!error.procedure.empty()) terminal_.say("  in: " + error.procedure);
}

int TerminalErrorClass::choiceByPolicy(const RecordedError& error) {
  if (policy_.choice == error_choice::next || policy_.choice == error_choice::leave)
    return policy_.choice;
  const bool again = timesMet_ > 0 && metAtDepth_ == depth() && isSameFailure(repeated_, error);
  timesMet_ = again ? timesMet_ + 1 : 1;
  metAtDepth_ = depth();
  repeated_ = error;
  return timesMet_ > policy_.repeats ? error_choice::leave : policy_.choice;
}

}  // namespace autonotify::host
