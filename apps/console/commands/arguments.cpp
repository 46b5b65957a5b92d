#include "commands/arguments.h"

#include <fmt/format.h>

#include "Command.h"
#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/template_file.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

struct ChannelWord {
  std::string word;
  notifyType channel;
};

const std::vector<ChannelWord>& channelWords() {
  static const std::vector<ChannelWord> words = [] {
    std::vector<ChannelWord> rows;
    for (const notifyType channel : allNotifyTypes)
      rows.push_back({host::channelName(channel), channel});
    return rows;
  }();
  return words;
}

/// Any number of ids.
CLI::Option* addNumbers(CLI::App& command, const char* name, const char* help,
                        std::vector<Id>& target) {
  const auto read = [&target, name](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) addOnce(target, readNumber<Id>(name, text));
  };
  return command.add_option_function<std::vector<std::string>>(name, read, help)
      ->type_name("NUMBER");
}

}  // namespace

CLI::Option* addReader(CLI::App& command, const std::string& name, const char* kind,
                       const std::string& help,
                       const std::function<void(const std::string&)>& read) {
  CLI::Option* option = command.add_option_function<std::string>(name, read, help)->type_name(kind);
  if (name.starts_with("--")) option->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  return option;
}

CLI::Option* addText(CLI::App& command, const std::string& name, const char* kind,
                     const std::string& help, std::string& target) {
  return addReader(command, name, kind, help, [&target, name](const std::string& text) {
    if (text.empty()) throw CLI::ValidationError(name, "the value is empty");
    target = text;
  });
}

CLI::Option* addDate(CLI::App& command, const std::string& name, const std::string& help,
                     std::optional<DateTime>& target) {
  return addReader(command, name, "DATE", help, [&target, name](const std::string& text) {
    target = host::readDate(text);
    if (!target) throw CLI::ValidationError(name, host::dateFault(text));
  });
}

void describeActions(CLI::App& command, std::span<const CommandAction> actions,
                     Arguments& arguments) {
  command.require_subcommand(1);
  for (const CommandAction& action : actions) {
    CLI::App* subcommand = command.add_subcommand(action.name, action.help);
    action.describe(*subcommand, arguments);
    subcommand->final_callback([&] { arguments.action = &action; });
  }
}

void addTask(CLI::App& command, Arguments& arguments) {
  addNumber(command, "TASK", "number of the task (see: hvnotify tasks)", arguments.task)
      ->required();
}

void addTasks(CLI::App& command, Arguments& arguments) {
  addNumbers(command, "TASK", "numbers of tasks (see: hvnotify tasks)", arguments.tasks)
      ->required();
}

CLI::Option* addKind(CLI::App& command, Arguments& arguments) {
  return addText(command, "KIND", "NUMBER or NAME",
                 "the schedule type (see: hvnotify template list)", arguments.scheduleType)
      ->required();
}

CLI::Option* addFormer(CLI::App& command, const std::string& use, Arguments& arguments) {
  return addText(command, "--former", "FILE", use + ", as template show --rtf gave it",
                 arguments.former);
}

std::optional<std::string> readFormer(const Arguments& arguments) {
  if (arguments.former.empty()) return std::nullopt;
  return doneOrRefuse(host::readTextFile(arguments.former));
}

void addNotification(CLI::App& command, Arguments& arguments) {
  addNumber(command, "NOTIFICATION", "number of the notification (see: hvnotify due)",
            arguments.notification)
      ->required();
}

CLI::Option* addNotifications(CLI::App& command, Arguments& arguments) {
  return addNumbers(command, "NOTIFICATION", "numbers of notifications (see: hvnotify due)",
                    arguments.notifications);
}

void requireNotifications(const Arguments& arguments, const char* command) {
  if (arguments.due || !arguments.notifications.empty()) return;
  throw Refusal(fmt::format("name notifications, or give --due (see: hvnotify {} --help)", command),
                exitUsage);
}

CLI::Option* addAnyChannels(CLI::App& command, Arguments& arguments) {
  const auto read = [&arguments](const std::vector<std::string>& names) {
    for (const std::string& name : names)
      addOnce(arguments.channels, readChoice("--channel", channelWords(), name).channel);
  };
  CLI::Option* option = command.add_option_function<std::vector<std::string>>(
      "--channel", read, choicesOf(channelWords()) + "; may be several");
  option->type_name("CHANNEL")->delimiter(',');
  noteKnownValues(*option, channelWords());
  return option;
}

void addChannels(CLI::App& command, Arguments& arguments) {
  addAnyChannels(command, arguments)->required();
}

void addClientNumber(CLI::App& command, const std::string& name, Arguments& arguments) {
  addNumber(command, name, "number of the client (see: hvnotify tasks)", arguments.client);
  addNumber(command, "--contact", "the id of a personal client, in place of " + name,
            arguments.contact);
}

std::optional<host::Client> clientOf(host::Desk& desk, const Arguments& arguments) {
  if (arguments.contact)
    return doneOrRefuse(requireClient(desk, {enumAutoNotifyContact, *arguments.contact}));
  if (!arguments.client) return std::nullopt;
  const Id company = desk.clients().getCompanyIDFromClientID(*arguments.client);
  if (company < 0) throw Refusal(fmt::format("there is no client {}", *arguments.client));
  return host::Client{enumAutoNotifyCompany, company};
}

host::Client requireClientOf(host::Desk& desk, const Arguments& arguments, const char* command) {
  if (arguments.client.has_value() == arguments.contact.has_value())
    throw Refusal(fmt::format("name a CLIENT or a --contact (see: hvnotify {} --help)", command),
                  exitUsage);
  return *clientOf(desk, arguments);
}

void addCsv(CLI::App& command, Arguments& arguments) {
  command.add_flag("--csv", arguments.csv, "for a spreadsheet: comma separated, all columns");
}

void addForce(CLI::App& command, Arguments& arguments) {
  command.add_flag("--force", arguments.force, "also delete the record of a sent notification");
}

}  // namespace autonotify::console
