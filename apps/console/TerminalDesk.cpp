#include "TerminalDesk.h"

#include <unistd.h>

#include <chrono>
#include <iostream>

#include "Reply.h"
#include "TerminalProgress.h"

namespace autonotify::console {
namespace {

/// Errors are shown and settled at a terminal; elsewhere every failed procedure is left and what
/// went wrong is reported with the command's result.
host::Terminal makeTerminal(const GlobalOptions& options) {
  const bool isInteractive = !options.batch && isatty(STDIN_FILENO) && isatty(STDERR_FILENO);
  return isInteractive ? host::Terminal{&std::cin, &std::cerr} : host::Terminal{};
}

std::optional<host::SmtpServer> mailServer(const GlobalOptions& options) {
  if (options.mailTimeout && *options.mailTimeout < 1)
    throw Refusal("--smtp-timeout is a number of seconds from 1 on", exitUsage);
  if (options.mailServer.empty()) return std::nullopt;
  try {
    std::optional<std::chrono::seconds> timeout;
    if (options.mailTimeout) timeout = std::chrono::seconds(*options.mailTimeout);
    return host::readSmtpServer(options.mailServer, options.mailPasswordFile, timeout);
  } catch (const host::MailError& error) {
    throw Refusal(error.what(), exitUsage);
  }
}

host::DeskOptions deskOptions(const GlobalOptions& options) {
  return {.database = options.database,
          .today = options.today,
          .user = options.user,
          .outbox = options.outbox,
          .documents = options.documents,
          .hints = {" (--outbox)", " (--documents)"},
          .firmCode = options.firmCode,
          .mailServer = mailServer(options),
          .plainMail = options.plainMail};
}

}  // namespace

TerminalDialogs::TerminalDialogs(const GlobalOptions& options) : terminal(makeTerminal(options)) {}

TerminalDesk::TerminalDesk(const GlobalOptions& options)
    : TerminalDialogs(options), Desk(deskOptions(options), {errors, messages, forms, &forms}) {
  classes().registerClass<TerminalProgress>();
}

}  // namespace autonotify::console
