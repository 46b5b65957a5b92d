#pragma once

#include <QString>
#include <memory>

#include "host/desk/Desk.h"

namespace autonotify::desktop {

/// How emails go out from this machine: they are opened in the desktop's mail program, sent through
/// a mail server, or else left in the outbox folder.
struct MailChoice {
  bool toProgram = false;
  /// Empty for none.
  QString server;
  QString passwordFile;
  /// Empty for the one beside a database file.
  QString outbox;
};

MailChoice chosenMail();
void chooseMail(const MailChoice& choice);

/// The desk of a window, whose emails go out as it was chosen. An outbox of `options` comes before
/// the chosen one. Throws what Desk throws, and MailError.
std::unique_ptr<host::Desk> makeDesk(const host::DeskOptions& options,
                                     const host::DeskDialogs& dialogs);

}  // namespace autonotify::desktop
