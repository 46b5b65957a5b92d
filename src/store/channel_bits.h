#pragma once

#include <string>

#include "contract/enumerations.h"
#include "contract/rows.h"
#include "store/modNotifyClients.h"

// The set of channel bits that a schedule entry or a diary item keeps in its column `notifyType`.

namespace autonotify {

bool hasBit(int bits, notifyType channel);
/// True for exactly one of the four channels.
bool isOneChannel(notifyType channel);

/// Sets (nt_AddStatus) or clears (anything else) the channel's bit of the current row. When
/// something changes, `stampColumn` is written first, if there is one.
void changeBit(const Row& row, notifyType channel, changeStatus change,
               const char* stampColumn = nullptr);

/// True when the row that the statement selects for the id has the channel's bit and `findRow()`
/// gives a notification. A bit without one is stale, and `clearBit()` is called.
template <class FindRow, class ClearBit>
bool readStatus(Step& step, const std::string& statement, Id id, notifyType channel,
                FindRow&& findRow, ClearBit&& clearBit) {
  int bits = 0;
  if (Rows row(step, statement, id, keysetRead); row) bits = row.id("notifyType", 0);
  if (!isOneChannel(channel) || !hasBit(bits, channel)) return false;
  if (isValidNotificationID(std::to_string(findRow()))) return true;
  clearBit();
  return false;
}

}  // namespace autonotify
