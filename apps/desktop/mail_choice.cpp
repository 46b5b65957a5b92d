#include "mail_choice.h"

#include <QSettings>

#include "DialogProgress.h"
#include "MailProgramSender.h"
#include "WaitingSender.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr const char* programKey = "mail/program";
constexpr const char* serverKey = "mail/server";
constexpr const char* passwordFileKey = "mail/passwordFile";
constexpr const char* outboxKey = "mail/outbox";
constexpr const char* documentsKey = "documents/folder";
constexpr const char* plainKey = "mail/plain";

std::optional<host::SmtpServer> serverOf(const MailChoice& choice) {
  if (choice.server.isEmpty()) return std::nullopt;
  return host::readSmtpServer(plain(choice.server), plain(choice.passwordFile));
}

}  // namespace

MailChoice chosenMail() {
  const QSettings settings;
  return {settings.value(programKey).toBool(),        settings.value(serverKey).toString(),
          settings.value(passwordFileKey).toString(), settings.value(outboxKey).toString(),
          settings.value(documentsKey).toString(),    settings.value(plainKey).toBool()};
}

void chooseMail(const MailChoice& choice) {
  QSettings settings;
  settings.setValue(programKey, choice.toProgram);
  settings.setValue(serverKey, choice.server);
  settings.setValue(passwordFileKey, choice.passwordFile);
  settings.setValue(outboxKey, choice.outbox);
  settings.setValue(documentsKey, choice.documents);
  settings.setValue(plainKey, choice.isPlain);
}

std::unique_ptr<host::Desk> makeDesk(const host::DeskOptions& options,
                                     const host::DeskDialogs& dialogs) {
  const MailChoice choice = chosenMail();
  host::DeskOptions all = options;
  if (all.outbox.empty()) all.outbox = plain(choice.outbox);
  if (all.documents.empty()) all.documents = plain(choice.documents);
  all.plainMail = all.plainMail || choice.isPlain;
  all.mailServer = serverOf(choice);
  if (all.mailServer) all.mailServer->whileWaiting = WaitingSender::paintWindows;
  auto desk = std::make_unique<host::Desk>(all, dialogs);
  desk->classes().registerClass<DialogProgress>();
  if (choice.toProgram) {
    desk->classes().registerClass<MailProgramSender>();
  } else {
    WaitingSender::registerAt(*desk);
  }
  return desk;
}

}  // namespace autonotify::desktop
