#pragma once

#include "host/desk/Desk.h"

namespace autonotify::desktop {

/// Sends like the desk does, and shows meanwhile that the program is waiting: the pointer is busy,
/// and the windows are painted though nothing can be done in them. What was sent but could not be
/// put aside is told.
class WaitingSender : public host::OutboxEmailSender {
 public:
  explicit WaitingSender(host::OutboxEmailSender&& sender)
      : host::OutboxEmailSender(std::move(sender)) {}
  bool send() override;

  /// Makes the desk's emails go through one of these.
  static void registerAt(host::Desk& desk);
  /// What a mail server is waited for with.
  static void paintWindows();

 private:
  bool sendBusily();
};

}  // namespace autonotify::desktop
