#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/desk/rows/Notification.h"
#include "host/desk/work/client_contacts.h"

namespace autonotify::host {

/// A notification as people see it in a list, without its text.
struct NotificationLine {
  Notification row;
  std::string client;
  std::string item;
  /// Members of staff: whose work the item is, and who sent the notification.
  std::string assigned;
  std::string sentBy;
};

/// Where a notification may stand, as it is typed. Each row is unsent, sent or cancelled.
struct NotificationStanding {
  const char* word;
  const char* condition;
  /// Of those only what is due.
  bool isDue = false;
};
std::span<const NotificationStanding> notificationStandings();
const NotificationStanding& notificationStanding(std::string_view word);

/// What a list may go by, as it is typed.
struct NotificationOrder {
  const char* word;
  std::string term;
};
std::span<const NotificationOrder> notificationOrders();
const NotificationOrder& notificationOrder(std::string_view word);

/// Which notifications, in which order; what is not set does not matter.
struct NotificationQuery {
  const NotificationStanding* standing = nullptr;
  std::vector<notifyType> channels = {};
  /// A company or a contact.
  std::optional<Client> client = std::nullopt;
  /// The name of who does the work, in any case.
  std::string assigned = {};
  /// Days of the notification, both included. What is due is so by `until`, or else today.
  std::optional<DateTime> from = std::nullopt;
  std::optional<DateTime> until = std::nullopt;
  /// By date when unset; the key makes the order complete.
  const NotificationOrder* order = nullptr;
  bool descending = false;
  std::optional<std::size_t> limit = std::nullopt;
};

/// Calls `show` for each line, reading as it goes: the number of lines costs no memory but their
/// ids'. Gives the rows that were passed over. A notification with a date that is none has an
/// unknown day, and may be any. Throws DatabaseError.
UnreadableRows listNotifications(Desk& desk, const NotificationQuery& query,
                                 const std::function<void(const NotificationLine&)>& show);

}  // namespace autonotify::host
