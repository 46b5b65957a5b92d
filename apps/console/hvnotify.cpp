#include <unistd.h>

#include <iostream>
#include <memory>

#include "Command.h"
#include "CommandLine.h"
#include "TerminalDesk.h"
#include "host/clients/unreadable_rows.h"
#include "host/dialogs/Terminal.h"
#include "host/mail/smtp.h"
#include "memory_reserve.h"
#include "platform/text.h"
#include "usage.h"

namespace autonotify::console {
namespace {

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

RowForm formOf(const Command& command, const GlobalOptions& options, const Arguments& arguments) {
  if (options.json && arguments.csv)
    throw Refusal(
        "--csv does not go with --json (see: hvnotify " + std::string(command.name) + " --help)",
        exitUsage);
  if (options.json) return RowForm::json;
  return arguments.csv ? RowForm::csv : RowForm::table;
}

Reply run(const Command& command, const GlobalOptions& options, const Arguments& arguments) {
  if (command.runAlone) return command.runAlone(options, arguments);
  const RowForm form = formOf(command, options, arguments);
  const std::string warning = host::passwordFileWarning(options.mailPasswordFile);
  if (!options.mailServer.empty() && !warning.empty()) complain(warning);
  const std::unique_ptr<TerminalDesk> desk = openDesk(options);
  return command.list ? command.list(*desk, arguments, form) : command.run(*desk, arguments);
}

int print(const Reply& reply, bool asJson) {
  if (asJson) {
    if (!reply.isDataPrinted) std::cout << jsonText(reply.data) << '\n';
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

int runProgram(int argc, char** argv) {
  CommandLine line;
  try {
    line.app.parse(argc, argv);
    return print(run(*line.chosen, line.options, line.arguments), line.options.json);
  } catch (const CLI::Success& wish) {
    return line.app.exit(wish);
  } catch (const CLI::ParseError& error) {
    return fail(usageFault(line.app, error), exitUsage);
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
  tellNoMemory();
  return exitDatabase;
}

}  // namespace
}  // namespace autonotify::console

int main(int argc, char** argv) {
  autonotify::console::keepMemoryReserve();
  return autonotify::console::runGuarded(argc, argv);
}
