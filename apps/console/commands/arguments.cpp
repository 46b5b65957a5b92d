#include "commands/arguments.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "notifications.h"
#include "platform/date_time_text.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

constexpr std::uintmax_t largestFile = 16u << 20;

notifyType readChannel(const std::string& name) {
  for (const notifyType channel : allNotifyTypes) {
    if (equalIgnoreCase(trim(name), channelName(channel))) return channel;
  }
  throw CLI::ValidationError(
      "--channel", fmt::format("there is no channel \"{}\": email, fax, letter or phone", name));
}

DateTime readDate(const std::string& name, const std::string& text) {
  const std::optional<DateTime> date = parseDateTime(text);
  if (date && date->days() != 0) return date->dateOnly();
  throw CLI::ValidationError(name, fmt::format("\"{}\" is no date; write it as 2026-04-30", text));
}

}  // namespace

CLI::Option* addReader(CLI::App& command, const std::string& name, const char* kind,
                       const std::string& help, std::function<void(const std::string&)> read) {
  CLI::Option* option =
      command.add_option_function<std::string>(name, std::move(read), help)->type_name(kind);
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
  return addReader(command, name, "DATE", help,
                   [&target, name](const std::string& text) { target = readDate(name, text); });
}

void addTask(CLI::App& command, Arguments& arguments) {
  addNumber(command, "TASK", "number of the task (see: hvnotify tasks)", arguments.task)
      ->required();
}

void addNotification(CLI::App& command, Arguments& arguments) {
  addNumber(command, "NOTIFICATION", "number of the notification (see: hvnotify due)",
            arguments.notification)
      ->required();
}

void addChannels(CLI::App& command, Arguments& arguments) {
  command
      .add_option_function<std::vector<std::string>>(
          "--channel",
          [&arguments](const std::vector<std::string>& names) {
            for (const std::string& name : names) {
              const notifyType channel = readChannel(name);
              auto& known = arguments.channels;
              if (std::find(known.begin(), known.end(), channel) == known.end()) {
                known.push_back(channel);
              }
            }
          },
          "email, fax, letter or phone; may be several")
      ->type_name("CHANNEL")
      ->required()
      ->delimiter(',');
}

void addForce(CLI::App& command, Arguments& arguments) {
  command.add_flag("--force", arguments.force, "also delete the record of a sent notification");
}

Json channelList(int bits) {
  Json names = Json::array();
  for (const notifyType channel : allNotifyTypes) {
    if (bits & channel) names.push_back(channelName(channel));
  }
  return names;
}

std::string readFile(const std::string& path) {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) throw Refusal(fmt::format("cannot read {}: {}", path, error.message()));
  if (size > largestFile) throw Refusal(fmt::format("{} is larger than 16 MiB", path));
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  if (size > 0) content << file.rdbuf();
  if (!file) throw Refusal(fmt::format("cannot read {}", path));
  return std::move(content).str();
}

}  // namespace autonotify::console
