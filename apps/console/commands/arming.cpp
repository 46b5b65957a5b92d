#include "commands/arming.h"

#include <fmt/format.h>

#include "commands/arguments.h"
#include "commands/channel_report.h"
#include "host/desk/work/claiming.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

template <class Change>
Reply changeTask(host::Desk& desk, Id task, Change& change) {
  const auto armable = host::armableTask(desk, task);
  return reportChannels(desk, host::subjectOf(host::WorkItem::task, task), {{"task", task}},
                        doneOrRefuse(change(*armable)));
}

/// What was done to one of several, below a line that names it.
void append(Reply& all, Id task, Reply&& one) {
  if (!one.text.empty()) all.text += fmt::format("Task {}\n{}", task, one.text);
  for (Json& row : one.data) all.data.push_back(std::move(row));
  for (std::string& complaint : one.complaints) all.refuse(std::move(complaint));
}

/// Runs `change` for each task; one that is refused keeps nobody from the others.
template <class Change>
Reply changeTasks(host::Desk& desk, const std::vector<Id>& tasks, Change&& change) {
  if (tasks.size() == 1) return changeTask(desk, tasks.front(), change);
  Reply all;
  all.data = Json::array();
  for (const Id task : tasks) {
    try {
      append(all, task, changeTask(desk, task, change));
    } catch (const Refusal& refusal) {
      all.refuse(refusal.what());
    }
  }
  return all;
}

}  // namespace

void describeArm(CLI::App& command, Arguments& arguments) {
  addTasks(command, arguments);
  addChannels(command, arguments);
}

Reply runArm(host::Desk& desk, const Arguments& arguments) {
  return changeTasks(desk, arguments.tasks, [&](host::Armable& task) {
    return host::armChannels(desk, task, arguments.channels);
  });
}

void describeDisarm(CLI::App& command, Arguments& arguments) {
  addTasks(command, arguments);
  addChannels(command, arguments);
  addForce(command, arguments);
}

Reply runDisarm(host::Desk& desk, const Arguments& arguments) {
  return changeTasks(desk, arguments.tasks, [&](host::Armable& task) {
    return host::disarmChannels(desk, task, arguments.channels, arguments.force);
  });
}

}  // namespace autonotify::console
