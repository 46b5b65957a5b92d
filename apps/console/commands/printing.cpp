#include "commands/printing.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "TextTable.h"
#include "commands/arguments.h"
#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/due_list.h"
#include "host/desk/work/print_documents.h"
#include "host/desk/work/print_worklist.h"
#include "host/services/HostFileUtility.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

using host::PrintOutcome;
using host::PrintResult;

struct PrintWords {
  PrintResult result;
  const char* name;
  /// Why it was not printed; "{}" stands for the detail.
  const char* words;
  /// Of what was due a moment ago: someone else has settled it, which is no fault.
  bool isMeanwhile = false;
};
constexpr std::array<PrintWords, 11> printTable{{
    {PrintResult::printed, "printed", ""},
    {PrintResult::otherChannel, "skipped", "a notification by {} has no document"},
    {PrintResult::alreadySent, "skipped", "it was sent already (print it once more with --again)",
     true},
    {PrintResult::cancelled, "skipped", "it is cancelled", true},
    {PrintResult::unfinished, "skipped", "it is still being written", true},
    {PrintResult::unknownWhetherSent, "skipped",
     "it cannot be known whether it was sent: its marking was interrupted (print it with --again, "
     "or settle it with send --mark-only)"},
    {PrintResult::noText, "skipped", "there is no text entered for this notification"},
    {PrintResult::failed, "failed", "{}"},
    {PrintResult::notWritten, "failed", "{}"},
    {PrintResult::atWorkElsewhere, "skipped", "another desk is at work on it", true},
    {PrintResult::notThere, "skipped", "there is no such notification", true},
}};

std::string pagesText(int pages) {
  return fmt::format("{} page{}", pages, pages == 1 ? "" : "s");
}

/// "filed as 12 Roy Inc/Letter - Apr 15 2026.mvw"
std::string filedText(const host::FiledDocument& document) {
  const std::filesystem::path path(document.path);
  return fmt::format("filed as {}/{}", path.parent_path().filename().string(),
                     path.filename().string());
}

std::string doneWords(const PrintOutcome& outcome) {
  std::string words = pagesText(outcome.pages) + ", " + filedText(*outcome.filed);
  if (outcome.filed->isBesideAnother) words += " (beside another one of this day)";
  if (!outcome.markFault.empty()) words += "; could not be marked sent: " + outcome.markFault;
  return words;
}

std::string wordsOf(const PrintOutcome& outcome, const PrintWords& row) {
  if (row.result == PrintResult::printed) return doneWords(outcome);
  const bool isOther = row.result == PrintResult::otherChannel;
  const std::string words =
      fmt::format(fmt::runtime(row.words),
                  isOther ? host::channelName(outcome.about->channel) : outcome.detail);
  return outcome.filed ? words + "; it was " + filedText(*outcome.filed) : words;
}

void report(Reply& reply, TextTable& table, const PrintOutcome& outcome, bool wasDue) {
  const PrintWords& row = *std::ranges::find(printTable, outcome.result, &PrintWords::result);
  const std::string words = wordsOf(outcome, row);
  const std::string about = aboutOf(outcome.about);
  table.add({std::to_string(outcome.id), row.name, words, about});
  reply.data["notifications"].push_back({{"notification", outcome.id},
                                         {"result", row.name},
                                         {"detail", words},
                                         {"about", about},
                                         {"pages", outcome.pages},
                                         {"marked", outcome.isMarked},
                                         {"document", outcome.filed ? outcome.filed->path : ""}});
  const bool isPrinted = outcome.result == PrintResult::printed;
  if (isPrinted ? outcome.markFault.empty() : wasDue && row.isMeanwhile) return;
  reply.refuse(fmt::format("notification {} was {}: {}", outcome.id,
                           isPrinted ? "printed" : "not printed", words));
}

/// How to mark what was printed and is not marked; empty when nothing is.
std::string markingText(const std::vector<PrintOutcome>& outcomes) {
  std::string numbers;
  for (const PrintOutcome& outcome : outcomes) {
    if (outcome.result == PrintResult::printed && !outcome.isMarked)
      numbers += fmt::format(" {}", outcome.id);
  }
  if (numbers.empty()) return {};
  return "Nothing was marked sent. When it has gone out: hvnotify send --mark-only" + numbers +
         "\n";
}

