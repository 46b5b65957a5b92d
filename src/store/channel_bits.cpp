#include "store/channel_bits.h"

namespace autonotify {
namespace {

/// The bit set after the change; the same when there is nothing to change.
int changedBits(int bits, notifyType channel, changeStatus change) {
  if (!isOneChannel(channel)) return bits;
  if (change == nt_AddStatus) return hasBit(bits, channel) ? bits : bits + channel;
  return hasBit(bits, channel) ? bits - channel : bits;
}

}  // namespace

bool hasBit(int bits, notifyType channel) {
  return (bits & channel) != 0;
}

bool isOneChannel(notifyType channel) {
  return channel == nt_Email || channel == nt_Fax || channel == nt_Letter || channel == nt_Phone;
}

void changeBit(const Row& row, notifyType channel, changeStatus change, const char* stampColumn) {
  const int bits = row.id("notifyType", 0);
  const int changed = changedBits(bits, channel, change);
  if (changed == bits) return;
  if (stampColumn) row.write(stampColumn, nowText);
  row.write("notifyType", changed);
}

}  // namespace autonotify
