#pragma once

#include <optional>
#include <type_traits>

#include "control/clsAutoNotifyCtrl.h"
#include "host/desk/Outcome.h"
#include "host/desk/rows/Notification.h"

namespace autonotify::host {

/// How a person left a window that the desk's FormHost shows; all but the first two of the composer
/// of an email alone.
enum class Composed {
  done,
  cancelled,
  /// To be scheduled, but an email of the task waits for its date already; no window was shown.
  waitsAlready,
  /// To be edited, but no email of the task waits any more; no window was shown.
  noneWaits,
  /// A program that knows nothing of claims has deleted the email meanwhile: what was written is
  /// lost.
  lost,
};

/// Opens a window of the component's and tells whether it was left as done or cancelled.
template <class... Types>
Composed openWindow(Desk& desk, void (clsAutoNotifyCtrl::*open)(Types...),
                    std::type_identity_t<Types>... arguments) {
  (desk.control().*open)(arguments...);
  return desk.control().get_cancelFlag() ? Composed::cancelled : Composed::done;
}

// While the person writes no other desk works on the task, nor on the email that is edited.

/// The email of the task that waits for its date, unset when none does. Throws UnreadableRow when
/// that cannot be told.
std::optional<Notification> findWaitingEmail(Desk& desk, Id task);

/// An email to the task's client that is sent at once.
Outcome<Composed> composeEmail(Desk& desk, Id task);
/// An email that waits for the task's notification date.
Outcome<Composed> scheduleEmail(Desk& desk, Id task);
/// The email of the task that waits.
Outcome<Composed> editEmail(Desk& desk, Id task);

}  // namespace autonotify::host
