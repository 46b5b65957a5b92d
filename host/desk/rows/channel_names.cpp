#include "host/desk/rows/channel_names.h"

#include <fmt/format.h>

#include "host/words/Words.h"

namespace autonotify::host {
namespace {

struct ChannelName {
  notifyType channel;
  const char* name;
};
constexpr ChannelName names[] = {{nt_Email, Words::later("email")},
                                 {nt_Fax, Words::later("fax")},
                                 {nt_Letter, Words::later("letter")},
                                 {nt_Phone, Words::later("phone")}};

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
