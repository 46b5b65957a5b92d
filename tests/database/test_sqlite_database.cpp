#include "host/database/sqlite/SqliteDatabase.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/schema/Schema.h"
#include "tests/database/conformance.h"
#include "tests/database/conformance_random_walk.h"

namespace autonotify::host {
namespace {

namespace files = std::filesystem;
using conformance::errorOf;

constexpr const char* allNotifications = "SELECT ClientNotification.* FROM ClientNotification;";

class SqliteFileTest : public testing::Test {
 protected:
  SqliteFileTest() {
    files::remove_all(folder);
    files::create_directories(folder);
  }
  ~SqliteFileTest() override {
    std::error_code ignored;
    files::remove_all(folder, ignored);
  }

  void write(const files::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
  }

  /// The error of opening, whose description must name the file or the fault.
  int openError(OpenMode mode = OpenMode::readWrite) {
    return errorOf([&] { openSqlite(file, mode, 50); });
  }

  void execute(const std::string& sql) {
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(sql);
  }

  files::path folder = files::temp_directory_path() /
                       ("autonotify-sqlite-" + std::to_string(getpid()) + "-" +
                        testing::UnitTest::GetInstance()->current_test_info()->name());
  files::path file = folder / "firm.db";
};

TEST_F(SqliteFileTest, WhatCannotBeOpenedIsToldApart) {
  EXPECT_EQ(openError(), database_error::missing);
  EXPECT_FALSE(files::exists(file));

  files::create_directory(file);
  EXPECT_EQ(openError(), database_error::cannotOpen);
  files::remove(file);

  write(file, "");
  EXPECT_EQ(openError(), database_error::foreign);

  write(file, std::string(8192, 'x'));
  EXPECT_EQ(openError(), database_error::corrupt);
  files::remove(file);

  execute("CREATE TABLE Recipes (Name TEXT)");
  EXPECT_EQ(openError(), database_error::foreign);
  EXPECT_EQ(openError(OpenMode::readOnly), database_error::foreign);
  files::remove(file);

  createSqlite(file);
  execute("PRAGMA user_version=" + std::to_string(schemaVersion + 1));
  EXPECT_EQ(openError(), database_error::newerSchema);
}

TEST_F(SqliteFileTest, ADamagedFileFailsWhenTheDamageIsRead) {
  createSqlite(file);
  {
    std::fstream content(file, std::ios::in | std::ios::out | std::ios::binary);
    content.seekp(4096);
    content << std::string(static_cast<std::size_t>(files::file_size(file)) - 4096, 'x');
  }
  const int error = errorOf([&] {
    const auto database = openSqlite(file);
    conformance::column(*database, allNotifications, "Field1");
  });
  EXPECT_EQ(error, database_error::corrupt);
}

TEST_F(SqliteFileTest, CreatingNeverOverwrites) {
  write(file, "precious");
  EXPECT_EQ(errorOf([&] { createSqlite(file); }), database_error::alreadyExists);
  EXPECT_EQ(files::file_size(file), 8u);
  EXPECT_EQ(errorOf([&] { createSqlite(folder / "none" / "firm.db"); }),
            database_error::cannotOpen);
}

TEST_F(SqliteFileTest, RowsLastAfterClosingAndAReadOnlyDatabaseRefusesWrites) {
  {
    const auto database = createSqlite(file);
    conformance::addNotification(*database, {{"Field1", "kept"}});
    database->close();
    EXPECT_FALSE(database->isDatabaseOpen());
    database->close();
  }
  const auto database = openSqlite(file, OpenMode::readOnly);
  const RecordsetHandle rows = conformance::open(*database, allNotifications);
  EXPECT_EQ(errorOf([&] { conformance::update(*database, rows, "Field1", "x"); }),
            database_error::readOnly);
  EXPECT_EQ(errorOf([&] { database->addNewRecord(rows); }), database_error::readOnly);
  EXPECT_EQ(database->getFieldValue(rows, "Field1"), Value("kept"));
}

TEST_F(SqliteFileTest, ALockedWriteMayBeTriedAgain) {
  createSqlite(file);
  const auto database = openSqlite(file, OpenMode::readWrite, 20);
  const Id id = conformance::addNotification(*database, {{"Field1", "old"}});
  const RecordsetHandle rows = conformance::open(*database, conformance::notification(id));
  const RecordsetHandle adding = conformance::open(*database, allNotifications);
  database->addNewRecord(adding);
  database->setFieldValue(adding, "Field1", "added");
  SQLite::Database other(file.string(), SQLite::OPEN_READWRITE);
  other.exec("BEGIN IMMEDIATE");
  try {
    conformance::update(*database, rows, "Field1", "new");
    ADD_FAILURE() << "written beside another writer";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.number(), database_error::locked);
    EXPECT_TRUE(error.mayRetry());
    EXPECT_NE(error.nativeCode(), 0);
    EXPECT_NE(error.sql().find("UPDATE ClientNotification"), std::string::npos);
  }
  EXPECT_EQ(errorOf([&] { database->saveNewRecord(adding); }), database_error::locked);
  EXPECT_EQ(conformance::field(*database, id, "Field1"), Value("old"));
  other.exec("ROLLBACK");
  conformance::update(*database, rows, "Field1", "new");
  database->saveNewRecord(adding);
  EXPECT_EQ(conformance::column(*database, allNotifications, "Field1"),
            conformance::values({"new", "added"}));
}

TEST_F(SqliteFileTest, AClosedDatabaseRefusesEverything) {
  const auto database = createSqlite(file);
  const RecordsetHandle rows = conformance::open(*database, allNotifications);
  database->close();
  EXPECT_FALSE(database->isRecordsetOpen(rows));
  EXPECT_EQ(errorOf([&] { conformance::open(*database, allNotifications); }),
            database_error::closed);
  EXPECT_EQ(errorOf([&] { database->hasRecords(rows); }), database_error::closed);
  EXPECT_EQ(errorOf([&] { database->closeRecordset(rows); }), database_error::closed);
  EXPECT_EQ(errorOf([&] { database->connection(); }), database_error::closed);
}

TEST(SqliteMemory, KeysGoOnBehindRowsInsertedByOtherMeans) {
  const auto database = createSqliteInMemory();
  database->connection().exec(
      "INSERT INTO ClientNotification(ClientNotificationID, Field1) VALUES (41, 'seeded');"
      "DELETE FROM ClientNotification");
  EXPECT_EQ(conformance::addNotification(*database, {}), 42);
  EXPECT_EQ(conformance::addNotification(*database, {{"ClientNotificationID", "90"}}), 90);
  EXPECT_EQ(conformance::addNotification(*database, {}), 91);
  database->connection().exec("UPDATE sqlite_sequence SET seq=2147483647");
  EXPECT_EQ(errorOf([&] { conformance::addNotification(*database, {}); }),
            database_error::keysExhausted);
}

TEST(SqliteMemory, LongRandomWalksAgreeWithAModel) {
  const unsigned first = std::random_device{}();
  for (unsigned seed = first; seed < first + 10 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const auto database = createSqliteInMemory();
    conformance::RandomWalk(*database, seed).run(1500);
  }
}

}  // namespace
}  // namespace autonotify::host
