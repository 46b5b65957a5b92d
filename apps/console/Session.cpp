#include "Session.h"

#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>
#include <iostream>

#include "Reply.h"
#include "host/database/dialect/DatabaseError.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "places.h"
#include "rows.h"

namespace autonotify::console {
namespace {

namespace fs = std::filesystem;

std::unique_ptr<DatabaseReference> openDatabase(const std::string& path) {
  try {
    return host::openSqlite(path);
  } catch (const host::DatabaseError& error) {
    throw Refusal(fileFault(path, error.description()), exitDatabase);
  }
}

std::unique_ptr<Clock> makeClock(Clock& system, const std::optional<DateTime>& today) {
  if (today) return std::make_unique<host::DateShiftedClock>(system, *today);
  return std::make_unique<host::SystemClock>();
}

/// Errors are shown and settled at a terminal; elsewhere every failed procedure is left and what
/// went wrong is reported with the command's result.
host::Terminal makeTerminal(const GlobalOptions& options) {
  const bool isInteractive = !options.batch && isatty(STDIN_FILENO) && isatty(STDERR_FILENO);
  return isInteractive ? host::Terminal{&std::cin, &std::cerr} : host::Terminal{};
}

}  // namespace

Session::Session(const GlobalOptions& options)
    : clock_(makeClock(systemClock_, options.today)),
      database_(openDatabase(options.database)),
      terminal_(makeTerminal(options)),
      errors_(terminal_),
      messages_(terminal_),
      locale_(host::LocaleSettings{}),
      workingFolder_((fs::temp_directory_path() / "hvnotify").string()),
      clients_(std::make_unique<host::ClientDirectory>(*database_)),
      hasOwnOutbox_(options.outbox.empty()),
      outbox_(hasOwnOutbox_ ? options.database + ".outbox" : options.outbox) {
  readFirm(options);
  registry_.registerClass(EmailSender::className, [this] {
    makeOutbox();
    return newEmailSender();
  });
  loadComponent();
}

Session::~Session() = default;

void Session::readFirm(const GlobalOptions& options) {
  host::LocaleSettings& settings = locale_.settings();
  settings.firmCode = options.firmCode;
  settings.year = static_cast<std::int16_t>(today().year());
  firstRow(*database_,
           "SELECT AccountantFirmInfo.Country, AccountantFirmInfo.Province FROM "
           "AccountantFirmInfo;",
           [&](const Row& row) {
             settings.country = findCountry(row.text("Country")).value_or(countryCanada);
             settings.province = findProvince(row.text("Province")).value_or(provinceOntario);
           });
  firstRow(*database_, "SELECT DatabaseIdentity.UniqueText FROM DatabaseIdentity;",
           [&](const Row& row) { databaseIdentity_ = row.text("UniqueText"); });
  readUser(options);
}

void Session::readUser(const GlobalOptions& options) {
  const std::string condition =
      options.user ? fmt::format("WHERE AccountantEmployeeInfo.ContactID={} ", *options.user) : "";
  const bool found =
      firstRow(*database_,
               "SELECT AccountantEmployeeInfo.ContactID, AccountantEmployeeInfo.UserLevel FROM "
               "AccountantEmployeeInfo " +
                   condition + "ORDER BY AccountantEmployeeInfo.ContactID;",
               [&](const Row& row) {
                 locale_.settings().userId = row.id("ContactID");
                 locale_.settings().accessLevel = static_cast<std::int16_t>(row.id("UserLevel", 1));
               });
  if (!found && options.user) throw Refusal(fmt::format("there is no user {}", *options.user));
}

void Session::loadComponent() {
  try {
    library_ = std::make_unique<host::ComponentLibrary>(
        host::ComponentLibrary::locate(), PlatformServices{&registry_, clock_.get(), &forms_});
  } catch (const host::ComponentError& error) {
    throw Refusal(error.what());
  }
  control_ = library_->createControl();
  control_->put_errorClass(&errors_);
  control_->put_MsgboxClass(&messages_);
  control_->put_DatabaseReference(database_.get());
  control_->put_WorkingFolderReference(&workingFolder_);
  control_->put_LocaleReference(&locale_);
  control_->put_clientDropDownCtrlReference(clients_.get());
  tools_ = library_->createTools();
}

std::string Session::messageIdentity(Id notification) const {
  return fmt::format("{}/notification/{}", databaseIdentity_, notification);
}

void Session::makeOutbox() {
  std::error_code leftToTheSender;
  if (hasOwnOutbox_) fs::create_directory(outbox_, leftToTheSender);
}

std::unique_ptr<host::OutboxEmailSender> Session::newEmailSender() {
  auto sender =
      std::make_unique<host::OutboxEmailSender>(host::OutboxSettings{outbox_, {}}, *clock_);
  sender->put_errorClass(&errors_);
  sender->put_MsgboxClass(&messages_);
  sender->put_LocaleReference(&locale_);
  sender->put_DatabaseReference(database_.get());
  sender->put_workingFolder(workingFolder_.getWorkingFolder());
  return sender;
}

std::string Session::errorLine(const std::vector<host::RecordedError>& errors) {
  if (errors.empty()) return {};
  const host::RecordedError& first = errors.front();
  std::string line = firstLine(first.description);
  const std::size_t others = errors.size() - 1;
  if (others > 0) line += fmt::format(" (and {} more error{})", others, others == 1 ? "" : "s");
  return line;
}

}  // namespace autonotify::console
