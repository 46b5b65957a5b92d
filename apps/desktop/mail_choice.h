#pragma once

#include <QString>
#include <memory>

#include "host/desk/Desk.h"

namespace autonotify::desktop {

/// How notifications go out from this machine: emails are opened in the desktop's mail program,
/// sent through a mail server, or else left in the outbox folder; letters and faxes are filed.
struct MailChoice {
  bool toProgram = false;
  /// Empty for none.
  QString server;
  QString passwordFile;
  /// Empty for the one beside a database file.
  QString outbox;
  /// Where letters and faxes are filed; empty for the one beside a database file.
  QString documents;
  /// Emails are plain text alone.
  bool isPlain = false;
};

MailChoice chosenMail();
void chooseMail(const MailChoice& choice);

/// The desk of a window, whose emails go out as it was chosen. The folders of `options` come
/// before the chosen ones. Throws what Desk throws, and MailError.
std::unique_ptr<host::Desk> makeDesk(const host::DeskOptions& options,
                                     const host::DeskDialogs& dialogs);

}  // namespace autonotify::desktop
