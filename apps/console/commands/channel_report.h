#pragma once

#include <span>
#include <string>

#include "Reply.h"
#include "host/desk/work/arm_channels.h"

namespace autonotify::console {

/// What became of each channel of `subject`, which programs know by `identity`: {"task": 12}.
Reply reportChannels(host::Desk& desk, const std::string& subject, const Json& identity,
                     std::span<const host::ChannelOutcome> channels);

}  // namespace autonotify::console
