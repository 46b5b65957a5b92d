#pragma once

#include <array>
#include <string>

#include "platform/controls/Grid.h"

namespace autonotify {

/// What the list's controller tells its window.
class AutoNotifyFlexGridEvents {
 public:
  /// The window is to close.
  virtual void closeGridParentForm() = 0;
  /// A load begins that counts up to that number.
  virtual void setupProgressBar(int numIncrements) = 0;
  /// So many rows are done. The program may be entered again meanwhile.
  virtual void incrementProgressBar(int incNum) = 0;
  /// A load has ended or was asked for.
  virtual void hideProgressBar() = 0;
  virtual void numberOfEntries(int numEntries) = 0;
  virtual void sortEntries(const std::array<GridSortKey, 3>& keys) = 0;
  /// The sentence that tells what the list shows.
  virtual void changeDisplayTextString(const std::string& sentence) = 0;
  /// A row was sent or cancelled from the list.
  virtual void sentNotification() = 0;

 protected:
  ~AutoNotifyFlexGridEvents() = default;
};

}  // namespace autonotify
