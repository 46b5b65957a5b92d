#include "commands/armable.h"

#include <fmt/format.h>

#include "Arguments.h"
#include "notifications.h"

namespace autonotify::console {
namespace {

/// What became of one channel.
struct Outcome {
  Id notification = noId;
  std::string result;
  /// Why nothing was done; empty when all is well.
  std::string refusal;
};

Outcome refused(Id notification, std::string why) {
  return {notification, {}, std::move(why)};
}

/// The outcome with `result`, once the item's bit says the same.
Outcome setBit(Session& session, Armable& item, Id notification, notifyType channel,
               changeStatus change, const char* result) {
  bool done = false;
  const std::string errors = session.errorsOf([&] { done = item.mark(channel, change); });
  if (!errors.empty()) return refused(notification, errors);
  if (!done) return refused(notification, "it could not be marked");
  return {notification, result, {}};
}

/// Adds the row and sets the bit. A row during whose making an error was met is taken back: it may
/// lack its text or its recipient. So is one that another program was quicker to make.
Outcome armAnew(Session& session, Armable& item, notifyType channel) {
  Id added = noId;
  const std::string errors = session.errorsOf([&] { added = item.addRow(channel); });
  if (added < 0) return refused(noId, errors.empty() ? "nothing was added" : errors);
  const Id first = item.findRow(channel);
  if (!errors.empty() || first != added) session.control().cls_deleteNotification(added);
  if (!errors.empty()) return refused(noId, errors);
  return setBit(session, item, first, channel, nt_AddStatus,
                first == added ? "armed" : "already armed");
}

Outcome armChannel(Session& session, Armable& item, notifyType channel) {
  const bool isMarked = (item.channels() & channel) != 0;
  const Id existing = item.findRow(channel);
  if (existing < 0) return armAnew(session, item, channel);
  const NotificationState state = stateOf(loadNotification(session, existing));
  if (state != NotificationState::pending) {
    return refused(existing, fmt::format("notification {} of this channel {}; disarm it first",
                                         existing, stateWords(state)));
  }
  return setBit(session, item, existing, channel, nt_AddStatus,
                isMarked ? "already armed" : "armed");
}

Outcome disarmChannel(Session& session, Armable& item, notifyType channel, bool force) {
  const bool isMarked = (item.channels() & channel) != 0;
  const Id existing = item.findRow(channel);
  if (existing < 0 && !isMarked) return refused(noId, "not armed");
  if (existing >= 0) {
    const auto claim = claimItem(session, host::WorkItem::notification, existing);
    const NotificationState state = stateOf(loadNotification(session, existing));
    const bool mayBeSent =
        state == NotificationState::sent || state == NotificationState::interruptedSending;
    if (mayBeSent && !force) {
      return refused(existing, fmt::format("notification {} {}; --force deletes its record",
                                           existing, stateWords(state)));
    }
    const std::string errors =
        session.errorsOf([&] { session.control().cls_deleteNotification(existing); });
    if (!errors.empty()) return refused(existing, errors);
  }
  return setBit(session, item, existing, channel, nt_RemoveStatus, "disarmed");
}

/// The field without which a channel cannot reach anyone.
struct AddressField {
  notifyType channel;
  int field;
  const char* words;
};
constexpr AddressField addressFields[] = {
    {nt_Email, Notification::emailTo, "an email address"},
    {nt_Fax, Notification::faxNumber, "a fax number"},
    {nt_Phone, Notification::phoneNumber, "a telephone number"},
};

/// What the row still lacks: "an email address"; empty for nothing.
std::string missingAddress(const Notification& row) {
  const AddressField* needed = findChannel(addressFields, row.channel);
  return needed && row.fields[needed->field].empty() ? needed->words : "";
}

void report(Reply& reply, Session& session, const Armable& item, notifyType channel,
            const Outcome& outcome) {
  const auto row = findNotification(session, outcome.notification);
  reply.text += fmt::format("{:<7} {}", channelName(channel), outcome.result);
  Json data = item.identity();
  data["channel"] = channelName(channel);
  data["result"] = outcome.result;
  data["notification"] = outcome.notification;
  data["date"] = row ? dayJson(row->date) : Json();
  if (row) {
    const std::string missing = missingAddress(*row);
    reply.text +=
        fmt::format(": notification {}, to be sent {}{}{}", row->id, dayText(row->date),
                    pastNote(session, *row), missing.empty() ? "" : "; it lacks " + missing);
    data["past"] = isOverdue(session, *row);
    data["lacks"] = missing;
  }
  reply.text += "\n";
  reply.data.push_back(std::move(data));
}

/// Runs `change` for each channel asked for and tells what became of it.
template <class Change>
Reply forEachChannel(Session& session, Armable& item, const Arguments& arguments, Change&& change) {
  Reply reply;
  reply.data = Json::array();
  const auto claim = claimItem(session, item.claim(), item.claimId());
  for (const notifyType channel : arguments.channels) {
    const Outcome outcome = change(channel);
    if (!outcome.refusal.empty()) {
      reply.exitCode = exitRefused;
      reply.complaints.push_back(
          fmt::format("{}, {}: {}", item.words(), channelName(channel), outcome.refusal));
      continue;
    }
    report(reply, session, item, channel, outcome);
  }
  return reply;
}

}  // namespace

Reply armChannels(Session& session, Armable& item, const Arguments& arguments) {
  return forEachChannel(session, item, arguments,
                        [&](notifyType channel) { return armChannel(session, item, channel); });
}

Reply disarmChannels(Session& session, Armable& item, const Arguments& arguments) {
  return forEachChannel(session, item, arguments, [&](notifyType channel) {
    return disarmChannel(session, item, channel, arguments.force);
  });
}

}  // namespace autonotify::console
