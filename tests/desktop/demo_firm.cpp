#include "demo_firm.h"

#include "host/database/sqlite/SqliteDatabase.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"

namespace autonotify::desktop {

void makeDemoFirm(const std::string& path, int companies, int contacts, DateTime today) {
  const auto database = host::createSqlite(path);
  host::SqliteRowSink sink(database->connection());
  host::DemoOptions demo;
  demo.companies = companies;
  demo.contacts = contacts;
  demo.today = today;
  host::makeDemoFirm(sink, demo);
  sink.insert("DatabaseIdentity", {{"UniqueText", "test"}});
}

}  // namespace autonotify::desktop
