#include "commands/arming.h"

#include "commands/arguments.h"
#include "commands/channel_report.h"
#include "host/desk/work/claiming.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

Reply reportTask(host::Desk& desk, Id task, host::ArmingOutcome outcome) {
  return reportChannels(desk, host::subjectOf(host::WorkItem::task, task), {{"task", task}},
                        doneOrRefuse(std::move(outcome)));
}

}  // namespace

void describeArm(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
  addChannels(command, arguments);
}

Reply runArm(host::Desk& desk, const Arguments& arguments) {
  const auto task = host::armableTask(desk, arguments.task);
  return reportTask(desk, arguments.task, host::armChannels(desk, *task, arguments.channels));
}

void describeDisarm(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
  addChannels(command, arguments);
  addForce(command, arguments);
}

Reply runDisarm(host::Desk& desk, const Arguments& arguments) {
  const auto task = host::armableTask(desk, arguments.task);
  return reportTask(desk, arguments.task,
                    host::disarmChannels(desk, *task, arguments.channels, arguments.force));
}

}  // namespace autonotify::console
