#include "host/desk/work/note_call.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/desk/work/claiming.h"
#include "platform/date_time_text.h"
#include "platform/rich_text.h"
#include "platform/richtext/rich_text_edit.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr const char* noAnswerWords = "no answer";

/// "2026-04-15 14:05, Jo Miller: no answer; will be back on Monday"
std::string callLine(Desk& desk, CallResult result, const std::string& note) {
  const std::string now = dateTimeText(desk.clock().now());
  const std::string user = desk.clients().getUserNameFromID(desk.locale().getCurrentUserID());
  return fmt::format("{}{}{}: {}{}{}", now, user.empty() ? "" : ", ", user,
                     result == CallResult::made ? "called" : noAnswerWords,
                     note.empty() ? "" : "; ", note);
}

std::string lastLine(const std::string& memo) {
  const std::string text(trim(plainTextOf(memo)));
  return text.substr(text.find_last_of("\r\n") + 1);
}

std::string withParagraph(const std::string& memo, const std::string& line) {
  if (!isRichText(memo)) return memo + (memo.empty() || memo.back() == '\n' ? "" : "\r\n") + line;
  RichText text = readRichText(memo);
  const CharacterFormat look = characterFormatAt(text, lengthOf(text));
  append(text, richTextOf((text.paragraphs.back().isEmpty() ? "" : "\n") + line, look));
  return writeRichText(text);
}

bool waitsFor(CallResult result, NotificationState state) {
  return state == NotificationState::pending ||
         (state == NotificationState::interruptedSending && result == CallResult::made);
}

CallFate fateOf(const Notification& row, CallResult result) {
  if (row.channel != nt_Phone) return CallFate::noCall;
  return waitsFor(result, stateOf(row)) ? CallFate::noted : CallFate::settled;
}

}  // namespace

std::optional<Notification> findWaitingCall(Desk& desk, Id task) {
  for (const Notification& row : readNotificationsOf(desk, task).rows) {
    if (fateOf(row, CallResult::made) == CallFate::noted) return findNotification(desk, row.id);
  }
  return std::nullopt;
}

bool wasNotReached(const std::string& memo) {
  const std::string line = lastLine(memo);
  const std::string::size_type result = line.find(fmt::format(": {}", noAnswerWords));
  const std::string moment = line.substr(0, std::min(result, line.find(',')));
  return result != line.npos && parseDateTime(moment);
}

Outcome<NotedCall> noteCall(Desk& desk, Id id, CallResult result, const std::string& note) {
  const auto claimed = claimNotification(desk, id);
  if (!claimed) return claimed.refused();
  const CallFate fate = fateOf(claimed->row, result);
  if (fate != CallFate::noted) return NotedCall{claimed->row, fate};

  const std::string subject = subjectOf(WorkItem::notification, id);
  const std::string line = callLine(desk, result, note);
  const std::string text = withParagraph(claimed->row.memo, line);
  const auto write = [&] { desk.control().cls_editPhoneNotification(id, {}, {}, {}, text); };
  if (auto refused = tellComponent(desk, subject, write)) return *std::move(refused);
  const auto mark = [&] { desk.tools().changeNotificationToSent(id); };
  if (result == CallResult::made)
    if (auto refused = tellComponent(desk, subject, mark)) return *std::move(refused);
  auto row = requireNotification(desk, id);
  if (!row) return row.refused();
  return NotedCall{*std::move(row), CallFate::noted, line};
}

}  // namespace autonotify::host
