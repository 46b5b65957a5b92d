#include "bench/Firm.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>

#include <stdexcept>

#include "contract/references.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"

namespace autonotify::bench {
namespace {

constexpr int manyNotifications = 1'000'000;

host::LocaleSettings settings() {
  host::LocaleSettings settings;
  settings.userId = 1;
  settings.year = 2026;
  return settings;
}

std::unique_ptr<host::SqliteDatabase> makeFile(const std::filesystem::path& path,
                                               int pastNotifications) {
  for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path.string() + suffix);
  std::unique_ptr<host::SqliteDatabase> database = host::createSqlite(path);
  host::DemoOptions options;
  options.pastNotifications = pastNotifications;
  host::SqliteRowSink sink(database->connection());
  host::makeDemoFirm(sink, options);
  return database;
}

}  // namespace

Firm::Firm(std::unique_ptr<host::SqliteDatabase> database)
    : database_(std::move(database)),
      clients_(*database_),
      errors_(host::Terminal{}),
      messages_(host::Terminal{}),
      locale_(settings()),
      workingFolder_(std::filesystem::temp_directory_path().string()) {}

Firm::~Firm() {
  if (references().databaseReference == database_.get()) references() = References{};
}

void Firm::attach() {
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

void Firm::requireNoErrors() const {
  if (errors_.recorded().empty()) return;
  const host::RecordedError& error = errors_.recorded().front();
  throw std::logic_error(error.procedure + ": " + error.description);
}

sqlite3* Firm::connection() {
  return database_->connection().getHandle();
}

std::vector<Id> Firm::ids(const std::string& select) {
  std::vector<Id> result;
  SQLite::Statement rows(database_->connection(), select);
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

Firms::Firms(std::filesystem::path folder) : folder_(std::move(folder)) {
  std::filesystem::create_directories(folder_);
}

Firm& Firms::inMemory() {
  if (!inMemory_)
    inMemory_ = std::make_unique<Firm>(std::make_unique<host::SqliteDatabase>(copyInMemory()));
  return *inMemory_;
}

Firm& Firms::onDisk() {
  if (!onDisk_) onDisk_ = std::make_unique<Firm>(makeFile(folder_ / "firm.db", 0));
  return *onDisk_;
}

Firm& Firms::ofManyYears() {
  if (!ofManyYears_)
    ofManyYears_ = std::make_unique<Firm>(makeFile(fileOfManyYears(), manyNotifications));
  return *ofManyYears_;
}

SQLite::Database Firms::copyInMemory() {
  SQLite::Database copy(":memory:",
                        SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE | SQLite::OPEN_NOMUTEX);
  SQLite::Backup(copy, onDisk().database().connection()).executeStep();
  return copy;
}

}  // namespace autonotify::bench
