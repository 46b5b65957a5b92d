#include "commands/working_days.h"

#include <fmt/format.h>

#include <array>

#include "TextTable.h"
#include "commands/arguments.h"
#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/working_day.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

/// Of each group; lists of notifications show all.
constexpr std::size_t mostOfGroup = 1000;

/// In the order of DayState.
constexpr std::array<const char*, 5> dayStateWords{"ready", "no address", "call again", "scheduled",
                                                   "interrupted"};

struct DayGroupWords {
  const char* key;
  const char* heading;
  host::DayGroup host::WorkingDay::*group;
};
constexpr DayGroupWords dayGroups[] = {{"overdue", "Overdue", &host::WorkingDay::overdue},
                                       {"today", "Today", &host::WorkingDay::today},
                                       {"thisWeek", "This week", &host::WorkingDay::thisWeek}};

Json lineJson(const host::DayLine& line) {
  return {{"notification", line.row.id},
          {"date", dayJson(line.row.date)},
          {"due", dayJson(line.due)},
          {"channel", host::channelName(line.row.channel)},
          {"state", dayStateWords.at(static_cast<std::size_t>(line.state))},
          {"client", line.client},
          {"task", line.row.scheduleId},
          {"name", line.item}};
}

Json groupJson(const host::DayGroup& group) {
  Json lines = Json::array();
  for (const host::DayLine& line : group.lines) lines.push_back(lineJson(line));
  return {{"count", group.count}, {"notifications", std::move(lines)}};
}

std::string groupText(const DayGroupWords& words, const host::DayGroup& group) {
  std::string text = fmt::format("{}: {}\n", words.heading, group.count);
  if (group.lines.empty()) return text;
  TextTable table({"NOTIFICATION", "DATE", "DUE", "CHANNEL", "STATE", "CLIENT", "TASK"});
  for (const host::DayLine& line : group.lines)
    table.add({std::to_string(line.row.id), host::dayText(line.row.date), host::dayText(line.due),
               host::channelName(line.row.channel),
               dayStateWords.at(static_cast<std::size_t>(line.state)), line.client, line.item});
  text += table.toText();
  const std::size_t others = group.count - std::min(group.count, group.lines.size());
  return others > 0 ? text + fmt::format("and {} more\n", others) : text;
}

Json countsJson(const host::ChannelCounts& counts) {
  Json json;
  for (std::size_t i = 0; i < counts.size(); ++i)
    json[host::channelName(allNotifyTypes[i])] = counts[i];
  return json;
}

Json weekJson(const host::WeekAhead& week) {
  Json json = countsJson(week.counts);
  json["monday"] = dayJson(week.monday);
  return json;
}

std::string weeksText(const host::WorkingDay& day) {
  TextTable table({"WEEK OF", "EMAIL", "FAX", "LETTER", "PHONE"});
  for (const host::WeekAhead& week : day.weeks) {
    std::vector<std::string> cells{host::dayText(week.monday)};
    for (const std::size_t count : week.counts) cells.push_back(std::to_string(count));
    table.add(std::move(cells));
  }
  return "Weeks ahead\n" + table.toText();
}

}  // namespace

void describeDay(CLI::App& command, Arguments& arguments) {
  auto* mine = command.add_flag("--mine", arguments.mine, "only what is the user's work");
  command
      .add_flag("--my-clients", arguments.myClients, "only for clients that the user looks after")
      ->excludes(mine);
}

Reply runDay(host::Desk& desk, const Arguments& arguments) {
  const host::DayShare share = arguments.mine        ? host::DayShare::mine
                               : arguments.myClients ? host::DayShare::myClients
                                                     : host::DayShare::everyone;
  const host::WorkingDay day = host::readWorkingDay(desk, share, mostOfGroup);
  Reply reply;
  for (const DayGroupWords& words : dayGroups) {
    reply.data[words.key] = groupJson(day.*words.group);
    reply.text += groupText(words, day.*words.group) + "\n";
  }
  reply.data["due"] = countsJson(day.due);
  reply.data["weeks"] = Json::array();
  for (const host::WeekAhead& week : day.weeks) reply.data["weeks"].push_back(weekJson(week));
  reply.data["sentToday"] = day.sentToday;
  reply.text += weeksText(day);
  for (const host::UnreadableRow& row : day.unreadable) reply.refuse(row.description());
  return reply;
}

}  // namespace autonotify::console
