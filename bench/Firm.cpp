#include "bench/Firm.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>

#include <stdexcept>

#include "bench/Replay.h"
#include "contract/references.h"
#include "host/clients/HostScheduleTreeService.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"

namespace autonotify::bench {
namespace {

constexpr int manyNotifications = 100'000;
constexpr int notificationsOfManyYears = 1'000'000;
constexpr const char* addKinds =
    "WITH RECURSIVE Numbers(Number) AS (SELECT count(*)+1 FROM ScheduleTypes UNION ALL SELECT "
    "Number+1 FROM Numbers WHERE Number<250) INSERT INTO ScheduleTypes (TotalNum, ScheduleNum, "
    "ScheduleTypeNum, ScheduleTypeName) SELECT 1000+Number/10, Number%10, Number, 'Kind '||Number "
    "FROM Numbers";

host::LocaleSettings settings() {
  host::LocaleSettings settings;
  settings.userId = 1;
  settings.year = 2026;
  return settings;
}

std::unique_ptr<host::SqliteDatabase> filled(std::unique_ptr<host::SqliteDatabase> database,
                                             const host::DemoOptions& options) {
  host::SqliteRowSink sink(database->connection());
  host::makeDemoFirm(sink, options);
  return database;
}

void removeFile(const std::filesystem::path& path) {
  for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path.string() + suffix);
}

std::unique_ptr<host::SqliteDatabase> makeFile(const std::filesystem::path& path,
                                               const host::DemoOptions& options = {}) {
  removeFile(path);
  return filled(host::createSqlite(path), options);
}

}  // namespace

FirmHost::FirmHost(std::unique_ptr<host::RecordsetDatabase> database)
    : database_(std::move(database)),
      clients_(*database_, [this](bool isBatch) { database_->readSideBySide(isBatch); }),
      errors_(host::Terminal{}),
      messages_(host::Terminal{}),
      locale_(settings()),
      workingFolder_(std::filesystem::temp_directory_path().string()) {
  registry_.registerClass<host::HostScheduleTreeService>();
}

FirmHost::~FirmHost() {
  if (references().databaseReference == database_.get()) references() = References{};
}

void FirmHost::attach() {
  References fresh;
  fresh.platform = {&registry_, &clock_, &forms_};
  fresh.databaseReference = database_.get();
  fresh.errors = &errors_;
  fresh.msgboxClass = &messages_;
  fresh.workingFolderReference = &workingFolder_;
  fresh.localeReference = &locale_;
  fresh.clientDropDown = &clients_;
  references() = std::move(fresh);
  references().fileUtility = createHostObject<FileUtility>();
  references().generalUtilities = createHostObject<GeneralUtilities>();
  references().validationUtilities = createHostObject<ValidationUtilities>();
  errors_.takeRecorded();
}

void FirmHost::requireNoErrors() const {
  if (errors_.recorded().empty()) return;
  const host::RecordedError& error = errors_.recorded().front();
  throw std::logic_error(error.procedure + ": " + error.description);
}

Firm::Firm(std::unique_ptr<host::SqliteDatabase> database) : Firm(*database, std::move(database)) {}

Firm::Firm(host::SqliteDatabase& kept, std::unique_ptr<host::SqliteDatabase>&& database)
    : FirmHost(std::move(database)), database_(kept) {}

Firm::~Firm() = default;

sqlite3* Firm::connection() {
  return database_.connection().getHandle();
}

std::vector<Id> Firm::ids(const std::string& select) {
  std::vector<Id> result;
  SQLite::Statement rows(database_.connection(), select);
  while (rows.executeStep()) result.push_back(rows.getColumn(0).getInt());
  return result;
}

const std::vector<Id>& Firm::entries() {
  if (entries_.empty()) {
    entries_ =
        ids("SELECT ScheduleID FROM Schedule WHERE ClientNum>=0 AND EXISTS (SELECT 1 FROM Tasks "
            "WHERE ScheduleIDNum=ScheduleID) ORDER BY ScheduleID * 7919 % 10007 LIMIT 1000");
  }
  return entries_;
}

Replay& Firm::replay(const std::string& name, const std::function<void(Replay&)>& record) {
  const auto [place, isNew] = replays_.try_emplace(name, connection());
  if (isNew) record(place->second);
  return place->second;
}

Firms::Firms(std::filesystem::path folder) : folder_(std::move(folder)) {
  std::filesystem::create_directories(folder_);
}

Firm& Firms::inMemory() {
  if (!inMemory_)
    inMemory_ = std::make_unique<Firm>(std::make_unique<host::SqliteDatabase>(copyInMemory()));
  return *inMemory_;
}

Firm& Firms::ofManyKinds() {
  if (!ofManyKinds_) {
    SQLite::Database copy = copyInMemory();
    copy.exec(addKinds);
    ofManyKinds_ = std::make_unique<Firm>(std::make_unique<host::SqliteDatabase>(std::move(copy)));
  }
  return *ofManyKinds_;
}

Firm& Firms::onDisk() {
  if (!onDisk_) onDisk_ = std::make_unique<Firm>(makeFile(folder_ / "firm.db"));
  return *onDisk_;
}

Firm& Firms::ofManyNotifications() {
  if (!ofManyNotifications_)
    ofManyNotifications_ = std::make_unique<Firm>(
        filled(host::createSqliteInMemory(), {.pastNotifications = manyNotifications}));
  return *ofManyNotifications_;
}

Firm& Firms::ofManyYears() {
  const std::filesystem::path file = fileOfManyYears();
  if (!std::filesystem::exists(file)) {
    const std::filesystem::path draft = folder_ / "million.draft.db";
    makeFile(draft, {.pastNotifications = notificationsOfManyYears});
    std::filesystem::rename(draft, file);
  }
  if (!ofManyYears_) ofManyYears_ = std::make_unique<Firm>(host::openSqlite(file));
  return *ofManyYears_;
}

Firm& Firms::ofManyTasks() {
  if (!ofManyTasks_)
    ofManyTasks_ =
        std::make_unique<Firm>(makeFile(folder_ / "tasks.db", {.companies = 500, .contacts = 750}));
  return *ofManyTasks_;
}

std::unique_ptr<host::SqliteDatabase> Firms::copyOnDisk(const std::string& name) {
  const std::filesystem::path path = folder_ / name;
  removeFile(path);
  onDisk().database().connection().exec("VACUUM INTO '" + path.string() + "'");
  return host::openSqlite(path);
}

SQLite::Database copyInMemory(Firm& firm) {
  SQLite::Database copy(":memory:",
                        SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE | SQLite::OPEN_NOMUTEX);
  SQLite::Backup(copy, firm.database().connection()).executeStep();
  return copy;
}

}  // namespace autonotify::bench
