#include "contract/procedure.h"

namespace autonotify {
namespace {

/// The place where a program would end; nothing ends here, so the statement is repeated.
void quitProgram() {}

}  // namespace

bool shallRetryAfter(const PlatformError& error) {
  errorClass* errors = references().errors;
  if (!errors) throw LeaveProcedure{};
  errors->recordError(error);
  errors->showErrorDialog();
  switch (errors->getErrorChoice()) {
    case error_choice::next:
      return false;
    case error_choice::leave:
      throw LeaveProcedure{};
    case error_choice::quit:
      quitProgram();
      return true;
    default:
      return true;
  }
}

}  // namespace autonotify
