#pragma once

#include <algorithm>
#include <iterator>
#include <string>

#include "contract/enumerations.h"

namespace autonotify::host {

/// "email", "fax", "letter" or "phone".
std::string channelName(int channel);
/// The channels of a bit set, joined by commas; "-" for none.
std::string channelNames(int bits);

/// The row of a table for the channel; null for none.
template <class Row, std::size_t size>
const Row* findChannel(const Row (&table)[size], int channel) {
  const Row* found =
      std::ranges::find_if(table, [&](const Row& row) { return row.channel == channel; });
  return found == std::end(table) ? nullptr : found;
}

}  // namespace autonotify::host
