#pragma once

#include <map>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "host/desk/rows/Task.h"

namespace autonotify::host {

/// What tasks had before a pass of the component over them: what was there stays, and what a failed
/// pass has added goes. Requires that no other desk works on the tasks.
class TasksBefore {
 public:
  /// Of each task the channels that the pass is for. Throws DatabaseError and UnreadableRow.
  TasksBefore(Desk& desk, const std::vector<Task>& tasks, std::span<const notifyType> channels);

  bool hasRow(Id task, notifyType channel) const { return armed_.contains({task, channel}); }
  /// Whether one of the tasks has a row of the channel.
  bool hasRows(notifyType channel) const;
  bool hasRow(Id notification) const { return rows_.contains(notification); }

  /// Marks the tasks for the rows that they have. An interrupted run may have lost a mark, and a
  /// pass would add a second row.
  void restoreMarks();
  /// Deletes the rows that were added, those that a task does not know of too, and clears the marks
  /// for channels that had no row. Throws DatabaseError and UnreadableRow.
  void takeBack();

 private:
  struct RowBefore {
    Id task;
    int channel;
  };
  using RowsById = std::map<Id, RowBefore>;

  RowsById readRows() const;

  Desk& desk_;
  std::vector<Id> tasks_;
  std::vector<notifyType> channels_;
  RowsById rows_;
  /// Of the channels of the pass.
  std::set<std::pair<Id, notifyType>> armed_;
};

/// While it lives, notifications that tasks had before go to whom they went, whatever is stored in
/// them: not for a moment to anyone else, so that nothing needs to be put back when the program
/// ends. `before` outlives it.
class KeptRecipients {
 public:
  KeptRecipients(Desk& desk, const TasksBefore& before);
  ~KeptRecipients() { desk_.setWatch({}); }
  KeptRecipients(const KeptRecipients&) = delete;
  KeptRecipients& operator=(const KeptRecipients&) = delete;

 private:
  Desk& desk_;
};

}  // namespace autonotify::host
