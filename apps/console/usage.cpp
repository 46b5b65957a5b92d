#include "usage.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

#include "Command.h"
#include "host/desk/databases.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

/// The command that was named last; the program itself where none was.
const CLI::App& chosenOf(const CLI::App& app) {
  const auto chosen = app.get_subcommands();
  return chosen.empty() ? app : chosenOf(*chosen.front());
}

/// "template show " behind the program's name; empty for the program itself.
std::string pathOf(const CLI::App& command) {
  const CLI::App* parent = command.get_parent();
  return parent ? pathOf(*parent) + command.get_name() + " " : "";
}

std::string commandNames(const CLI::App& app) {
  std::string names;
  for (const CLI::App* command : commandsOf(app))
    names += (names.empty() ? "" : ", ") + command->get_name();
  return names;
}

/// How many letters must be put in, taken out or replaced to make one word of the other.
std::size_t distanceOf(const std::string& one, const std::string& other) {
  std::vector<std::size_t> row(other.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < one.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < other.size(); ++j) {
      const std::size_t replaced = diagonal + (one[i] == other[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

/// The command that was meant, by its spelling; empty for none that is near.
std::string nearestCommand(const CLI::App& app, const std::string& typed) {
  constexpr std::size_t farthest = 2;
  std::string nearest;
  std::size_t least = std::min(farthest, typed.size() / 2) + 1;
  for (const CLI::App* command : commandsOf(app)) {
    const std::size_t distance = distanceOf(typed, command->get_name());
    if (distance >= least) continue;
    least = distance;
    nearest = command->get_name();
  }
  return nearest;
}

/// The first argument that no command or option took, without a password; empty for none.
std::string firstStray(const CLI::App& app) {
  const std::vector<std::string> strays = app.remaining(true);
  return strays.empty() ? std::string{} : host::placeShown(strays.front());
}

bool isA(const CLI::ParseError& error, CLI::ExitCodes kind) {
  return error.get_exit_code() == static_cast<int>(kind);
}

std::string faultOf(const CLI::App& app, const CLI::ParseError& error) {
  const std::string stray = firstStray(app);
  const bool isOption = stray.size() > 1 && stray.front() == '-';
  if (isOption) return fmt::format("there is no option \"{}\"", stray);
  const CLI::App& chosen = chosenOf(app);
  const bool hasCommand = commandsOf(chosen).empty();
  if (!hasCommand && !stray.empty()) return unknownCommand(chosen, stray);
  const std::string words = error.what();
  if (isA(error, CLI::ExitCodes::ArgumentMismatch)) {
    return words.substr(0, words.find(':')) + ": a value is missing";
  }
  if (!hasCommand && isA(error, CLI::ExitCodes::RequiredError)) {
    return "name a command: " + commandNames(chosen);
  }
  if (isA(error, CLI::ExitCodes::ExtrasError))
    return fmt::format("\"{}\" is one argument too many", stray);
  return replaceAll(words, " excludes ", " does not go with ");
}

bool isOfGeneralOption(const CLI::App& app, const std::string& fault) {
  const std::string name = fault.substr(0, fault.find(':'));
  return name.starts_with("--") && app.get_option_no_throw(name);
}

}  // namespace

std::vector<const CLI::App*> commandsOf(const CLI::App& app) {
  return app.get_subcommands([](const CLI::App*) { return true; });
}

/// They are the name of a check that lets all pass: an option has no other place for them.
void setKnownValues(CLI::Option& option, const std::string& words) {
  option.check(CLI::Validator([](std::string&) { return std::string(); }, "", words));
}

std::string knownValues(const CLI::Option& option) {
  try {
    return const_cast<CLI::Option&>(option).get_validator(0)->get_name();
  } catch (const CLI::OptionNotFound&) {
    return {};
  }
}

std::string unknownCommand(const CLI::App& above, const std::string& typed) {
  const std::string near = nearestCommand(above, typed);
  return fmt::format("there is no command \"{}{}\"; {}{}", pathOf(above), typed,
                     near.empty() ? "commands: " : "did you mean ",
                     near.empty() ? commandNames(above) : near + '?');
}

std::string usageFault(const CLI::App& app, const CLI::ParseError& error) {
  const std::string fault = faultOf(app, error);
  const std::string command = isOfGeneralOption(app, fault) ? "" : pathOf(chosenOf(app));
  return fmt::format("{} (see: hvnotify {}--help)", fault, command);
}

std::string usageNotes() {
  return "Exit codes: 0 done, 1 refused or nothing found, 2 usage, 3 database unusable or not\n"
         "enough memory.\n"
         "At a terminal each error of the component is shown and asks whether to continue, to "
         "leave the\nprocedure or to retry. With --batch, or without a terminal, the procedure is "
         "left and the error\nis reported with the command's result.\n";
}

}  // namespace autonotify::console
