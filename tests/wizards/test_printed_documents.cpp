#include <span>

#include "ComposerTest.h"
#include "platform/rich_text.h"
#include "support/fault_walk.h"
#include "wizards/documents/drFax.h"
#include "wizards/documents/drLetter.h"

namespace autonotify::test {
namespace {

constexpr Id row = 1, company = 1, contact = 3;

void fillPrintingOffice(TableRows rows) {
  const ComposerOffice office(rows);
  while (rows.addRow("Contacts", {{"DisplayName", "Cara Holm"}}) < contact) continue;
  rows.addNamedByColumn("AccountantFirmInfo", {"CompanyName", "Address", "City", "Province",
                                               "PostalCode", "OfficeNumber", "FaxNumber"});
}

/// As composers do that leave nothing of what they send.
struct OpenComposer : Form {
  using Form::Form;
  bool queryUnload(CloseReason) override { return deleteNotification(row); }
};

/// The files of clients and of the working folder, as a person reads them.
std::string filesOf(const std::filesystem::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.is_regular_file())
      files[entry.path().lexically_relative(folder)] = plainTextOf(readFile(entry.path()));
  std::string told;
  for (const auto& [name, text] : files) told += name + "\n" + text + "\n";
  return told;
}

/// Files of this day that are there already.
const std::string earlier =
    "Contact 3/2/Fax - Apr 15 2026.mvw\nthe fax before\n"
    "Contact 3/2/Letter - Apr 15 2026.mvw\nthe letter before\n";
void fileEarlier(const TemporaryFolder& documents) {
  const std::string folder = documents / "Contact 3/2/";
  std::filesystem::create_directories(folder);
  writeFile(folder + "Fax - Apr 15 2026.mvw", "the fax before");
  writeFile(folder + "Letter - Apr 15 2026.mvw", "the letter before");
}

constexpr int breaksOff = -1;

/// A line of printed_cases.txt: its name, and what differs from the usual as "what=text".
struct Case {
  explicit Case(const std::vector<std::string>& cells) : name(cells[0]) {
    for (const std::string& cell : std::span(cells).subspan(1))
      told[cell.substr(0, cell.find('='))] = cell.substr(cell.find('=') + 1);
  }
  std::string text(const std::string& what) const {
    return told.contains(what) ? told.at(what) : "";
  }
  int number(const std::string& what, int otherwise = 0) const {
    return told.contains(what) ? std::stoi(told.at(what)) : otherwise;
  }

