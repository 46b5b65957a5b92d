#include "commands/helping.h"

#include <array>

#include "CommandLine.h"
#include "commands/arguments.h"
#include "reference_pages.h"
#include "usage.h"

namespace autonotify::console {
namespace {

constexpr std::array<HelpForm, 4> forms{HelpForm{"man", manualPage},
                                        {"bash", bashCompletion},
                                        {"zsh", zshCompletion},
                                        {"fish", fishCompletion}};

const CLI::App* commandBelow(const CLI::App& above, const std::string& name) {
  for (const CLI::App* command : commandsOf(above))
    if (command->get_name() == name) return command;
  throw Refusal(unknownCommand(above, name) + " (see: hvnotify --help)", exitUsage);
}

}  // namespace

void describeHelp(CLI::App& command, Arguments& arguments) {
  command.add_option("COMMAND", arguments.words, "the command")->type_name("COMMAND");
  addChoice(command, "--as", "FORM", forms, ": all of it for one of these",
            [&arguments](const HelpForm& form) { arguments.helpForm = &form; });
}

Reply runHelp(const GlobalOptions&, const Arguments& arguments) {
  const CommandLine line;
  Reply reply;
  if (arguments.helpForm) {
    reply.document = arguments.helpForm->write(line.app);
    return reply;
  }
  const CLI::App* app = &line.app;
  std::string above;
  for (const std::string& word : arguments.words) {
    above += (above.empty() ? "" : " ") + app->get_name();
    app = commandBelow(*app, word);
  }
  reply.text = app->help(above);
  reply.data = reply.text;
  return reply;
}

}  // namespace autonotify::console
