#include "commands/arguments.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "notifications.h"
#include "platform/date_time_text.h"

namespace autonotify::console {
namespace {

constexpr std::uintmax_t largestFile = 16u << 20;

const std::map<std::string, notifyType> channelsByName{
    {"email", nt_Email}, {"fax", nt_Fax}, {"letter", nt_Letter}, {"phone", nt_Phone}};

}  // namespace

void addTask(CLI::App& command, Arguments& arguments) {
  command.add_option("TASK", arguments.task, "number of the task (see: hvnotify tasks)")
      ->required();
}

void addNotification(CLI::App& command, Arguments& arguments) {
  command
      .add_option("NOTIFICATION", arguments.notifications,
                  "number of the notification (see: hvnotify due)")
      ->required()
      ->expected(1);
}

void addChannels(CLI::App& command, Arguments& arguments) {
  command
      .add_option("--channel", arguments.channels, "email, fax, letter or phone; may be several")
      ->required()
      ->delimiter(',')
      ->transform(CLI::CheckedTransformer(channelsByName, CLI::ignore_case));
}

DateTime readDate(const std::string& text) {
  const std::optional<DateTime> date = parseDateTime(text);
  if (!date || date->days() == 0) {
    throw CLI::ValidationError(fmt::format("\"{}\" is no date; write it as 2026-04-30", text));
  }
  return *date;
}

void addDateOption(CLI::App& command, const std::string& name, std::optional<DateTime>& target,
                   const std::string& help) {
  command.add_option_function<std::string>(
      name, [&target](const std::string& text) { target = readDate(text); }, help);
}

Json channelList(int bits) {
  Json names = Json::array();
  for (const notifyType channel : allChannels()) {
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
  content << file.rdbuf();
  if (!file) throw Refusal(fmt::format("cannot read {}", path));
  return std::move(content).str();
}

}  // namespace autonotify::console