void addPdf(CLI::App& command, const std::string& usual, Arguments& arguments) {
  addText(command, "--pdf", "FILE",
          fmt::format("the new file to print into (default: {}-DATE.pdf in this folder)", usual),
          arguments.pdf);
}

/// The file that was named, or a name that nothing has yet.
std::string pdfFile(host::Desk& desk, const char* usual, const Arguments& arguments) {
  if (!arguments.pdf.empty()) return arguments.pdf;
  return host::HostFileUtility().getUniqueFileName(
      fmt::format("{}-{}.pdf", usual, host::dayText(desk.today())));
}

constexpr const char* usualDocuments = "notifications";
constexpr const char* usualWorklist = "worklist";

}  // namespace

void describePrint(CLI::App& command, Arguments& arguments) {
  auto* ids = addNotifications(command, arguments);
  command.add_flag("--due", arguments.due, "all letters and faxes that are due today")
      ->excludes(ids);
  addPdf(command, usualDocuments, arguments);
  command.add_flag("--mark", arguments.mark, "mark as sent what was printed");
  command.add_flag("--again", arguments.again, "print also what was sent already");
  command.footer(
      "Each is filed too, in its client's folder below the one that --documents names.\n" +
      command.get_footer());
}

Reply runPrint(host::Desk& desk, const Arguments& arguments) {
  requireNotifications(arguments, "print");
  const auto wanted = arguments.due ? host::notificationsToSend(desk, host::printedChannels)
                                    : host::ReadableRows<Id>{arguments.notifications, {}};
  const std::string pdf = pdfFile(desk, usualDocuments, arguments);
  const auto printed =
      doneOrRefuse(host::printDocuments(desk, wanted.rows, {pdf, arguments.mark, arguments.again}));
  Reply reply;
  reply.data = {{"pdf", printed.pages > 0 ? Json(pdf) : Json()},
                {"pages", printed.pages},
                {"notifications", Json::array()}};
  TextTable table({"NOTIFICATION", "RESULT", "DETAIL", "CLIENT AND TASK"});
  for (const PrintOutcome& outcome : printed.outcomes) report(reply, table, outcome, arguments.due);
  if (!showList(reply, table, wanted.unreadable)) reply.text = "No letter or fax is due.\n";
  if (printed.pages > 0) reply.text += fmt::format("{} in {}\n", pagesText(printed.pages), pdf);
  if (!arguments.mark) reply.text += markingText(printed.outcomes);
  return reply;
}

void describeWorklist(CLI::App& command, Arguments& arguments) {
  addAnyChannels(command, arguments);
  addDate(command, "--until", "what is due on this date or before (default: today)",
          arguments.until);
  addPdf(command, usualWorklist, arguments);
}

Reply runWorklist(host::Desk& desk, const Arguments& arguments) {
  host::WorklistWish wish{.until = arguments.until};
  if (!arguments.channels.empty()) wish.channels = 0;
  for (const notifyType channel : arguments.channels) wish.channels |= channel;
  if (wish.channels & nt_Email)
    throw Refusal("emails are on no list: they are sent (see: hvnotify worklist --help)",
                  exitUsage);
  const std::string pdf = pdfFile(desk, usualWorklist, arguments);
  const auto printed = doneOrRefuse(host::printWorklist(desk, wish, pdf));
  Reply reply;
  reply.data = {{"pdf", printed.pages > 0 ? Json(pdf) : Json()},
                {"pages", printed.pages},
                {"entries", printed.entries}};
  for (const host::UnreadableRow& row : printed.unreadable) reply.refuse(row.description());
  if (printed.pages > 0) {
    reply.text = fmt::format("{} entr{} on {} in {}\n", printed.entries,
                             printed.entries == 1 ? "y" : "ies", pagesText(printed.pages), pdf);
  } else if (printed.unreadable.empty()) {
    reply.text = "Nothing is due.\n";
  }
  return reply;
}

}  // namespace autonotify::console
