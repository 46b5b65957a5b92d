#include "commands/lists.h"

#include <array>

#include "commands/arguments.h"
#include "host/desk/work/task_list.h"
#include "outcome_words.h"

namespace autonotify::console {

void describeTasks(CLI::App& command, Arguments& arguments) {
  addNumber(command, "--client", "only tasks of this business client", arguments.client);
  addNumber(command, "--contact", "only tasks of this personal client", arguments.contact);
  addDate(command, "--until", "only tasks due on this date or before", arguments.until);
  addCsv(command, arguments);
}

Reply listTasks(host::Desk& desk, const Arguments& arguments, RowForm form) {
  RowPrinter printer(form, {{"task", "TASK"},
                            {"due", "DUE"},
                            {"channels", "CHANNELS"},
                            {"client", "CLIENT"},
                            {"clientId", nullptr},
                            {"contactId", nullptr},
                            {"name", "NAME"}});
  const host::TaskQuery query{
      .client = arguments.client, .contact = arguments.contact, .until = arguments.until};
  const auto print = [&](const host::Task& task, const std::string& client) {
    printer.add(std::array{Json(task.id), dayJson(task.dueDate), channelList(task.channels),
                           Json(client), Json(task.clientNum), Json(task.contactId),
                           Json(task.name)});
  };
  return endList(printer, "no open task found", host::listTasks(desk, query, print));
}

}  // namespace autonotify::console
