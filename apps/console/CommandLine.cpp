#include "CommandLine.h"

#include <fmt/format.h>

#include "Command.h"
#include "commands/arguments.h"
#include "host/desk/databases.h"
#include "host/loader/ComponentLibrary.h"
#include "usage.h"

namespace autonotify::console {
namespace {

void addGlobalOptions(CLI::App& app, GlobalOptions& options) {
  addText(app, "--database", "PLACE",
          "the database: a file, or postgresql://... (default: hvnotify.db)", options.database)
      ->envname("HVNOTIFY_DATABASE");
  addDate(app, "--today", "the date to work with, such as 2026-04-30", options.today);
  addNumber(app, "--user", "who works: the id of a member of staff", options.user);
  addText(app, "--outbox", "FOLDER", "folder for emails (default: made beside the database)",
          options.outbox);
  addText(app, "--documents", "FOLDER",
          "folder for documents of clients (default: made beside the database)", options.documents)
      ->envname("HVNOTIFY_DOCUMENTS");
  addText(app, "--smtp", "URL",
          "send emails through this server: smtp://USER@HOST, smtps://... or smtp-plain://...",
          options.mailServer)
      ->envname("HVNOTIFY_SMTP");
  addText(app, "--smtp-password-file", "FILE", "holds the password for the mail server",
          options.mailPasswordFile)
      ->envname("HVNOTIFY_SMTP_PASSWORD_FILE");
  addNumber(app, "--smtp-timeout", "seconds to wait for a mail server that is silent (default: 60)",
            options.mailTimeout)
      ->envname("HVNOTIFY_SMTP_TIMEOUT");
  app.add_flag("--plain-mail", options.plainMail, "send emails as plain text alone")
      ->envname("HVNOTIFY_PLAIN_MAIL");
  addText(app, "--firm-code", "CODE", "the installation's firm code", options.firmCode);
  app.add_flag("--json", options.json, "print data as JSON");
  app.add_flag("--batch", options.batch, "ask nobody, even on a terminal");
}

void addCommands(CommandLine& line) {
  for (const Command& command : allCommands()) {
    CLI::App* subcommand = line.app.add_subcommand(command.name, command.help);
    subcommand->footer("Options of all commands: hvnotify --help");
    command.describe(*subcommand, line.arguments);
    subcommand->final_callback([&line, &command] { line.chosen = &command; });
  }
}

std::string componentText() {
  try {
    return host::ComponentLibrary::locate().string();
  } catch (const host::ComponentError& error) {
    return error.what();
  }
}

std::string versions() {
  return fmt::format("hvnotify {}\ncomponent: {}, {}\ndatabases: {}", HVNOTIFY_VERSION,
                     classObjectInterface, componentText(), host::databaseVersions());
}

}  // namespace

CommandLine::CommandLine()
    : app("Notices that an accounting firm owes its clients: when, in which words, and sent.",
          "hvnotify") {
  app.require_subcommand(1);
  app.fallthrough();
  app.footer(usageNotes());
  app.set_version_flag("--version", versions,
                       "Print the versions of program, component and databases, and exit");
  addGlobalOptions(app, options);
  addCommands(*this);
}

}  // namespace autonotify::console
