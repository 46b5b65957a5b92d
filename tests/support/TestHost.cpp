#include "support/TestHost.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>

#include "host/clients/HostScheduleTreeService.h"
#include "host/services/HostFileUtility.h"
#include "host/services/HostGeneralUtilities.h"
#include "host/services/HostRichTextUtility.h"
#include "host/services/HostValidationUtilities.h"

namespace autonotify::test {
namespace {

/// A utility that the component creates passes the door like the injected services.
template <class CountedUtility, class Utility>
void count(host::ClassRegistry& registry, HostCalls& calls) {
  registry.registerClass(Utility::className, [&calls] {
    return std::make_unique<CountedUtility>(std::make_unique<Utility>(), calls);
  });
}

host::LocaleSettings testLocale() {
  host::LocaleSettings settings;
  settings.userId = 7;
  settings.year = 2026;
  return settings;
}

/// The bytes of a database that is filled so, made once.
const std::string& contentOf(FillRows fill) {
  static std::map<FillRows, std::string> contents;
  std::string& content = contents[fill];
  if (!content.empty()) return content;
  const auto database = host::createSqliteInMemory();
  fill(TableRows(*database));
  sqlite3_int64 size = 0;
  unsigned char* bytes = sqlite3_serialize(database->connection().getHandle(), "main", &size, 0);
  content.assign(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
  sqlite3_free(bytes);
  return content;
}

std::unique_ptr<host::SqliteDatabase> databaseWith(FillRows fill) {
  if (!fill) return host::createSqliteInMemory();
  const std::string& content = contentOf(fill);
  SQLite::Database connection(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  const auto size = static_cast<sqlite3_int64>(content.size());
  auto* copy = static_cast<char*>(sqlite3_malloc64(content.size()));
  std::copy_n(content.data(), content.size(), copy);
  sqlite3_deserialize(connection.getHandle(), "main", reinterpret_cast<unsigned char*>(copy), size,
                      size, SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE);
  return std::make_unique<host::SqliteDatabase>(std::move(connection));
}

}  // namespace

TestHost::TestHost(FillRows fill)
    : plainLocale(testLocale()),
      plainDatabase(databaseWith(fill)),
      plainClients(*plainDatabase, [this](bool on) { plainDatabase->readSideBySide(on); }),
      database(*plainDatabase, calls),
      clients(plainClients, calls),
      locale(plainLocale, calls) {
  count<CountedFileUtility, host::HostFileUtility>(registry, calls);
  count<CountedGeneralUtilities, host::HostGeneralUtilities>(registry, calls);
  count<CountedValidation, host::HostValidationUtilities>(registry, calls);
  count<CountedRichTextUtility, host::HostRichTextUtility>(registry, calls);
  registry.registerClass(ScheduleTreeService::className, [this] {
    auto tree = std::make_unique<host::HostScheduleTreeService>();
    tree->put_DatabaseReference(plainDatabase.get());
    return std::make_unique<CountedScheduleTree>(std::move(tree), calls);
  });
  registry.registerClass(ProgressDialog::className, [this] {
    return std::make_unique<CountedProgress>(screen.makeProgress(), calls);
  });
  registry.registerClass(EmailSender::className,
                         [this] { return std::make_unique<NotedEmail>(mailProgram, calls); });
  registry.registerClass(ClientDocumentFolder::className,
                         [this] { return std::make_unique<TestDocumentFolder>(documents, calls); });
  registry.registerClass(FileSystemObject::className,
                         [this] { return std::make_unique<TestTextFiles>(calls); });
}

AttachedHost::AttachedHost(FillRows fill) : TestHost(fill) {
  References fresh;
  fresh.platform = platform();
  fresh.databaseReference = &database;
  fresh.errors = &errors;
  fresh.msgboxClass = &screen;
  fresh.workingFolderReference = &workingFolder;
  fresh.localeReference = &locale;
  fresh.clientDropDown = &clients;
  references() = std::move(fresh);
  references().fileUtility = createHostObject<FileUtility>();
  references().generalUtilities = createHostObject<GeneralUtilities>();
  references().validationUtilities = createHostObject<ValidationUtilities>();
}

std::string TestHost::dump(const std::string& sql) {
  std::string text;
  SQLite::Statement rows(plainDatabase->connection(), sql);
  while (rows.executeStep()) {
    for (int i = 0; i < rows.getColumnCount(); ++i) {
      text += rows.getColumn(i).isNull() ? "NULL" : rows.getColumn(i).getString();
      text += '|';
    }
    text += '\n';
  }
  return text;
}

std::string TestHost::dumpWritten() {
  return dump("SELECT * FROM ClientNotification ORDER BY ClientNotificationID") +
         dump("SELECT ScheduleID, notifyType, ScheduleModifiedStamp FROM Schedule") +
         dump("SELECT * FROM ScheduleTypes ORDER BY ScheduleTypeID") +
         dump("SELECT * FROM ClientScheduleAutoNotifications") +
         dump("SELECT * FROM UserGeneralSettings ORDER BY UserIDNum");
}

std::string TestHost::notification(Id row, const std::string& columns) {
  return dump("SELECT " + columns +
              " FROM ClientNotification WHERE ClientNotificationID=" + std::to_string(row));
}

int TestHost::rowCount(const std::string& from) {
  return std::stoi(dump("SELECT COUNT(*) FROM " + from));
}

}  // namespace autonotify::test
