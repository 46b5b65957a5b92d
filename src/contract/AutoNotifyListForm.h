#pragma once

#include <memory>

#include "platform/Value.h"

namespace autonotify {

/// A row of the list from the beginning to the end of what a person does with it.
struct ListRowAtWork {
  enum class Act { send, sendTicked, sendOfAll, cancel, look };
  Act act;
  int row;
  Id notification = noId;
  /// As the list showed it when the act began.
  bool isShownSent = false;
  /// What the host wants kept until the act is over.
  std::shared_ptr<void> hold = nullptr;
};

/// The notification list as other parts of the library see it: the open form named
/// `AutoNotifyListForm::formName`, in any case.
class AutoNotifyListForm {
 public:
  virtual ~AutoNotifyListForm() = default;
  static constexpr const char* formName = "frmAutoNotifyList";
  /// Reads the row again and redraws it; does nothing when the list does not show it.
  virtual void refreshAutoNotificationRowByAutoNotificationID(Id notificationId) = 0;
  /// Each act asks first whether the database is open, and ends where that fails: the place to keep
  /// others off the row, or to refuse it. Null while nothing is done with any.
  virtual ListRowAtWork* rowAtWork() { return nullptr; }
  /// Of a send of all rows none begins any more.
  virtual void endSendAll() {}
};

}  // namespace autonotify
