#include "commands/lists.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "TextTable.h"
#include "commands/arguments.h"
#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/task_list.h"
#include "outcome_words.h"

namespace autonotify::console {

void describeTasks(CLI::App& command, Arguments& arguments) {
  addNumber(command, "--client", "only tasks of this business client", arguments.client);
  addNumber(command, "--contact", "only tasks of this personal client", arguments.contact);
  addDate(command, "--until", "only tasks due on this date or before", arguments.until);
}

Reply runTasks(host::Desk& desk, const Arguments& arguments) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"TASK", "DUE", "CHANNELS", "CLIENT", "NAME"});
  const host::LookupBatch batch(desk);
  host::TaskQuery query;
  query.client = arguments.client;
  query.contact = arguments.contact;
  query.until = arguments.until;
  host::ReadableRows<host::Task> tasks = host::readTasks(desk, query);
  for (const host::Task& task : tasks.rows) {
    std::string client;
    tasks.unreadable.orName([&] { client = clientName(desk, task); });
    table.add({std::to_string(task.id), host::dayText(task.dueDate),
               host::channelNames(task.channels), client, task.name});
    reply.data.push_back({{"task", task.id},
                          {"due", dayJson(task.dueDate)},
                          {"channels", channelList(task.channels)},
                          {"client", client},
                          {"clientId", task.clientNum},
                          {"contactId", task.contactId},
                          {"name", task.name}});
  }
  if (!showList(reply, table, tasks.unreadable)) reply.refuse("no open task found");
  return reply;
}

}  // namespace autonotify::console
