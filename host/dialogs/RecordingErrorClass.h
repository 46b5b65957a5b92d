#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "contract/errorClass.h"

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

/// Keeps the stack of procedures and the record of errors; how an error is settled is the business
/// of the derived class. That a person has cancelled a work is no error: its procedure is left.
class RecordingErrorClass : public errorClass {
 public:
  void enterProcedure(std::string_view tag) override;
  void leaveProcedure() override;
  void recordError(const PlatformError& error) override;
  void showErrorDialog() override;
  int getErrorChoice() override { return choice_; }

  /// While it is unattended nobody is asked: what failed is left.
  void setUnattended(bool unattended) { isUnattended_ = unattended; }

  /// How many procedures are entered at present.
  std::size_t depth() const { return depth_; }
  /// All errors since the last takeRecorded, oldest first.
  const std::vector<RecordedError>& recorded() const { return recorded_; }
  /// The same, and forgets them: what happened to one row stays apart from the next.
  std::vector<RecordedError> takeRecorded();

 protected:
  /// Settles the error: gives one of error_choice.
  virtual int choose(const RecordedError& error) = 0;
  /// A procedure was left; depth() is what remains.
  virtual void onLeave() {}

 private:
  /// Where there is no room for the tag yet. Apart, so that what is run all the time stays short.
  [[gnu::noinline]] void enterDeeper(std::string_view tag);

  /// The first `depth_` are in use.
  std::vector<std::string_view> tags_;
  std::size_t depth_ = 0;
  RecordedError current_;
  std::vector<RecordedError> recorded_;
  int choice_ = error_choice::leave;
  bool isUnattended_ = false;
};

}  // namespace autonotify::host
