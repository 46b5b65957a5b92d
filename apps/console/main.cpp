#include <CLI/CLI.hpp>
#include <iostream>

#include "Command.h"
#include "Session.h"
#include "commands/arguments.h"

namespace autonotify::console {
namespace {

void addGlobalOptions(CLI::App& app, GlobalOptions& options) {
  app.add_option("--database", options.database, "the database file")->envname("HVNOTIFY_DATABASE");
  addDateOption(app, "--today", options.today, "the date to work with, such as 2026-04-30");
  app.add_option("--user", options.user, "who works: the id of a member of staff");
  app.add_option("--outbox", options.outbox, "folder for emails (default: beside the database)");
  app.add_option("--firm-code", options.firmCode, "the installation's firm code");
  app.add_flag("--json", options.json, "print data as JSON");
  app.add_flag("--batch", options.batch, "ask nobody, even on a terminal");
}

Reply run(const Command& command, const GlobalOptions& options, const Arguments& arguments) {
  if (command.runAlone) return command.runAlone(options, arguments);
  Session session(options);
  return command.run(session, arguments);
}

/// One line, whatever the message holds.
std::string oneLine(std::string message) {
  for (char& c : message) {
    if (c == '\n' || c == '\r') c = ' ';
  }
  return message;
}

int print(const Reply& reply, bool asJson) {
  if (asJson) {
    std::cout << reply.data.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
  } else {
    std::cout << reply.text;
  }
  for (const std::string& complaint : reply.complaints) {
    std::cerr << "hvnotify: " << oneLine(complaint) << '\n';
  }
  if (!std::cout.flush()) {
    std::cerr << "hvnotify: cannot write the output\n";
    return exitRefused;
  }
  return reply.exitCode;
}

int fail(const std::string& message, ExitCode code) {
  std::cerr << "hvnotify: " << oneLine(message) << '\n';
  return code;
}

int runProgram(int argc, char** argv) {
  GlobalOptions options;
  Arguments arguments;
  CLI::App app("Notices that an accounting firm owes its clients: when, in which words, and sent.",
               "hvnotify");
  app.require_subcommand(1);
  app.set_version_flag("--version", HVNOTIFY_VERSION);
  addGlobalOptions(app, options);
  const Command* chosen = nullptr;
  for (const Command& command : allCommands()) {
    CLI::App* subcommand = app.add_subcommand(command.name, command.help);
    command.describe(*subcommand, arguments);
    subcommand->final_callback([&chosen, &command] { chosen = &command; });
  }
  try {
    app.parse(argc, argv);
    return print(run(*chosen, options, arguments), options.json);
  } catch (const CLI::Success& wish) {
    return app.exit(wish);
  } catch (const CLI::ParseError& error) {
    return fail(std::string(error.what()) + " (see: hvnotify --help)", exitUsage);
  } catch (const Refusal& refusal) {
    return fail(refusal.what(), refusal.code());
  } catch (const PlatformError& error) {
    return fail(error.description(), exitDatabase);
  } catch (const std::exception& error) {
    return fail(error.what(), exitRefused);
  }
}

}  // namespace
}  // namespace autonotify::console

int main(int argc, char** argv) {
  return autonotify::console::runProgram(argc, argv);
}
