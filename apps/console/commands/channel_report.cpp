#include "commands/channel_report.h"

#include <fmt/format.h>

#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

using host::ChannelFate;
using host::ChannelOutcome;

const char* resultOf(ChannelFate fate) {
  switch (fate) {
    case ChannelFate::armed:
      return "armed";
    case ChannelFate::alreadyArmed:
      return "already armed";
    default:
      return "disarmed";
  }
}

/// Why nothing was done.
std::string refusalOf(const ChannelOutcome& outcome) {
  const auto row = [&] {
    return fmt::format("notification {}{} {}", outcome.notification,
                       outcome.fate == ChannelFate::settled ? " of this channel" : "",
                       stateWords(stateOf(*outcome.row)));
  };
  switch (outcome.fate) {
    case ChannelFate::settled:
      return row() + "; disarm it first";
    case ChannelFate::mayBeSent:
      return row() + "; --force deletes its record";
    case ChannelFate::notArmed:
      return "not armed";
    case ChannelFate::nothingAdded:
      return "nothing was added";
    case ChannelFate::notMarked:
      return "it could not be marked";
    case ChannelFate::atWorkElsewhere:
      return wordsOf({host::Refused::Why::atWorkElsewhere,
                      subjectOf(host::WorkItem::notification, outcome.notification)});
    case ChannelFate::notThere:
      return "it was deleted meanwhile";
    default:
      return outcome.errors;
  }
}

void report(Reply& reply, host::Desk& desk, const Json& identity, const ChannelOutcome& outcome) {
  const std::string channel = host::channelName(outcome.channel);
  const char* result = resultOf(outcome.fate);
  const auto& row = outcome.row;
  reply.text += fmt::format("{:<7} {}", channel, result);
  Json data = identity;
  data["channel"] = channel;
  data["result"] = result;
  data["notification"] = outcome.notification;
  data["date"] = row ? dayJson(row->date) : Json();
  if (row) {
    const bool isPast = host::isOverdue(desk, *row);
    const std::string missing = host::missingParts(*row);
    reply.text +=
        fmt::format(": notification {}, to be sent {}{}{}", row->id, host::dayText(row->date),
                    pastNote(isPast), missing.empty() ? "" : "; it lacks " + missing);
    data["past"] = isPast;
    data["lacks"] = missing;
  }
  reply.text += "\n";
  reply.data.push_back(std::move(data));
}

}  // namespace

Reply reportChannels(host::Desk& desk, const std::string& subject, const Json& identity,
                     std::span<const ChannelOutcome> channels) {
  Reply reply;
  reply.data = Json::array();
  for (const ChannelOutcome& outcome : channels) {
    if (outcome.isDone()) {
      report(reply, desk, identity, outcome);
    } else {
      reply.refuse(fmt::format("{}, {}: {}", subject, host::channelName(outcome.channel),
                               refusalOf(outcome)));
    }
  }
  return reply;
}

}  // namespace autonotify::console
