#include "commands/years.h"

#include <fmt/format.h>

#include "commands/arguments.h"
#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/schedule_year.h"
#include "host/desk/work/task_families.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

using host::ChannelFate;
using host::ChannelOutcome;
using host::YearTask;

host::YearWish wishOf(host::Desk& desk, const Arguments& arguments) {
  host::YearWish wish{requireClientOf(desk, arguments, "year"),
                      arguments.year.value_or(desk.locale().getCurrentYear()), arguments.families,
                      arguments.channels};
  if (wish.families.empty())
    for (const host::TaskFamily& family : host::taskFamilies)
      wish.families.push_back(family.totalNum);
  return wish;
}

/// "armed for 2026-04-22", "already armed for 2026-04-22", "was sent"
std::string resultOf(host::Desk& desk, const YearTask& task, const ChannelOutcome& outcome) {
  if (outcome.fate == ChannelFate::nothingAdded) return "nothing was added";
  const std::string note = pastNote(isPast(desk, task, outcome));
  if (!outcome.row) return "to be armed for " + host::dayText(task.date) + note;
  if (outcome.fate == ChannelFate::settled) return stateWords(stateOf(*outcome.row));
  const std::string missing = host::missingParts(*outcome.row);
  return fmt::format(
      "{} for {}{}{}", outcome.fate == ChannelFate::armed ? "armed" : "already armed",
      host::dayText(outcome.row->date), note, missing.empty() ? "" : ", lacks " + missing);
}

Json dataOf(host::Desk& desk, const YearTask& task, const ChannelOutcome& outcome) {
  const auto& row = outcome.row;
  return {{"task", task.task.id},
          {"channel", host::channelName(outcome.channel)},
          {"isNew", outcome.fate == ChannelFate::armed},
          {"notification", row ? Json(row->id) : Json()},
          {"state", row ? Json(stateName(stateOf(*row))) : Json()},
          {"date", dayJson(row ? row->date : task.date)},
          {"past", isPast(desk, task, outcome)},
          {"lacks", row ? host::missingParts(*row) : std::string()}};
}

void report(Reply& reply, host::Desk& desk, const YearTask& task) {
  std::string channels;
  for (const ChannelOutcome& outcome : task.channels) {
    const std::string words =
        host::channelName(outcome.channel) + " " + resultOf(desk, task, outcome);
    channels += (channels.empty() ? "" : "; ") + words;
    reply.data.push_back(dataOf(desk, task, outcome));
    if (outcome.fate == ChannelFate::nothingAdded)
      reply.refuse(fmt::format("task {}, {}", task.task.id, words));
  }
  reply.text += fmt::format("task {}, {}, due {}: {}\n", task.task.id, task.task.name,
                            host::dayText(task.task.dueDate), channels);
}

}  // namespace

void describeYear(CLI::App& command, Arguments& arguments) {
  addClientNumber(command, "CLIENT", arguments);
  addReader(command, "--year", "YEAR", "of the tasks (default: this one)",
            [&arguments](const std::string& text) {
              arguments.year = readNumber<std::int16_t>("--year", text, 1900, 2099);
            });
  addChannels(command, arguments);
  command
      .add_option_function<std::vector<std::string>>(
          "--kind",
          [&arguments](const std::vector<std::string>& words) {
            for (const std::string& word : words)
              addOnce(arguments.families, readChoice("--kind", host::taskFamilies, word).totalNum);
          },
          choicesOf(host::taskFamilies) + "; may be several (default: all)")
      ->type_name("KIND")
      ->delimiter(',');
  command.add_flag("--dry-run", arguments.dryRun, "only say what would be armed");
}

Reply runYear(host::Desk& desk, const Arguments& arguments) {
  const host::YearWish wish = wishOf(desk, arguments);
  const auto tasks =
      doneOrRefuse(arguments.dryRun ? previewYear(desk, wish) : scheduleYear(desk, wish));
  if (tasks.empty())
    throw Refusal(fmt::format("{} has no open tasks of these kinds in {}", subjectOf(wish.client),
                              wish.year));
  Reply reply;
  reply.data = Json::array();
  for (const YearTask& task : tasks) report(reply, desk, task);
  return reply;
}

}  // namespace autonotify::console
