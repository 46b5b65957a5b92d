#pragma once

#include "contract/procedure.h"
#include "platform/Value.h"

namespace autonotify {

/// Sends the email of the notification as it stands in the database, with no window before it. A
/// send that failed shows the email program's own words; of a notification that is gone nothing is
/// told.
void sendStraight(Step& step, Id notification);

}  // namespace autonotify
