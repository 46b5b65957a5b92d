#include "outcome_words.h"

#include <fmt/format.h>

#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/firm_holidays.h"
#include "platform/date_time_text.h"

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

Reply endList(RowPrinter& printer, const char* none, const host::UnreadableRows& unreadable) {
  Reply reply;
  reply.isDataPrinted = true;
  if (!printer.end() && unreadable.empty()) reply.refuse(none);
  for (const host::UnreadableRow& row : unreadable) reply.refuse(row.description());
  return reply;
}

void warnOfHolidays(host::Desk& desk, DateTime first, DateTime last, Reply& reply) {
  if (const auto year = host::yearWithoutHolidays(desk, first, last))
    reply.complaints.push_back(
        fmt::format("{} has no holidays yet: its dates pass over weekends alone (see: hvnotify "
                    "holidays --help)",
                    *year));
}

std::string pastNote(bool isPast) {
  return isPast ? ", which is past: it is due at once" : "";
}

Reply rowReply(host::Desk& desk, const host::Notification& row, const std::string& note) {
  const std::string channel = host::channelName(row.channel);
  const std::string state = stateName(stateOf(row));
  Reply reply;
  reply.text = fmt::format("notification {} by {}: {}, date {}{}{}\n", row.id, channel, state,
                           host::dayText(row.date), pastNote(host::isOverdue(desk, row)), note);
  reply.data = {{"notification", row.id},
                {"channel", channel},
                {"state", state},
                {"date", dayJson(row.date)}};
  return reply;
}

Json textJson(const std::string& text) {
  return text.empty() ? Json() : Json(text);
}

Json dayJson(DateTime moment) {
  return moment.isZero() ? Json() : Json(host::dayText(moment));
}

Json momentJson(DateTime moment) {
  return moment.isZero() ? Json() : Json(dateTimeText(moment));
}

std::string labelled(const char* name, const std::string& value) {
  const std::string label = std::string(name) + ":";
  return value.empty() ? label + "\n" : fmt::format("{:<15} {}\n", label, value);
}

std::string withLineEnd(std::string text) {
  if (!text.empty() && text.back() != '\n') text += '\n';
  return text;
}

std::string aboutOf(const std::optional<host::NotificationSubject>& subject) {
  return subject ? subject->client + ", " + subject->item : std::string();
}

Json channelList(int bits) {
  Json names = Json::array();
  for (const notifyType channel : allNotifyTypes) {
    if (bits & channel) names.push_back(host::channelName(channel));
  }
  return names;
}

}  // namespace autonotify::console
