#include "outcome_words.h"

#include <fmt/format.h>

#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"

namespace autonotify::console {

std::string wordsOf(const host::Refused& refused) {
  using Why = host::Refused::Why;
  switch (refused.why) {
    case Why::notThere:
      return "there is no " + refused.subject;
    case Why::atWorkElsewhere:
      return fmt::format("another desk is at work on {}; try again later", refused.subject);
    case Why::failed:
      break;
  }
  return refused.subject + ": " + refused.errors;
}

bool showList(Reply& reply, const TextTable& table, const host::UnreadableRows& unreadable) {
  if (!table.isEmpty()) reply.text = table.toText();
  for (const host::UnreadableRow& row : unreadable) reply.refuse(row.description());
  return !table.isEmpty() || !unreadable.empty();
}

std::string pastNote(host::Desk& desk, const host::Notification& row) {
  return host::isOverdue(desk, row) ? ", which is past: it is due at once" : "";
}

Json dayJson(DateTime moment) {
  return moment.isZero() ? Json() : Json(host::dayText(moment));
}

Json channelList(int bits) {
  Json names = Json::array();
  for (const notifyType channel : allNotifyTypes) {
    if (bits & channel) names.push_back(host::channelName(channel));
  }
  return names;
}

}  // namespace autonotify::console
