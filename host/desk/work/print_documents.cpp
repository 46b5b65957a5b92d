#include "host/desk/work/print_documents.h"

#include <fmt/format.h>

#include <filesystem>

#include "host/desk/rows/channel_names.h"
#include "host/documents/PdfFile.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

std::string titleOf(Desk& desk, const Notification& row) {
  return fmt::format("{} {}, {}", channelName(row.channel), row.id, clientName(desk, row));
}

/// One file with the documents of many notifications.
class Printing {
 public:
  Printing(Desk& desk, PrintingFormHost& printer, const PrintWish& wish)
      : desk_(desk), printer_(printer), wish_(wish), file_(wish.pdf) {}

  void print(Id id) {
    const auto make = [&](const Notification& row) { return makeIfPossible(row); };
    const auto leave = [&](const Notification&) { return notWritten(); };
    done_.outcomes.push_back(fault_.empty() ? withClaimedNotification<PrintOutcome>(desk_, id, make)
                                            : withNotification<PrintOutcome>(desk_, id, leave));
  }

  PrintedDocuments finish() {
    if (file_.pages() > 0) writing([&] { publish(); });
    for (PrintOutcome& outcome : done_.outcomes)
      if (outcome.result == PrintResult::printed) settle(outcome);
    if (fault_.empty()) done_.pages = file_.pages();
    return std::move(done_);
  }

 private:
  PrintOutcome makeIfPossible(const Notification& row) {
    const PrintResult possible = possibleResult(row);
    PrintOutcome outcome =
        possible == PrintResult::printed ? makeDocument(row) : PrintOutcome{possible};
    outcome.isMarked = stateOf(row) == NotificationState::sent;
    return outcome;
  }

  PrintResult possibleResult(const Notification& row) const {
    if (!(row.channel & printedChannels)) return PrintResult::otherChannel;
    switch (stateOf(row)) {
      case NotificationState::cancelled:
      case NotificationState::interruptedCancel:
        return PrintResult::cancelled;
      case NotificationState::sent:
        return wish_.again ? PrintResult::printed : PrintResult::alreadySent;
      case NotificationState::interruptedSending:
        return wish_.again ? PrintResult::printed : PrintResult::unknownWhetherSent;
      case NotificationState::unfinished:
        return PrintResult::unfinished;
      case NotificationState::pending:
        break;
    }
    return isWordless(row) ? PrintResult::noText : PrintResult::printed;
  }

  /// What could not be filed does not get into the file either.
  PrintOutcome makeDocument(const Notification& row) {
    const std::string title = titleOf(desk_, row);
    bool isMade = false;
    PrintOutcome outcome{PrintResult::failed};
    outcome.detail = desk_.errorsOf([&] { isMade = desk_.tools().makeDocument(row.id); });
    auto filed = desk_.takeFiled();
    const auto printed = printer_.takePrinted();
    if (!filed.empty()) outcome.filed = std::move(filed.back());
    if (!outcome.detail.empty()) return outcome;
    if (!isMade || !outcome.filed || printed.empty()) {
      outcome.detail = "no document could be made of it";
      return outcome;
    }
    outcome.result = PrintResult::printed;
    writing([&] { outcome.pages = file_.add(printed.back(), title); });
    return outcome;
  }

  /// What stands in the file, once that is whole.
  void settle(PrintOutcome& outcome) {
    if (!fault_.empty()) {
      outcome.result = PrintResult::notWritten;
      outcome.detail = fault_;
    } else if (wish_.mark) {
      outcome.markFault = mark(outcome.id);
      outcome.isMarked = outcome.markFault.empty();
    }
  }

  /// Why it could not be marked sent.
  std::string mark(Id id) {
    try {
      const auto claimed = claimNotification(desk_, id);
      if (!claimed) return whyNot(claimed.refused().why);
      const PrintResult now = possibleResult(claimed->row);
      if (now == PrintResult::cancelled) return "it was cancelled meanwhile";
      if (now == PrintResult::alreadySent) return "it was marked sent meanwhile";
      return desk_.errorsOf([&] { desk_.tools().changeNotificationToSent(id); });
    } catch (const PlatformError& error) {
      return firstLine(error.description());
    }
  }

  static std::string whyNot(Refused::Why why) {
    return why == Refused::Why::notThere ? "it was deleted meanwhile"
                                         : "another desk is at work on it";
  }

  void publish() {
    if (!file_.publish()) fault_ = "there is a file " + wish_.pdf + " by now";
  }

  /// After a failure the file is of no use.
  template <class Write>
  void writing(Write&& write) {
    try {
      write();
    } catch (const PlatformError& error) {
      fault_ = error.description();
    }
  }

  PrintOutcome notWritten() const { return {PrintResult::notWritten, fault_}; }

  Desk& desk_;
  PrintingFormHost& printer_;
  const PrintWish& wish_;
  PdfFile file_;
  /// Why the file cannot be written.
  std::string fault_;
  PrintedDocuments done_;
};

Refused refusedFile(const PrintWish& wish, const std::string& why) {
  return {Refused::Why::failed, wish.pdf, why};
}

}  // namespace

Outcome<PrintedDocuments> printDocuments(Desk& desk, const std::vector<Id>& notifications,
                                         const PrintWish& wish) {
  PrintingFormHost* const printer = desk.printer();
  if (!printer) return refusedFile(wish, "documents are shown here, one by one");
  try {
    const auto run = claimItem(desk, WorkItem::printRun, wholeFirm);
    if (!run) return refusedFile(wish, "another desk is printing; try again when it has finished");
    std::error_code error;
    if (fs::exists(fs::symlink_status(wish.pdf, error)))
      return refusedFile(wish, "there is a file of this name already");
    desk.requireDocuments();
    Printing printing(desk, *printer, wish);
    for (const Id id : notifications) printing.print(id);
    return printing.finish();
  } catch (const PlatformError& fault) {
    return refusedFile(wish, firstLine(fault.description()));
  }
}

}  // namespace autonotify::host
