#pragma once

#include <optional>
#include <string>

#include "host/desk/Outcome.h"
#include "host/desk/rows/Notification.h"

namespace autonotify::host {

enum class CallResult { made, noAnswer };

/// What came of noting a call.
enum class CallFate {
  noted,
  /// The notification goes by another channel.
  noCall,
  /// It waits for no call: it is sent or cancelled, or was interrupted on the way.
  settled,
};

/// A notification by telephone, as it stands now.
struct NotedCall {
  Notification row;
  CallFate fate = CallFate::noted;
  /// What was written behind its text.
  std::string line = {};
};

/// The call about the task that waits, with all that is needed to make it; unset for none. Throws
/// DatabaseError.
std::optional<Notification> findWaitingCall(Desk& desk, Id task);

/// Whether the last thing that was noted behind the text is a call without an answer.
bool wasNotReached(const std::string& memo);

/// Notes that the client was called: a line behind the notification's text says when, by whom and
/// with what result, and `note` stands in it, if there is one. A call that was made is marked sent;
/// without an answer it stays due. The line comes first: a run that was killed between the two is
/// repeated with a second line, and nobody's note is lost.
Outcome<NotedCall> noteCall(Desk& desk, Id id, CallResult result, const std::string& note);

}  // namespace autonotify::host
