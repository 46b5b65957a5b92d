#pragma once

#include <string_view>

#include "platform/PlatformError.h"

namespace autonotify {

/// Values of errorClass::getErrorChoice. Any other value repeats the failed statement.
namespace error_choice {
inline constexpr int next = 1;   ///< go on with the statement after the failed one
inline constexpr int leave = 2;  ///< leave the procedure with the value held so far
inline constexpr int quit = 3;   ///< ask the program to end, then repeat the statement
}  // namespace error_choice

/// The host's record of errors, and the dialog in which a person settles one.
///
/// One stack of entered procedures per process. None of the operations may throw PlatformError.
class errorClass {
 public:
  virtual ~errorClass() = default;
  /// Notes the procedure on the stack. `tag` is a label for the record, such as
  /// "Morvane.exe-modNotifyClients-getNotificationStatus"; several procedures share one. It stays
  /// until the procedure is left.
  virtual void enterProcedure(std::string_view tag) = 0;
  /// Takes the top procedure off the stack.
  virtual void leaveProcedure() = 0;
  /// Remembers number, text and the tag on top of the stack.
  virtual void recordError(const PlatformError& error) = 0;
  /// Shows the recorded error modally and lets the person choose.
  virtual void showErrorDialog() = 0;
  /// The choice made in the last dialog: see error_choice.
  virtual int getErrorChoice() = 0;
};

}  // namespace autonotify
