#include <gtest/gtest.h>

#include "host/database/sqlite/SqliteDatabase.h"

namespace autonotify::host {
namespace {
TEST(SqliteDatabase, OpensInMemory) {
  auto database = createSqliteInMemory();
  auto h = database->openRecordset("SELECT ClientNotification.* FROM ClientNotification;",
                                   CursorMode::keyset, LockMode::updatable, -1, "", -1, false);
  database->addNewRecord(h);
  database->setFieldValue(h, "NotificationType", "4");
  EXPECT_EQ(database->getFieldValue(h, "ClientNotificationID"), Value(1));
  database->saveNewRecord(h);
  EXPECT_EQ(database->getFieldValue(h, "notificationtype"), Value(4));
  EXPECT_EQ(database->getRecordCount(h), 1);
}
}  // namespace
}  // namespace autonotify::host
