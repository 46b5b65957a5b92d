#include <array>

#include "Command.h"
#include "commands/arming.h"
#include "commands/calling.h"
#include "commands/changing.h"
#include "commands/clients_and_staff.h"
#include "commands/closed_days.h"
#include "commands/contacts.h"
#include "commands/copying.h"
#include "commands/editing.h"
#include "commands/exchanging.h"
#include "commands/explaining.h"
#include "commands/founding.h"
#include "commands/helping.h"
#include "commands/items.h"
#include "commands/lists.h"
#include "commands/notifications.h"
#include "commands/own_firm.h"
#include "commands/printing.h"
#include "commands/sending.h"
#include "commands/templates.h"
#include "commands/texts.h"
#include "commands/working_days.h"
#include "commands/years.h"

namespace autonotify::console {

std::span<const Command> allCommands() {
  static constexpr std::array commands{
      Command{"init", "make a new database", describeInit, nullptr, runInit},
      Command{"copy", "copy a database to another place", describeCopy, nullptr, runCopy},
      Command{"import", "bring clients, staff, tasks and holidays in from files", describeImport,
              nullptr, runImport},
      Command{"export", "write clients, staff, tasks or holidays as a file", describeExport,
              nullptr, runExport},
      Command{"role", "print a role for desks at a server", describeRole, nullptr, runRole},
      Command{.name = "clients",
              .help = "list clients, with the ids that other commands want",
              .describe = describeClients,
              .list = listAllClients},
      Command{.name = "staff",
              .help = "list who works here, with their ids",
              .describe = describeStaff,
              .list = listAllStaff},
      Command{"firm", "show or set what the firm says of itself: address, email, phone",
              describeFirm, runFirm},
      Command{"holidays", "list, add and take out days on which the firm is closed",
              describeHolidays, runHolidays},
      Command{
          .name = "tasks", .help = "list open tasks", .describe = describeTasks, .list = listTasks},
      Command{"arm", "add notifications to tasks", describeArm, runArm, nullptr},
      Command{"disarm", "take notifications off tasks", describeDisarm, runDisarm, nullptr},
      Command{"year", "add notifications to a client's tasks of a year", describeYear, runYear,
              nullptr},
      Command{.name = "appointments",
              .help = "list appointments and time entries",
              .describe = describeAppointments,
              .list = listAppointments},
      Command{"arm-item", "add reminders to an item of the diary", describeArmItem, runArmItem,
              nullptr},
      Command{"disarm-item", "take reminders off an item of the diary", describeDisarmItem,
              runDisarmItem, nullptr},
      Command{"show", "show a notification", describeShow, runShow, nullptr},
      Command{"day", "tell what waits today, this week and in the weeks to come", describeDay,
              runDay, nullptr},
      Command{.name = "due",
              .help = "list what is to be sent today",
              .describe = describeDue,
              .list = listDue},
      Command{.name = "notifications",
              .help = "list notifications of all states, by what you name",
              .describe = describeNotifications,
              .list = listAllNotifications},
      Command{.name = "history",
              .help = "list what was sent to a client, newest first",
              .describe = describeHistory,
              .list = listHistory},
      Command{"merge", "compose the text for a task", describeMerge, runMerge, nullptr},
      Command{"check", "find the faults of a template, and what stays empty", describeCheck,
              runCheck, nullptr},
      Command{"explain", "tell why a task is notified on its date", describeExplain, runExplain,
              nullptr},
      Command{.name = "send", .help = "send emails", .describe = describeSend, .list = listSent},
      Command{"print", "print letters and faxes into a PDF, and file them", describePrint, runPrint,
              nullptr},
      Command{"worklist", "print a list of the letters, faxes and calls that are due",
              describeWorklist, runWorklist, nullptr},
      Command{"calls", "list the calls to be made today", describeCalls, runCalls, nullptr},
      Command{"call", "note that a client was called", describeCall, runCall, nullptr},
      Command{"cancel", "cancel a notification", describeCancel, runCancel, nullptr},
      Command{"move", "give a notification another date", describeMove, runMove, nullptr},
      Command{"refresh", "work out a task's dates anew", describeRefresh, runRefresh, nullptr},
      Command{"address", "show the address block of a client", describeAddress, runAddress,
              nullptr},
      Command{"recipients", "list what a notification may be addressed to", describeRecipients,
              runRecipients, nullptr},
      Command{"contact-default", "show or set a company's default contact", describeContactDefault,
              runContactDefault, nullptr},
      Command{"template", "list, show, change and try the templates of kinds", describeTemplate,
              runTemplate, nullptr},
      Command{"propagate", "carry a changed template into unsent notifications", describePropagate,
              runPropagate, nullptr},
      Command{"fields", "list what a template can be filled with", describeFields, runFields,
              nullptr},
      Command{"help", "tell about a command", describeHelp, nullptr, runHelp},
  };
  return commands;
}

}  // namespace autonotify::console
