#include "host/desk/work/print_documents.h"

#include <fmt/format.h>

#include <filesystem>
#include <memory>

#include "host/desk/rows/channel_names.h"
#include "host/desk/work/claiming.h"
#include "host/documents/PdfFile.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

std::string titleOf(Id id, const SendSubject& about) {
  return fmt::format("{} {}, {}", channelName(about.channel), id, about.client);
}

/// One file with the documents of many notifications.
class Printing {
 public:
  Printing(Desk& desk, PrintingFormHost& printer, const PrintWish& wish)
      : desk_(desk), printer_(printer), wish_(wish), file_(wish.pdf) {}

  void print(Id id) {
    PrintOutcome outcome{PrintResult::notThere};
    std::optional<SendSubject> about;
    try {
      if (const auto row = findNotification(desk_, id)) {
        about = {row->channel, clientName(desk_, *row), itemName(desk_, *row)};
        outcome = fault_.empty() ? printRow(*row, titleOf(id, *about)) : notWritten();
      }
    } catch (const PlatformError& error) {
      outcome = {PrintResult::failed, firstLine(error.description())};
    }
    outcome.about = std::move(about);
    done_.outcomes.push_back(std::move(outcome));
  }

  PrintedDocuments finish(const std::vector<Id>& notifications) {
    if (file_.pages() > 0) writing([&] { publish(); });
    for (std::size_t i = 0; i < notifications.size(); ++i) {
      PrintOutcome& outcome = done_.outcomes[i];
      if (outcome.result != PrintResult::printed) continue;
      if (!fault_.empty()) {
        outcome.result = PrintResult::notWritten;
        outcome.detail = fault_;
      } else if (wish_.mark) {
        const Id id = notifications[i];
        outcome.markFault = desk_.errorsOf([&] { desk_.tools().changeNotificationToSent(id); });
      }
    }
    if (fault_.empty()) done_.pages = file_.pages();
    return std::move(done_);
  }

 private:
  /// The row is read again once it is claimed.
  PrintOutcome printRow(const Notification& known, const std::string& title) {
    auto claim = claimNotification(desk_, known);
    if (!claim) return {PrintResult::atWorkElsewhere};
    const auto row = findNotification(desk_, known.id);
    if (!row) return {PrintResult::notThere};
    const PrintResult possible = possibleResult(*row);
    if (possible != PrintResult::printed) return {possible};
    PrintOutcome outcome = makeDocument(row->id, title);
    if (wish_.mark) claims_.push_back(*std::move(claim));
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
      case NotificationState::pending:
        break;
    }
    return PrintResult::printed;
  }

  /// What could not be filed does not get into the file either.
  PrintOutcome makeDocument(Id id, const std::string& title) {
    bool isMade = false;
    PrintOutcome outcome{PrintResult::failed};
    outcome.detail = desk_.errorsOf([&] { isMade = desk_.tools().makeDocument(id); });
    const auto filed = desk_.takeFiled();
    const auto printed = printer_.takePrinted();
    if (!filed.empty()) outcome.filed = filed.back();
    if (!outcome.detail.empty()) return outcome;
    if (!isMade || filed.empty() || printed.empty()) {
      outcome.detail = "no document could be made of it";
      return outcome;
    }
    outcome.result = PrintResult::printed;
    writing([&] { outcome.pages = file_.add(printed.back(), title); });
    return outcome;
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
  std::vector<std::unique_ptr<Claim>> claims_;
  PrintedDocuments done_;
};

Refused refusedFile(const PrintWish& wish, const std::string& why) {
  return {Refused::Why::failed, wish.pdf, why};
}

}  // namespace

bool isBesideAnother(const std::string& filed) {
  return fs::path(filed).stem().string().ends_with(")");
}

Outcome<PrintedDocuments> printDocuments(Desk& desk, const std::vector<Id>& notifications,
                                         const PrintWish& wish) {
  PrintingFormHost* const printer = desk.printer();
  if (!printer) return refusedFile(wish, "documents are shown here, one by one");
  std::error_code error;
  if (fs::exists(fs::symlink_status(wish.pdf, error)))
    return refusedFile(wish, "there is a file of this name already");
  try {
    desk.requireDocuments();
    Printing printing(desk, *printer, wish);
    for (const Id id : notifications) printing.print(id);
    return printing.finish(notifications);
  } catch (const PlatformError& fault) {
    return refusedFile(wish, firstLine(fault.description()));
  }
}

}  // namespace autonotify::host
