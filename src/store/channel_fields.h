#pragma once

#include "contract/recordsets.h"

namespace autonotify {

/// Copies the six channel fields of the old row that hold anything to the current row of `newRow`,
/// a notification of `channel`, except its subject. Nothing is copied for an id that cannot be one,
/// and no stamp is written.
void copyChannelFields(Step& step, RecordsetHandle newRow, Id channel, Id oldNotificationId);

}  // namespace autonotify
