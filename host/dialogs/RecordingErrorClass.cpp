#include "host/dialogs/RecordingErrorClass.h"

#include <utility>

#include "contract/ProgressDialog.h"

namespace autonotify::host {

void RecordingErrorClass::enterProcedure(std::string_view tag) {
  tags_.push_back(tag);
}

void RecordingErrorClass::leaveProcedure() {
  if (tags_.empty()) return;
  tags_.pop_back();
  onLeave();
}

void RecordingErrorClass::recordError(const PlatformError& error) {
  current_ = {error.number(), error.description(), error.source(),
              std::string(tags_.empty() ? "" : tags_.back()), error_choice::leave};
}

void RecordingErrorClass::showErrorDialog() {
  if (current_.number == ProgressDialog::cancelled) {
    choice_ = error_choice::leave;
    return;
  }
  choice_ = isUnattended_ ? error_choice::leave : choose(current_);
  current_.choice = choice_;
  recorded_.push_back(current_);
}

std::vector<RecordedError> RecordingErrorClass::takeRecorded() {
  return std::exchange(recorded_, {});
}

}  // namespace autonotify::host
