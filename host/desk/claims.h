#pragma once

#include <memory>
#include <string>

#include "host/database/RecordsetDatabase.h"
#include "platform/Value.h"

namespace autonotify::host {

/// What one desk works on at a time. Of print runs and of imports the `wholeFirm` has one, and of
/// its templates one changes at a time.
enum class WorkItem {
  notification = 1,
  task = 2,
  appointment = 3,
  timeEntry = 4,
  printRun = 5,
  templates = 6,
  dataImport = 7
};
inline constexpr Id wholeFirm = 0;

/// "time entry 12"
std::string subjectOf(WorkItem item, Id id);

/// Keeps all other desks off an item until it and all others of this desk on the item have gone.
/// It goes with its desk too, however that ends.
class Claim {
 public:
  virtual ~Claim() = default;
};

/// Claims of all desks at one database.
class Claims {
 public:
  virtual ~Claims() = default;
  /// Null when another desk has the item. Throws DatabaseError.
  virtual std::unique_ptr<Claim> tryTake(WorkItem item, Id id) = 0;
  /// The same, after a wait of up to two seconds.
  std::unique_ptr<Claim> take(WorkItem item, Id id);
};

/// The claims at an open database. For a file: locks on a file beside it, "firm.db.claims", where
/// the engine's own locks are, by whichever name the database was opened; it holds nothing and may
/// be deleted when no one is at work. On a server: its advisory locks, which end with the
/// connection.
std::unique_ptr<Claims> claimsOf(RecordsetDatabase& database);

}  // namespace autonotify::host
