// The database of the reference host in an application of one's own: an empty firm, asked for its
// kinds of tasks.
#include <iostream>

#include "host/database/sqlite/SqliteDatabase.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"

int main() {
  using namespace autonotify;
  const auto database = host::createSqliteInMemory();
  host::SqliteRowSink sink(database->connection());
  host::seedEssentials(sink, {.firmName = "Harbour & Pine LLP", .userName = "Anna Harbour"});

  DatabaseReference& reference = *database;
  const RecordsetHandle kinds = reference.openRecordset(
      "SELECT ScheduleTypeName FROM ScheduleTypes ORDER BY ScheduleTypeName;",
      CursorMode::forwardOnly, LockMode::readOnly, -1, "", -1, false);
  int count = 0;
  for (; !reference.isEndOfRecordset(kinds); reference.moveNext(kinds)) ++count;
  reference.closeRecordset(kinds);
  std::cout << "an empty firm has " << count << " kinds of tasks\n";
  return count > 0 ? 0 : 1;
}
