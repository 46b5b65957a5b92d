#pragma once

#include <memory>
#include <optional>
#include <string>

#include "contract/enumerations.h"
#include "host/desk/rows/DiaryItem.h"

namespace autonotify::host {

/// Something whose notifications are armed channel by channel: a task, or an item of the diary.
class Armable {
 public:
  virtual ~Armable() = default;

  /// "task 12"
  virtual std::string subject() const = 0;
  virtual WorkItem claimedAs() const = 0;
  virtual Id claimedId() const = 0;
  /// The channels that are marked now; unset when the thing is not there.
  virtual std::optional<int> channels() = 0;
  /// The row of the channel, or -1.
  virtual Id findRow(notifyType channel) = 0;
  /// Gives the new row, or -1.
  virtual Id addRow(notifyType channel) = 0;
  /// False when the thing is not there.
  virtual bool mark(notifyType channel, changeStatus change) = 0;
};

std::unique_ptr<Armable> armableTask(Desk& desk, Id id);
/// `date` is when a new reminder falls due; that of a task follows its own due date.
std::unique_ptr<Armable> armableItem(Desk& desk, const DiaryItem& item, DateTime date);

}  // namespace autonotify::host
