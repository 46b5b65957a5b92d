#pragma once

#include <string>

#include "Reply.h"
#include "Session.h"
#include "host/desk/claims.h"

namespace autonotify::console {

struct Arguments;

/// Something whose notifications are armed channel by channel: a task, or an item of the diary.
class Armable {
 public:
  explicit Armable(Session& opened) : session(opened) {}
  virtual ~Armable() = default;

  /// "task 12"
  virtual std::string words() const = 0;
  /// What programs are told it is: {"task": 12}.
  virtual Json identity() const = 0;
  virtual host::WorkItem claim() const = 0;
  virtual Id claimId() const = 0;
  /// The channels that are marked now. Throws Refusal when the thing does not exist.
  virtual int channels() = 0;
  /// The row of the channel, or -1.
  virtual Id findRow(notifyType channel) = 0;
  /// Gives the new row, or -1.
  virtual Id addRow(notifyType channel) = 0;
  virtual bool mark(notifyType channel, changeStatus change) = 0;

 protected:
  Session& session;
};

/// Adds the notifications of the channels asked for and marks the item. A channel that is armed
/// already stays as it is; one whose row lost its bit to an interrupted run gets it back.
Reply armChannels(Session& session, Armable& item, const Arguments& arguments);

/// Deletes the rows and clears the bits. A row that was sent is only deleted with --force.
Reply disarmChannels(Session& session, Armable& item, const Arguments& arguments);

}  // namespace autonotify::console
