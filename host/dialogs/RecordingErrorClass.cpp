#include "host/dialogs/RecordingErrorClass.h"

#include <utility>

#include "contract/ProgressDialog.h"

namespace autonotify::host {

void RecordingErrorClass::enterProcedure(std::string_view tag) {
  if (depth_ == tags_.size()) return enterDeeper(tag);
  tags_[depth_++] = tag;
}

void RecordingErrorClass::enterDeeper(std::string_view tag) {
  tags_.resize(2 * depth_ + 16);
  tags_[depth_++] = tag;
}

void RecordingErrorClass::leaveProcedure() {
  if (depth_ == 0) return;
  --depth_;
  onLeave();
}

void RecordingErrorClass::recordError(const PlatformError& error) {
  current_ = {error.number(), error.description(), error.source(),
              std::string(depth_ == 0 ? "" : tags_[depth_ - 1]), error_choice::leave};
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
