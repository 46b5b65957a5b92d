#include "host/services/TerminalErrorClass.h"

#include <utility>

namespace autonotify::host {
namespace {

bool isSameFailure(const RecordedError& left, const RecordedError& right) {
  return left.number == right.number && left.description == right.description &&
         left.procedure == right.procedure;
}

}  // namespace

void TerminalErrorClass::enterProcedure(std::string_view tag) {
  if (depth_ == tags_.size()) tags_.emplace_back();
  tags_[depth_++].assign(tag);
}

void TerminalErrorClass::leaveProcedure() {
  if (depth_ == 0) return;
  if (--depth_ < metAtDepth_) timesMet_ = 0;
}

void TerminalErrorClass::recordError(const PlatformError& error) {
  current_ = {error.number(), error.description(), error.source(),
              depth_ > 0 ? tags_[depth_ - 1] : std::string(), error_choice::leave};
}

void TerminalErrorClass::showErrorDialog() {
  tell(current_);
  if (terminal_.isInteractive()) {
    const std::size_t position = terminal_.ask("1 continue, 2 leave, 3 retry?", "123", 1);
    choice_ = static_cast<int>(position) + 1;
  } else {
    choice_ = choiceByPolicy();
  }
  current_.choice = choice_;
  recorded_.push_back(current_);
}

std::vector<RecordedError> TerminalErrorClass::takeRecorded() {
  return std::exchange(recorded_, {});
}

void TerminalErrorClass::tell(const RecordedError& error) {
  terminal_.say("Error " + std::to_string(error.number) + ": " + error.description);
  if (!error.source.empty()) terminal_.say("  source: " + error.source);
  if (!error.procedure.empty()) terminal_.say("  in: " + error.procedure);
}

int TerminalErrorClass::choiceByPolicy() {
  if (policy_.choice == error_choice::next || policy_.choice == error_choice::leave)
    return policy_.choice;
  const bool again = timesMet_ > 0 && metAtDepth_ == depth_ && isSameFailure(repeated_, current_);
  timesMet_ = again ? timesMet_ + 1 : 1;
  metAtDepth_ = depth_;
  repeated_ = current_;
  return timesMet_ > policy_.repeats ? error_choice::leave : policy_.choice;
}

}  // namespace autonotify::host
