#pragma once

#include "platform/Value.h"

namespace autonotify {

/// The notification list as other parts of the library see it: the open form named
/// `AutoNotifyListForm::formName`, in any case.
class AutoNotifyListForm {
 public:
  virtual ~AutoNotifyListForm() = default;
  static constexpr const char* formName = "frmAutoNotifyList";
  /// Reads the row again and redraws it; does nothing when the list does not show it.
  virtual void refreshAutoNotificationRowByAutoNotificationID(Id notificationId) = 0;
};

}  // namespace autonotify
