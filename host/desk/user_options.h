#pragma once

#include "host/desk/Desk.h"

namespace autonotify::host {

// What the user of a desk has chosen; the component reads it in the same place. All throw
// DatabaseError.

/// Whether a message confirms each notification that is scheduled; False before it was chosen.
bool confirmsScheduling(Desk& desk);
void setConfirmsScheduling(Desk& desk, bool confirms);

/// Whether the wizard asks before a scheduled notification is cancelled; False before it was
/// chosen.
bool asksBeforeCancelling(Desk& desk);
void setAsksBeforeCancelling(Desk& desk, bool asks);

}  // namespace autonotify::host