  std::string name;
  std::map<std::string, std::string> told = {};
};

void print(const std::string& report, const Case& each) {
  const auto initialize = [&](DocumentReport& document) {
    document.Initialize(each.number("id", row), each.number("deletes") != 0,
                        each.number("company", company), each.number("contact", noId));
  };
  report == "drFax" ? initialize(*std::make_unique<drFax>())
                    : initialize(*std::make_unique<drLetter>());
}

/// Looks at the report, lets its job fail, closes it.
void use(ReportInUse& report, int failedJob, std::string& told) {
  const auto [left, top, right, bottom] = report.margins();
  for (const int margin : {left, top, right, bottom}) told += " " + toText(margin);
  for (const ReportLabel* label : report.onShow().labels())
    told += "\n" + label->section() + " " + label->name() + "=" + report.read(label->name());
  EXPECT_NE(dynamic_cast<void*>(report.onShow().dataSource()), nullptr);
  if (failedJob == breaksOff) throw PlatformError(1000, "The preview broke off.");
  const bool hostTells = failedJob > 0 && report.failJob(failedJob, 482, "No printer.");
  EXPECT_EQ(hostTells, failedJob == 3);
  if (failedJob == 0 || hostTells) report.close();
  EXPECT_THROW(report.close(), std::logic_error);
}

void printFromList(AttachedHost& host, const char* report, const Case& each, std::string& told) {
  const OpenComposer fax(host.screen, "FRMSENDNOTIFICATIONWIZARDFAX");
  const OpenComposer letter(host.screen, "FRMSENDNOTIFICATIONWIZARDLETTER");
  Form list(host.screen, "FRMAUTONOTIFYLIST");
  const bool isShown = each.text("list") == "shown";
  host.screen.expectWindow(list.name(), [&](WindowInUse&) {
    if (isShown) print(report, each);
    list.hide();
  });
  isShown ? list.showModal(host.plainLocale.getActiveWindow()) : print(report, each);
  for (const Form* form : host.screen.openForms()) told += "\nloaded " + form->name();
}

/// What the person sees, what the host is asked from then on (of the first case, from the start),
/// and what is left.
std::string tell(const Case& each, const char* report) {
  AttachedHost host(fillPrintingOffice);
  fileEarlier(host.documents);
  host.plainDatabase->connection().exec(each.text("sql"));
  host.database.isClosed = each.number("closed") != 0;
  host.plainLocale.settings().country = countryCode{each.number("country", countryCanada)};
  const int failedJob = each.number("failed job"), failures = each.number("failures");
  host.errors.answerRest(error_choice::next, failures);
  std::string told = "\n[" + std::string(report) + " " + each.name + "]";
  const bool isMissing = each.number("id") == 99;
  const bool isShown = !isMissing && !host.database.isClosed;
  if (isShown) host.screen.expectReport(report, [&](auto& shown) { use(shown, failedJob, told); });
  if (isMissing)
    host.screen.expectMessage("There are no records to view for this report",
                              message_style::warning);
  if (failedJob == report_job::printing || failedJob == report_job::exporting)
    host.screen.expectMessage(
        "There was an error printing this report.\r\n\r\nError #:482\r\n\r\nError:No printer.",
        message_style::reportError, report);
  host.calls.record(true);
  each.told.contains("list") ? printFromList(host, report, each, told) : print(report, each);
  bool isTold = each.told.empty() || !isShown;
  for (const std::string& call : host.calls.log()) {
    isTold = isTold || call.starts_with("showReport");
    if (isTold) told += "\n" + call;
  }
  for (const auto& error : host.errors.recorded())
    told += "\nerror " + toText(error.number) + " in " + error.tag;
  host.screen.finish();
  EXPECT_EQ(host.errors.dialogs(), failures);
  told += "\nrows " + toText(host.notificationCount()) + "\n" + filesOf(host.documents.path());
  return replaceAll(replaceAll(told, host.documents.path().string(), "DOCUMENTS"), earlier, "");
}

TEST(PrintedDocuments, AreSeenAndFiledAsTheyWere) {
  std::string told;
  for (const char* report : {"drFax", "drLetter"})
    for (const auto& cells : rowsOf("printed_cases.txt", "cases", 1))
      told += tell(Case(cells), report);
  expectGolden(AUTONOTIFY_TEST_FOLDER "printed_documents.txt", told);
}

TEST(PrintedDocuments, SurviveEveryFaultAndReplaceNoOther) {
  for (const char* report : {"drFax", "drLetter"}) {
    const auto run = [&](TestHost& host) {
      host.screen.answerAll(true);
      host.screen.expectReport(report, [](ReportInUse& shown) { shown.close(); });
      fileEarlier(host.documents);
      print(report, Case({"", "contact=" + std::to_string(contact)}));
      const std::string files = filesOf(host.documents.path());
      for (const char* text : {"mvw\nthe fax before", "mvw\nthe letter before"})
        EXPECT_THAT(files, testing::HasSubstr(text));
      EXPECT_THAT(files, testing::AnyOf(testing::Not(testing::HasSubstr("(2).mvw")),
                                        testing::HasSubstr("2026-04-15")));
      return files;
    };
    EXPECT_GT(walkFaults({.run = run, .defaultResult = earlier}, {fillPrintingOffice}), 40);
  }
}

}  // namespace
}  // namespace autonotify::test
