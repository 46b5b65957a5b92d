#include <map>

#include "host/database/Session.h"
#include "host/database/dialect/DatabaseError.h"
#include "host/database/dialect/Dialect.h"
#include "host/database/dialect/literals.h"
#include "support/text_table.h"
#include "support/value_cells.h"

namespace autonotify::host {
namespace {

constexpr const char* file = "dialect_tables.txt";

TEST(Dialect, PutsLiteralsIntoParameters) {
  const std::string select = "SELECT 1 AS One, A.Order FROM A INNER JOIN B ON A.K=B.K\r\n\tWhere ";
  for (const auto& row : test::rowsOf(file, "literals", 3)) {
    const Translation result = translate("  " + select + row[0] + " ; ", Engine::sqlite);
    EXPECT_EQ(result.sql, select + row[1]);
    EXPECT_EQ(test::cellOf(result.parameters), row[2]);
  }
}

TEST(Dialect, StatementsOfOneSkeletonTranslateAlike) {
  const std::map<char, std::string> others = {{'?', "70"}, {'\'', "'?#'"}, {'#', "#2001-02-03#"}};
  for (const auto& row : test::rowsOf(file, "skeletons", 2)) {
    const std::string sql = "SELECT A.* FROM A WHERE " + row[0] + ';';
    const Translation result = translate(sql, Engine::sqlite);
    std::string skeleton;
    std::vector<Value> literals;
    const bool isSplit = splitLiterals(sql, skeleton, literals);
    EXPECT_EQ(isSplit && result.literalsAreParameters, row[1] == "yes") << sql;
    if (row[1] != "yes") continue;
    EXPECT_EQ(literals, result.parameters);
    std::string other;
    for (const char each : skeleton)
      other += others.count(each) ? others.at(each) : std::string(1, each);
    EXPECT_EQ(translate(other, Engine::sqlite).sql, result.sql);
  }
}

TEST(Dialect, PostgresNumbersItsParametersAndPutsNullFirst) {
  test::expectRows(file, "on a server",
                   [](auto& sql) { return translate(sql, Engine::postgres).sql; });
}

TEST(Dialect, TellsTheFromClauseAndItsTables) {
  for (const auto& row : test::rowsOf(file, "from clauses", 4)) {
    SCOPED_TRACE(row[0]);
    const Translation result = translate(row[0], Engine::sqlite);
    const std::string clause = result.sql.substr(result.from, result.fromEnd - result.from);
    EXPECT_EQ(clause, row[1]);
    EXPECT_EQ(row[3], result.rowsAreTableRows ? "of tables"
                      : result.rowsHaveKeys   ? "of keys"
                                              : "groups");
    if (row[2].empty()) continue;
    std::string tables;
    for (const TableReference& table : tablesOf(clause)) {
      if (!tables.empty()) tables += ' ';
      tables += table.table;
      if (table.alias != table.table) tables += ':' + table.alias;
    }
    EXPECT_EQ(tables, row[2]);
  }
}

/// Keeps what it is asked to prepare.
struct Listener : Driver {
  Engine engine() const override { return words; }
  std::unique_ptr<DriverStatement> prepare(const std::string& sql) override {
    heard = sql;
    return nullptr;
  }
  std::unique_ptr<DriverTransaction> beginWriting() override { return nullptr; }
  Id reserveKey(const TableDef&) override { return noId; }
  Engine words = Engine::sqlite;
  std::string heard;
};

// What is remembered of a statement that came before says nothing but what its own text does.
TEST(Session, PlansByTheLiteralsOfEachStatement) {
  Listener driver;
  Session session(driver);
  std::vector<std::pair<std::shared_ptr<Plan>, Translation>> planned;
  for (const auto& row : test::rowsOf(file, "statements in turn", 1)) {
    const std::string sql = "SELECT Tasks.* FROM Tasks WHERE " + row[0];
    std::vector<Value> parameters;
    planned.emplace_back(session.plan(sql, parameters), translate(sql, Engine::sqlite));
    EXPECT_EQ(parameters, planned.back().second.parameters);
  }
  for (const auto& [plan, translation] : planned)
    for (const auto& [other, translated] : planned)
      EXPECT_EQ(plan == other, translation.sql == translated.sql);
}

// No table is walked through by its keys where an index leads to few rows, nor sorted.
TEST(Plan, SettlesTheOrderWithoutAnotherWayToTheRows) {
  for (const auto& row : test::rowsOf(file, "order of rows", 3))
    for (const auto& [engine, end] :
         {std::pair(Engine::sqlite, row[1]), std::pair(Engine::postgres, row[2])}) {
      Listener driver;
      driver.words = engine;
      const Plan plan(driver, translate("SELECT Tasks.Subject FROM Tasks" + row[0], engine));
      EXPECT_TRUE(driver.heard.ends_with(end)) << driver.heard;
      EXPECT_TRUE(!end.empty() || driver.heard.find("ORDER BY") == std::string::npos);
    }
}

TEST(Dialect, RefusalsNameTheFault) {
  for (const auto& row : test::rowsOf(file, "refusals", 2)) {
    try {
      translate(row[0], Engine::sqlite);
      ADD_FAILURE() << "not refused: " << row[0];
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.number(), database_error::statementRefused);
      EXPECT_NE(error.description().find(row[1]), std::string::npos) << error.description();
      EXPECT_EQ(error.sql(), row[0]);
      EXPECT_FALSE(error.mayRetry());
    }
  }
}

}  // namespace
}  // namespace autonotify::host
