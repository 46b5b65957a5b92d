#pragma once

#include "bulk/bulk_choice.h"

namespace autonotify {

/// Keeps the choice as the client's row of `ClientScheduleAutoNotifications`, which is added when
/// there is none. Nothing happens for a client without an id, and with the database closed.
void saveNotificationsTypes(const BulkClient& client, const BulkChoice& choice);

}  // namespace autonotify
