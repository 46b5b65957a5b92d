#pragma once

#include "contract/rows.h"

namespace autonotify {

/// Copies the six channel fields of the old row that hold anything to the new row, a notification
/// of `channel`, except its subject. Nothing is copied for an id that cannot be one, and no stamp
/// is written.
void copyChannelFields(const Row& newRow, Id channel, Id oldNotificationId);

}  // namespace autonotify
