#pragma once

#include <optional>
#include <string>
#include <utility>

#include "Reply.h"
#include "RowPrinter.h"
#include "TextTable.h"
#include "host/desk/Outcome.h"
#include "host/desk/rows/Notification.h"
#include "host/desk/work/send_notification.h"

namespace autonotify::console {

/// "there is no task 12", "task 12: the database is locked"
std::string wordsOf(const host::Refused& refused);

/// What a use case did. Throws Refusal when it did nothing.
template <class Done>
Done doneOrRefuse(host::Outcome<Done> outcome) {
  if (!outcome) throw Refusal(wordsOf(outcome.refused()));
  return *std::move(outcome);
}

/// Shows a list; what of it could not be read is named on standard error. False when it has
/// neither.
bool showList(Reply& reply, const TextTable& table, const host::UnreadableRows& unreadable);

/// The reply to a list whose rows `printer` has printed; `none` stands for an empty one.
Reply endList(RowPrinter& printer, const char* none, const host::UnreadableRows& unreadable);

/// Says on standard error where dates of the two days' years are counted without holidays.
void warnOfHolidays(host::Desk& desk, DateTime first, DateTime last, Reply& reply);

/// ", which is past: it is due at once" behind a past date; empty behind others.
std::string pastNote(bool isPast);

/// A notification's channel, state and date; `note` stands behind the date.
Reply rowReply(host::Desk& desk, const host::Notification& row, const std::string& note = {});

/// The day for programs: null for the zero date.
Json dayJson(DateTime moment);
/// The same with its time.
Json momentJson(DateTime moment);
/// Null for an empty text, so that a table shows a dash.
Json textJson(const std::string& text);
/// "Client:         Jo Smith", a line of several with values below each other.
std::string labelled(const char* name, const std::string& value);
std::string withLineEnd(std::string text);
/// "Jo Smith, Personal Tax Return"; empty when it is not there.
std::string aboutOf(const std::optional<host::NotificationSubject>& subject);
/// The channels of a bit set by name.
Json channelList(int bits);

}  // namespace autonotify::console
