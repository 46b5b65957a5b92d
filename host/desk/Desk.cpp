#include "host/desk/Desk.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#include "host/clients/HostScheduleTreeService.h"
#include "host/clients/record_rows.h"
#include "host/desk/databases.h"
#include "host/desk/places.h"
#include "host/desk/unfinished_rows.h"
#include "host/documents/HostClientDocumentFolder.h"
#include "host/services/HiddenFile.h"
#include "host/services/HostFileSystemObject.h"
#include "host/services/HostFileUtility.h"
#include "host/services/host_errors.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

std::string documentsBeside(const std::string& database) {
  return database + ".documents";
}

std::string outboxBeside(const std::string& database) {
  return database + ".outbox";
}

[[noreturn]] void refuse(int number, const std::string& why) {
  throw PlatformError(number, why, "Desk");
}

[[noreturn]] void refuseOutbox(const std::string& why) {
  refuse(error_number::invalidProcedureCall, why);
}

/// A mail system that looks into the one beside the link would find nothing there, and what is in
/// it could be sent again.
void requireNoOther(const std::string& outbox, const std::string& linked) {
  std::error_code error;
  if (!fs::exists(linked, error) || fs::equivalent(linked, outbox, error) || error) return;
  refuseOutbox(
      Words::tr("The outbox of this database is %1, but there is one beside the link to it as "
                "well; move all that is in %2 there and remove it",
                {outbox, linked}));
}

}  // namespace

std::string firstLine(const std::string& description) {
  return description.substr(0, description.find('\n'));
}

Desk::Desk(const DeskOptions& options, const DeskDialogs& dialogs)
    : dialogs_(dialogs),
      clock_(systemClock_, options.today),
      database_(openDatabase(options.database)),
      claims_(claimsOf(*database_)),
      locale_(LocaleSettings{}),
      // Its own: the component gives the files in it names that do not tell desks apart.
      workingFolder_(
          (fs::temp_directory_path() / fmt::format("hvnotify-{}-{}", ::geteuid(), ::getpid()))
              .string()),
      clients_(std::make_unique<ClientDirectory>(
          *database_, [this](bool isBatch) { database_->readSideBySide(isBatch); })),
      mailServer_(options.mailServer),
      plainMail_(options.plainMail),
      hasOwnOutbox_(options.outbox.empty() && isFile(options.database)),
      outbox_(hasOwnOutbox_ ? outboxBeside(fileOf(*database_)) : options.outbox),
      hasOwnDocuments_(options.documents.empty() && isFile(options.database)),
      documents_(hasOwnDocuments_ ? documentsBeside(fileOf(*database_)) : options.documents),
      hints_(options.hints) {
  if (hasOwnOutbox_) linkedOutbox_ = outboxBeside(options.database);
  readFirm(options);
  readUser(options);
  registerClasses();
  loadComponent();
  removeUnfinished(*this);
}

Desk::~Desk() = default;

void Desk::readFirm(const DeskOptions& options) {
  LocaleSettings& settings = locale_.settings();
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
}

void Desk::readUser(const DeskOptions& options) {
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
  if (!found && options.user)
    throw DeskFault(Words::tr("there is no user %1", {std::to_string(*options.user)}));
}

void Desk::registerClasses() {
  registry_.registerClass(EmailSender::className, [this] {
    makeOutbox();
    return newEmailSender();
  });
  registry_.registerClass(ClientDocumentFolder::className, [this] {
    return std::make_unique<HostClientDocumentFolder>(*clients_, requireDocuments());
  });
  registry_.registerClass(FileUtility::className, [this] {
    return std::make_unique<HostFileUtility>(
        [this](const std::string& path) { nameBeside_ = path; });
  });
  registry_.registerClass(FileSystemObject::className, [this] {
    const auto noteFiled = [this](const std::string& path, bool isBeside) {
      filed_.push_back({path, isBeside || path == nameBeside_});
    };
    return std::make_unique<HostFileSystemObject>(documents_, noteFiled);
  });
  registry_.registerClass<HostScheduleTreeService>();
}

