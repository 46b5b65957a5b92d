#pragma once

#include <memory>
#include <vector>

#include "host/desk/Desk.h"

namespace autonotify::host {

/// Stands in DocketIDNum of a notification, which leads to no time entry then, from its first
/// moment until the person who writes it is done with it: such a row does not go out. One whose
/// window was closed otherwise, or died, is removed.
inline constexpr Id unfinishedLink = -2;

/// What went out from such a window, or may have, stays as a record that belongs to no task, so
/// that nothing that is done with the task's notifications meets it:
/// OperatingProcedureIDNum leads to no procedure then, but tells which task it was about.
Id linkOfSent(Id scheduleId);
/// The task of such a link; noId for any other.
Id taskOfSent(Id link);

/// While it lives, each notification that is added belongs to a window in which a person writes it.
/// Storing its date, which the window does last of all, finishes it. What the window deletes stays
/// if it went out, or may have: of an email the outbox tells; a fax or letter is marked sent only
/// after its document was closed, which deletes its row, so that one is kept until the end.
class UnfinishedRows {
 public:
  explicit UnfinishedRows(Desk& desk);
  /// Removes those that nobody has finished.
  ~UnfinishedRows();
  UnfinishedRows(const UnfinishedRows&) = delete;
  UnfinishedRows& operator=(const UnfinishedRows&) = delete;

  /// Whether one of them is there that nobody has finished. Throws DatabaseError.
  bool areLeft() const;
  /// Marks those that nobody has finished as sent, where their window does not.
  void markSent();

 private:
  void mark(RecordsetHandle handle, Id key);
  void finish(RecordsetHandle handle);
  bool keepSent(RecordsetHandle handle);
  bool keepEmail(RecordsetHandle handle);

  Desk& desk_;
  std::vector<Id> ids_;
  std::vector<std::unique_ptr<Claim>> claims_;
};

/// Removes the unfinished rows that no desk works on any more. One whose email went out stays as a
/// record, and so does one of which that cannot be known, for a person to settle. What fails is
/// left to the next time.
void removeUnfinished(Desk& desk);

}  // namespace autonotify::host
