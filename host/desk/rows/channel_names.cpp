#include "host/desk/rows/channel_names.h"

#include <fmt/format.h>

namespace autonotify::host {
namespace {

struct ChannelName {
  notifyType channel;
  const char* name;
};
constexpr ChannelName names[] = {
    {nt_Email, "email"}, {nt_Fax, "fax"}, {nt_Letter, "letter"}, {nt_Phone, "phone"}};

}  // namespace

std::string channelName(int channel) {
  const ChannelName* row = findChannel(names, channel);
  return row ? row->name : fmt::format("channel {}", channel);
}

std::string channelNames(int bits) {
  std::string joined;
  for (const ChannelName& row : names) {
    if (bits & row.channel) joined += (joined.empty() ? "" : ",") + std::string(row.name);
  }
  return joined.empty() ? "-" : joined;
}

}  // namespace autonotify::host