void Desk::loadComponent() {
  try {
    library_ = std::make_unique<ComponentLibrary>(
        ComponentLibrary::locate(), PlatformServices{&registry_, &clock(), &dialogs_.forms});
  } catch (const ComponentError& error) {
    throw DeskFault(error.what());
  }
  control_ = library_->createControl();
  control_->put_errorClass(&dialogs_.errors);
  control_->put_MsgboxClass(&dialogs_.messages);
  control_->put_DatabaseReference(database_.get());
  control_->put_WorkingFolderReference(&workingFolder_);
  control_->put_LocaleReference(&locale_);
  control_->put_clientDropDownCtrlReference(clients_.get());
  tools_ = library_->createTools();
}

std::unique_ptr<clsFrmSentNotifyBulk> Desk::newBulkScheduler() {
  return library_->createBulkScheduler();
}

/// A step that was repeated until it went well has not failed.
std::string Desk::errorLine(std::vector<RecordedError> errors) {
  std::erase_if(errors, [](const RecordedError& error) {
    return error.choice != error_choice::next && error.choice != error_choice::leave;
  });
  if (errors.empty()) return {};
  std::string line = firstLine(errors.front().description);
  const std::size_t others = errors.size() - 1;
  if (others == 0) return line;
  return others == 1 ? Words::tr("%1 (and 1 more error)", {line})
                     : Words::tr("%1 (and %2 more errors)", {line, std::to_string(others)});
}

std::string Desk::messageIdentity(Id notification) const {
  return fmt::format("{}/notification/{}", databaseIdentity_, notification);
}

void Desk::makeOutbox() {
  if (outbox_.empty())
    refuseOutbox(Words::tr(
        "The emails of a database on a server need an outbox folder that all desks share; name "
        "one%1",
        {hints_.outbox}));
  std::error_code leftToTheSender;
  if (hasOwnOutbox_) {
    fs::create_directory(outbox_, leftToTheSender);
    requireNoOther(outbox_, linkedOutbox_);
  }
  if (!std::exchange(isOutboxTidy_, true)) HiddenFile::removeAbandoned(outbox_);
}

std::string Desk::requireDocuments() {
  if (documents_.empty())
    refuse(error_number::pathNotFound,
           Words::tr("The documents of a database on a server need a folder that all desks share; "
                     "name one%1",
                     {hints_.documents}));
  std::error_code error;
  if (hasOwnDocuments_) fs::create_directory(documents_, error);
  if (error)
    refuse(error_number::pathNotFound, Words::tr("The folder for documents %1 cannot be made: %2",
                                                 {documents_, error.message()}));
  if (!fs::is_directory(documents_, error))
    refuse(error_number::pathNotFound,
           Words::tr("The folder for documents %1 is not there; make it, or name "
                     "another one%2",
                     {documents_, hints_.documents}));
  if (::access(documents_.c_str(), W_OK | X_OK) != 0)
    refuse(error_number::pathFileAccess,
           Words::tr("The folder for documents %1 cannot be written to: %2",
                     {documents_, std::strerror(errno)}));
  return documents_;
}

std::unique_ptr<LookupBatch> lookupBatchFor(Desk& desk, std::size_t rows) {
  constexpr std::size_t manyRows = 4096;
  return rows > manyRows ? std::make_unique<LookupBatch>(desk) : nullptr;
}

std::unique_ptr<OutboxEmailSender> Desk::newEmailSender() {
  const auto identityOf = [this](Id notification) { return messageIdentity(notification); };
  auto sender = std::make_unique<OutboxEmailSender>(
      OutboxSettings{outbox_, {}, mailServer_, identityOf, !databaseIdentity_.empty(), plainMail_},
      clock());
  sender->put_errorClass(&dialogs_.errors);
  sender->put_MsgboxClass(&dialogs_.messages);
  sender->put_LocaleReference(&locale_);
  sender->put_DatabaseReference(database_.get());
  sender->put_workingFolder(workingFolder_.getWorkingFolder());
  return sender;
}

}  // namespace autonotify::host
