#include "host/database/sqlite/SqliteDatabase.h"

#include <sqlite3.h>

#include <functional>

#include "host/database/schema/Schema.h"
#include "support/temporary_folder.h"
#include "tests/database/conformance_suite.h"

namespace autonotify::host {
namespace {

class SqliteFile {
 public:
  SqliteFile() { createSqlite(folder_ / "firm.db"); }
  std::unique_ptr<DatabaseReference> connect() { return openSqlite(folder_ / "firm.db"); }

 private:
  test::TemporaryFolder folder_;
};

}  // namespace

namespace conformance {
INSTANTIATE_TEST_SUITE_P(Sqlite, Conformance, testing::Values(newDatabase<SqliteFile>));
}

namespace {

namespace files = std::filesystem;
using conformance::addNotification;
using conformance::allNotifications;
using conformance::errorOf;
using test::writeFile;

class SqliteFileTest : public testing::Test {
 protected:
  void execute(const std::string& sql) {
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(sql);
  }

  test::TemporaryFolder folder;
  files::path file = folder / "firm.db";
};

TEST_F(SqliteFileTest, WhatCannotBeOpenedIsToldApart) {
  const std::string newer = "PRAGMA user_version=" + std::to_string(schemaVersion + 1);
  const std::pair<std::function<void()>, int> cases[] = {
      {[] {}, database_error::missing},
      {[&] { files::create_directory(file); }, database_error::cannotOpen},
      {[&] { writeFile(file, ""); }, database_error::foreign},
      {[&] { writeFile(file, std::string(8192, 'x')); }, database_error::corrupt},
      {[&] { execute("CREATE TABLE Recipes (Name TEXT)"); }, database_error::foreign},
      {[&] { createSqlite(file), execute(newer); }, database_error::newerSchema}};
  for (const auto& [make, error] : cases) {
    make();
    for (const OpenMode mode : {OpenMode::readWrite, OpenMode::readOnly})
      EXPECT_EQ(errorOf([&] { openSqlite(file, mode, 50); }), error);
    EXPECT_EQ(files::exists(file), error != database_error::missing);
    files::remove(file);
  }
}

TEST_F(SqliteFileTest, CreatingNeverOverwrites) {
  writeFile(file, "precious");
  EXPECT_EQ(errorOf([&] { createSqlite(file); }), database_error::alreadyExists);
  EXPECT_EQ(files::file_size(file), 8u);
  EXPECT_EQ(errorOf([&] { createSqlite(folder / "none/firm.db"); }), database_error::cannotOpen);
}

TEST_F(SqliteFileTest, RowsLastAfterClosingWhichRefusesEverythingAndReadingRefusesWrites) {
  const auto closed = createSqlite(file);
  addNotification(*closed, {{"Field1", "kept"}});
  const RecordsetHandle left = conformance::open(*closed, allNotifications);
  for (int i = 0; i < 2; ++i) closed->close();
  EXPECT_FALSE(closed->isDatabaseOpen());
  EXPECT_FALSE(closed->isRecordsetOpen(left));
  for (const int error :
       {errorOf([&] { conformance::open(*closed, allNotifications); }),
        errorOf([&] { closed->hasRecords(left); }), errorOf([&] { closed->closeRecordset(left); }),
        errorOf([&] { closed->connection(); })})
    EXPECT_EQ(error, database_error::closed);
  const auto database = openSqlite(file, OpenMode::readOnly);
  const RecordsetHandle rows = conformance::open(*database, allNotifications);
  EXPECT_EQ(errorOf([&] { conformance::update(*database, rows, "Field1", "x"); }),
            database_error::readOnly);
  EXPECT_EQ(errorOf([&] { database->addNewRecord(rows); }), database_error::readOnly);
  EXPECT_EQ(database->getFieldValue(rows, "Field1"), Value("kept"));
}

TEST_F(SqliteFileTest, LookUpsBesideAWalkShowItsStateAsLongAsItGoesOn) {
  const auto desk = createSqlite(file), other = openSqlite(file);
  const Id id = addNotification(*desk, {{"Field1", "0"}});
  addNotification(*desk, {});
  RecordsetHandle walk = noRecordset;
  const auto walkOn = [&] {
    while (!desk->isEndOfRecordset(walk)) desk->moveNext(walk);
  };
  const std::function<void()> ends[] = {
      [&] { desk->readAnew(); }, [&] { desk->readSideBySide(false); },
      [&] { desk->closeRecordset(walk); }, walkOn, [&] { addNotification(*desk, {}); }};
  const auto seen = [&] { return toText(conformance::field(*desk, id, "Field1")); };
  int written = 0;
  for (const auto& end : ends) {
    const std::string before = std::to_string(written), after = std::to_string(++written);
    desk->readSideBySide(true);
    walk = conformance::open(*desk, allNotifications, LockMode::readOnly);
    conformance::update(*other, conformance::open(*other, conformance::notification(id)), "Field1",
                        after);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(seen(), before);
    end();
    EXPECT_EQ(seen(), after);
    desk->readSideBySide(false);
  }
}

/// From now on, as long as the database is open.
void countStatements(SqliteDatabase& database, int& statements) {
  const auto count = [](unsigned, void* counter, void*, void*) {
    ++*static_cast<int*>(counter);
    return 0;
  };
  sqlite3_trace_v2(database.connection().getHandle(), SQLITE_TRACE_STMT, count, &statements);
}

TEST_F(SqliteFileTest, ALongWalkGoesOnWithTheColumnsThatItAsksFor) {
  const auto desk = createSqlite(file);
  for (int i = 1; i <= 300; ++i)
    addNotification(*desk, {{"Field1", std::to_string(i)}, {"Field2", std::to_string(-i)}});
  const RecordsetHandle walk = conformance::open(*desk, allNotifications, LockMode::readOnly);
  int statements = 0;
  countStatements(*desk, statements);
  for (int i = 1; i <= 300; ++i) {
    EXPECT_EQ(desk->getFieldValue(walk, "Field1"), Value(std::to_string(i)));
    if (i > 100) {
      EXPECT_EQ(desk->getFieldValue(walk, "Field2"), Value(std::to_string(-i)));
    }
    desk->moveNext(walk);
  }
  EXPECT_TRUE(desk->isEndOfRecordset(walk));
  const int byKey = 128 - 100;
  EXPECT_EQ(statements, 2 + byKey);
}

TEST_F(SqliteFileTest, LongWalksOfOneStatementDoNotDisturbEachOther) {
  struct Walk {
    RecordsetHandle rows;
    int passed;
  };
  constexpr int rows = 300, walksMade = 6, turnsApart = 80;
  const auto desk = createSqlite(file);
  for (int i = 1; i <= rows; ++i) addNotification(*desk, {{"Field1", std::to_string(i)}});
  desk->readSideBySide(true);
  std::vector<Walk> walks;
  for (int turn = 0; turn < walksMade * turnsApart + rows; ++turn) {
    if (turn % turnsApart == 0 && walks.size() < walksMade)
      walks.push_back({conformance::open(*desk, allNotifications, LockMode::readOnly), 0});
    for (Walk& walk : walks) {
      if (desk->isEndOfRecordset(walk.rows)) continue;
      EXPECT_EQ(desk->getFieldValue(walk.rows, "Field1"), Value(std::to_string(++walk.passed)));
      desk->moveNext(walk.rows);
    }
  }
  for (const Walk& walk : walks) EXPECT_EQ(walk.passed, rows);
}

TEST_F(SqliteFileTest, LookUpsThatGoUpByLittleAreMadeSeveralAtATime) {
  const auto desk = createSqlite(file);
  for (int i = 0; i < 200; ++i) addNotification(*desk, {});
  desk->readSideBySide(true);
  int statements = 0;
  countStatements(*desk, statements);
  struct Case {
    Id step;
    int least, most;
  };
  for (const auto& [step, least, most] : {Case{1, 4, 9}, {4, 4, 9}, {5, 40, 42}, {-1, 200, 202}}) {
    addNotification(*desk, {});  // so that nothing read before is remembered
    const RecordsetHandle walk = conformance::open(*desk, conformance::orderedNotifications);
    statements = 0;
    for (Id id = step > 0 ? 1 : 200; id >= 1 && id <= 200; id += step)
      for (int i = 0; i < 2; ++i)
        conformance::column(*desk,
                            "SELECT ClientNotificationID, Field1 FROM ClientNotification WHERE "
                            "ClientNotificationID=" +
                                std::to_string(id) + ";",
                            "Field1");
    EXPECT_GE(statements, least) << step;
    EXPECT_LE(statements, most) << step;
    desk->closeRecordset(walk);
  }
}

TEST_F(SqliteFileTest, EachStatementReadsWhatWasWrittenBeforeAndNothingIsHeldBehindTheLast) {
  const auto desk = createSqlite(file), other = openSqlite(file);
  const Id id = addNotification(*desk, {{"Field1", "0"}});
  const RecordsetHandle open = conformance::open(*desk, conformance::notification(id));
  const auto seen = [&] { return toText(conformance::field(*desk, id, "Field1")); };
  for (int i = 0; i < 4; ++i) {
    for (int again = 0; again < 3; ++again) EXPECT_EQ(seen(), std::to_string(i));
    conformance::update(*other, conformance::open(*other, conformance::notification(id)), "Field1",
                        std::to_string(i + 1));
    if (i > 1) conformance::update(*desk, open, "Field2", "written on what was read before");
  }
  SQLite::Database keeper(file.string(), SQLite::OPEN_READWRITE);
  const std::function<void()> ends[] = {[&] { desk->rest(); }, [&] { desk->closeRecordset(open); }};
  for (const auto& end : ends) {
    for (int again = 0; again < 3; ++again) EXPECT_EQ(seen(), "4");
    end();
    EXPECT_EQ(keeper.execAndGet("PRAGMA wal_checkpoint(TRUNCATE)").getInt(), 0);
  }
}

TEST_F(SqliteFileTest, WhatIsAskedAgainIsReadAgainAsSoonAsAnyoneHasWritten) {
  const auto desk = createSqlite(file), other = openSqlite(file);
  const std::string names[] = {"a", "b", "undone"};
  for (const std::string& name : names)
    desk->connection().exec("INSERT INTO Schedule(scheduleName) VALUES ('" + name + "')");
  const Id id = addNotification(*desk, {{"Field1", "a"}, {"ScheduleIDNum", "1"}});
  const std::string row = " WHERE ClientNotificationID=" + std::to_string(id);
  const std::pair<std::string, const char*> statements[] = {
      {"SELECT Field1 FROM ClientNotification" + row + ";", "Field1"},
      {"SELECT ClientNotification.Field1 FROM (Schedule LEFT JOIN ClientNotification ON "
       "ScheduleID=ScheduleIDNum) WHERE ScheduleID=1;",
       "Field1"},
      {"SELECT scheduleName FROM Schedule WHERE scheduleName=(SELECT Field1 FROM "
       "ClientNotification" +
           row + ");",
       "scheduleName"}};
  const auto look = [&](const std::string& expected) {
    for (const auto& [sql, name] : statements)
      EXPECT_EQ(conformance::column(*desk, sql, name), conformance::values({expected})) << sql;
  };
  const auto raw = [&](SQLite::Database& database, const std::string& text) {
    database.exec("UPDATE ClientNotification SET Field1='" + text + "'" + row);
  };
  const auto write = [&](DatabaseReference& database, const std::string& text) {
    const RecordsetHandle rows = conformance::open(database, conformance::notification(id));
    conformance::update(database, rows, "Field1", text);
    database.closeRecordset(rows);
  };
  const std::function<void(const std::string&)> writers[] = {
      [&](const auto& text) { write(*desk, text); }, [&](const auto& text) { write(*other, text); },
      [&](const auto& text) { raw(desk->connection(), text); },
      [&](const auto& text) { raw(other->connection(), text); },
      [&](const auto& text) { desk->writeTogether([&] { write(*desk, text); }); }};
  int made = 0;
  const auto count = [](unsigned, void* counter, void*, void*) {
    return ++*static_cast<int*>(counter), 0;
  };
  sqlite3_trace_v2(desk->connection().getHandle(), SQLITE_TRACE_STMT, count, &made);
  int turn = 0;
  const auto lookOften = [&] {
    for (int i = 0; i < 2; ++i) look(names[turn % 2]);
    made = 0;
    look(names[turn % 2]);
    EXPECT_EQ(made, 1) << "but for the statement with another in it, all is remembered";
  };
  for (const bool isOpen : {false, true}) {
    if (isOpen) conformance::open(*desk, conformance::orderedNotifications);
    for (const auto& writer : writers) {
      lookOften();
      writer(names[++turn % 2]);
      lookOften();
    }
  }
  conformance::add(*desk, "Holidays", "HolidayID", {});
  made = 0;
  look(names[turn % 2]);
  EXPECT_LE(made, 2) << "what this desk writes elsewhere makes nothing forgotten";
  const auto undone = [&] {
    write(*desk, "undone");
    for (int i = 0; i < 3; ++i) look("undone");
    throw DatabaseError(database_error::constraint, "a row that cannot be written");
  };
  errorOf([&] { desk->writeTogether(undone); });
  lookOften();
}

TEST_F(SqliteFileTest, ALockedWriteMayBeTriedAgain) {
  createSqlite(file);
  const auto database = openSqlite(file, OpenMode::readWrite, 20);
  const Id id = addNotification(*database, {{"Field1", "old"}});
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

TEST(SqliteMemory, KeysGoOnBehindRowsInsertedByOtherMeans) {
  const auto database = createSqliteInMemory();
  database->connection().exec(
      "INSERT INTO ClientNotification(ClientNotificationID, Field1) VALUES (41, 'seeded');"
      "DELETE FROM ClientNotification");
  EXPECT_EQ(addNotification(*database, {}), 42);
}

TEST(SqliteMemory, LongWalksKeepTheirRows) {
  conformance::walkWhileRowsLeave(*createSqliteInMemory(), 1100);
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
