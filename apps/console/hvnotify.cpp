#include <unistd.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "Command.h"
#include "TerminalDesk.h"
#include "commands/arguments.h"
#include "host/clients/unreadable_rows.h"
#include "host/dialogs/Terminal.h"
#include "host/mail/smtp.h"
#include "memory_reserve.h"
#include "platform/text.h"
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
  addText(app, "--firm-code", "CODE", "the installation's firm code", options.firmCode);
  app.add_flag("--json", options.json, "print data as JSON");
  app.add_flag("--batch", options.batch, "ask nobody, even on a terminal");
}

std::unique_ptr<TerminalDesk> openDesk(const GlobalOptions& options) {
  try {
    return std::make_unique<TerminalDesk>(options);
  } catch (const host::DatabaseError& error) {
    const bool isMissing = error.number() == host::database_error::missing;
    throw databaseRefusal(options.database, error, isMissing ? "; hvnotify init makes one" : "");
  }
}

void complain(std::string message) {
  for (char& c : message) {
    if (c == '\n' || c == '\r' || c == '\t') c = ' ';
  }
  std::cerr << "hvnotify: " << host::terminalText(message) << '\n';
}

Reply run(const Command& command, const GlobalOptions& options, const Arguments& arguments) {
  if (command.runAlone) return command.runAlone(options, arguments);
  const std::string warning = host::passwordFileWarning(options.mailPasswordFile);
  if (!options.mailServer.empty() && !warning.empty()) complain(warning);
  return command.run(*openDesk(options), arguments);
}

/// Within JSON the characters that a terminal would obey can only stand in texts.
std::string jsonText(const Json& data) {
  const std::string text = data.dump(2, ' ', false, Json::error_handler_t::replace);
  return replaceAll(replaceAll(text, "\x7F", "\\u007f"), "\xC2\x9B", "\\u009b") + "\n";
}

int print(const Reply& reply, bool asJson) {
  if (asJson) {
    std::cout << jsonText(reply.data);
  } else {
    std::cout << host::terminalText(reply.text)
              << (isatty(STDOUT_FILENO) ? host::terminalText(reply.document) : reply.document);
  }
  const bool written = static_cast<bool>(std::cout.flush());
  for (const std::string& complaint : reply.complaints) complain(complaint);
  if (!written) {
    complain("cannot write the output");
    return exitRefused;
  }
  return reply.exitCode;
}

int fail(const std::string& message, ExitCode code) {
  complain(message);
  return code;
}

/// The command that the command line names is left in `chosen`.
void addCommands(CLI::App& app, Arguments& arguments, const Command*& chosen) {
  for (const Command& command : allCommands()) {
    CLI::App* subcommand = app.add_subcommand(command.name, command.help);
    subcommand->footer("Options of all commands: hvnotify --help");
    command.describe(*subcommand, arguments);
    subcommand->final_callback([&chosen, &command] { chosen = &command; });
  }
}

int runProgram(int argc, char** argv) {
  GlobalOptions options;
  Arguments arguments;
  CLI::App app("Notices that an accounting firm owes its clients: when, in which words, and sent.",
               "hvnotify");
  app.require_subcommand(1);
  app.fallthrough();
  app.footer(usageNotes());
  app.set_version_flag("--version", HVNOTIFY_VERSION);
  addGlobalOptions(app, options);
  const Command* chosen = nullptr;
  addCommands(app, arguments, chosen);
  try {
    app.parse(argc, argv);
    return print(run(*chosen, options, arguments), options.json);
  } catch (const CLI::Success& wish) {
    return app.exit(wish);
  } catch (const CLI::ParseError& error) {
    return fail(usageFault(app, error), exitUsage);
  }
}

/// Whatever ends the program early is told in one line.
int runGuarded(int argc, char** argv) try {
  try {
    return runProgram(argc, argv);
  } catch (const Refusal& refusal) {
    return fail(refusal.what(), refusal.code());
  } catch (const host::UnreadableRow& row) {
    return fail(row.description(), exitRefused);
  } catch (const PlatformError& error) {
    return fail(host::firstLine(error.description()), exitDatabase);
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    return fail(error.what(), exitRefused);
  }
} catch (const std::bad_alloc&) {
  // Telling it must not allocate.
  std::cerr << "hvnotify: there is not enough memory\n";
  return exitDatabase;
}

}  // namespace
}  // namespace autonotify::console

int main(int argc, char** argv) {
  autonotify::console::keepMemoryReserve();
  return autonotify::console::runGuarded(argc, argv);
}
