#include "host/database/Plan.h"

#include <gtest/gtest.h>

#include <map>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/dialect/Dialect.h"
#include "host/database/dialect/literals.h"

namespace autonotify::host {
namespace {

TEST(Dialect, PutsLiteralsIntoParameters) {
  struct Case {
    std::string where, translated;
    std::vector<Value> parameters;
  };
  const Case cases[] = {
      {"K=12", "K=?", {12}},
      {"K = - 1", "K = ?", {-1}},
      {"K-1=L-2", "K-?=L-?", {1, 2}},
      {"(K)-1=0", "(K)-?=?", {1, 0}},
      {"K IN (-1,-2)", "K IN (?,?)", {-1, -2}},
      {"K BETWEEN 1 AND -5", "K BETWEEN ? AND ?", {1, -5}},
      {"K>2147483648", "K>2147483648", {}},
      {"K>1.50", "K>1.50", {}},
      {"K=1 ORDER BY 1 LIMIT 5", "K=? ORDER BY 1 LIMIT 5", {1}},
      {"T=1 GROUP BY 1 HAVING COUNT(K)>2", "T=? GROUP BY 1 HAVING COUNT(K)>?", {1, 2}},
      {"D<=#2026-04-30# AND D>= #4/30/2026 9:05#",
       "D<=? AND D>= ?",
       {DateTime::of(2026, 4, 30), DateTime::of(2026, 4, 30, 9, 5)}},
      {"T='' AND U='it''s' AND V=''''", "T=? AND U=? AND V=?", {"", "it's", "'"}},
      {"T='; -- #1# /* \"?$1'", "T=?", {"; -- #1# /* \"?$1"}},
      {"F=TRUE OR F = false", "F=TRUE OR F = false", {}},
      {"NOT IsDate(D) OR K=1", "NOT IsDate(D) OR K=?", {1}},
  };
  const std::string select = "SELECT 1 AS One, A.Order FROM A INNER JOIN B ON A.K=B.K\r\n\tWhere ";
  for (const Case& each : cases) {
    const Translation result = translate("  " + select + each.where + " ; ", Engine::sqlite);
    EXPECT_EQ(result.sql, select + each.translated);
    EXPECT_EQ(result.parameters, each.parameters);
  }
}

TEST(Dialect, StatementsOfOneSkeletonTranslateAlike) {
  const std::pair<std::string, bool> cases[] = {
      {"K=12", true},    {"K IN (1, 2) AND Custom1=3", true},
      {"K-1=L-2", true}, {"T='it''s 1 #' AND D>=#4/30/2026 9:05# AND Custom12=''", true},
      {"K=-1", false},   {"K=1 LIMIT 5", false},
      {"K>1.5", false},  {"K>2147483648", false},
  };
  const std::map<char, std::string> others = {{'?', "70"}, {'\'', "'?#'"}, {'#', "#2001-02-03#"}};
  for (const auto& [where, isToldBySkeleton] : cases) {
    const std::string sql = "SELECT A.* FROM A WHERE " + where + ';';
    const Translation result = translate(sql, Engine::sqlite);
    std::string skeleton;
    std::vector<Value> literals;
    const bool isSplit = splitLiterals(sql, skeleton, literals);
    EXPECT_EQ(isSplit && result.literalsAreParameters, isToldBySkeleton) << sql;
    if (!isToldBySkeleton) continue;
    EXPECT_EQ(literals, result.parameters);
    std::string other;
    for (const char each : skeleton)
      other += others.count(each) ? others.at(each) : std::string(1, each);
    EXPECT_EQ(translate(other, Engine::sqlite).sql, result.sql);
  }
}

TEST(Dialect, PostgresNumbersItsParametersAndPutsNullFirst) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"SELECT * FROM A WHERE K=-1 AND T='x';", "SELECT * FROM A WHERE K=$1 AND T=$2"},
      {"SELECT * FROM A ORDER BY K, L DESC, M ASC;",
       "SELECT * FROM A ORDER BY K NULLS FIRST, L DESC NULLS LAST, M ASC NULLS FIRST"},
      {"SELECT * FROM A ORDER BY COALESCE(K, L) NULLS LAST LIMIT 3",
       "SELECT * FROM A ORDER BY COALESCE(K, L) NULLS LAST LIMIT 3"},
      {"SELECT * FROM A WHERE K IN (SELECT K FROM B ORDER BY L) ORDER BY K",
       "SELECT * FROM A WHERE K IN (SELECT K FROM B ORDER BY L NULLS FIRST) ORDER BY K NULLS "
       "FIRST"},
      {"SELECT K FROM A WHERE (NOT isdate (A.D) OR IsDate(IsDate((D)))) ORDER BY K DESC",
       "SELECT K FROM A WHERE (NOT  (A.D < make_timestamp(10000,1,1,0,0,0)) OR (((D) < "
       "make_timestamp(10000,1,1,0,0,0)) < make_timestamp(10000,1,1,0,0,0))) ORDER BY K DESC NULLS "
       "LAST"},
      {"SELECT * FROM A ORDER BY K LIMIT 1", "SELECT * FROM A ORDER BY K NULLS FIRST LIMIT 1"},
  };
  for (const auto& [sql, expected] : cases)
    EXPECT_EQ(translate(sql, Engine::postgres).sql, expected);
}

TEST(Dialect, TellsTheFromClauseAndItsTables) {
  struct From {
    std::string sql, clause, tables;
    const char* rowsAre;
  };
  const std::vector<From> cases = {
      {"SELECT * FROM A", "FROM A", "A", "of tables"},
      {"SELECT * From A a WHERE K=1", "From A a", "A:a", "of tables"},
      {"SELECT * FROM A AS x, B ORDER BY K", "FROM A AS x, B", "A:x B", "of tables"},
      {"SELECT A.* FROM (A INNER JOIN (B b INNER JOIN C ON b.K = C.K) ON A.K = b.K) WHERE K=1",
       "FROM (A INNER JOIN (B b INNER JOIN C ON b.K = C.K) ON A.K = b.K)", "A B:b C", "of tables"},
      {"SELECT * FROM A LEFT JOIN B ON A.K=B.K", "FROM A LEFT JOIN B ON A.K=B.K", "A B", "of keys"},
      {"SELECT * FROM A WHERE K IN (SELECT K FROM B)", "FROM A", "A", "of tables"},
      {"SELECT DISTINCT T FROM A", "FROM A", "A", "groups"},
      {"SELECT T FROM A GROUP BY T", "FROM A", "A", "groups"},
      {"SELECT (SELECT K FROM B) AS K FROM A", "FROM A", "A", "groups"},
      {"SELECT max(T) FROM A", "FROM A", "A", "groups"},
      {"SELECT upper(T) FROM A", "FROM A", "A", "of tables"},
      {"SELECT 'x' AS T FROM A", "FROM A", "A", "of keys"},
      {"SELECT * FROM A INNER JOIN B ON B.T='x'", "FROM A INNER JOIN B ON B.T=?", "", "groups"},
      {"SELECT K WHERE K=1 FROM A", "FROM A", "A", "of keys"},
      {"SELECT T FROM A UNION SELECT T FROM B", "FROM A", "A", "groups"},
  };
  for (const From& each : cases) {
    SCOPED_TRACE(each.sql);
    const Translation result = translate(each.sql, Engine::sqlite);
    const std::string clause = result.sql.substr(result.from, result.fromEnd - result.from);
    EXPECT_EQ(clause, each.clause);
    EXPECT_STREQ(each.rowsAre, result.rowsAreTableRows ? "of tables"
                               : result.rowsHaveKeys   ? "of keys"
                                                       : "groups");
    if (each.tables.empty()) continue;
    std::string tables;
    for (const TableReference& table : tablesOf(clause)) {
      if (!tables.empty()) tables += ' ';
      tables += table.table;
      if (table.alias != table.table) tables += ':' + table.alias;
    }
    EXPECT_EQ(tables, each.tables);
  }
}

/// Keeps what it is asked to prepare.
struct Listener : Driver {
  Engine engine() const override { return words; }
  std::unique_ptr<DriverStatement> prepare(const std::string& sql) override {
    heard = sql;
    return nullptr;
  }
  Id reserveKey(const TableDef&) override { return noId; }
  Engine words = Engine::sqlite;
  std::string heard;
};

// An engine must not be led to walk through a table in the order of its keys where an index leads
// to few rows, nor sort where there is one.
TEST(Plan, SettlesTheOrderWithoutAnotherWayToTheRows) {
  const struct {
    std::string sql, sqlite, postgres;
  } cases[] = {
      {"", " ORDER BY Tasks.TaskID", " ORDER BY Tasks.TaskID"},
      {" WHERE tasks.taskid = 7", "", ""},
      {" WHERE TaskID=7", "", ""},
      {" WHERE UserIDNum=7", " ORDER BY Tasks.TaskID", " ORDER BY Tasks.TaskID+0 NULLS FIRST"},
      {" ORDER BY Subject LIMIT 1", ", Tasks.TaskID LIMIT 1",
       " NULLS FIRST, Tasks.TaskID+0 NULLS FIRST LIMIT 1"},
      {" WHERE TaskID IN (SELECT TaskID FROM Tasks ORDER BY TaskID LIMIT 1) OR UserIDNum = 2",
       " ORDER BY Tasks.TaskID", " ORDER BY Tasks.TaskID+0 NULLS FIRST"},
      {" GROUP BY Subject", "Subject", "Subject"},
  };
  for (const auto& [sql, sqlite, postgres] : cases)
    for (const auto& [engine, end] :
         {std::pair(Engine::sqlite, sqlite), std::pair(Engine::postgres, postgres)}) {
      Listener driver;
      driver.words = engine;
      const Plan plan(driver, translate("SELECT Tasks.Subject FROM Tasks" + sql, engine));
      EXPECT_TRUE(driver.heard.ends_with(end)) << driver.heard;
      EXPECT_TRUE(!end.empty() || driver.heard.find("ORDER BY") == std::string::npos);
    }
}

TEST(Dialect, RefusalsNameTheFault) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "only SELECT"},
      {"SELECT * FROM A; SELECT * FROM B", "one statement"},
      {"SELECT * FROM A WHERE T='O'Brien'", "a quote is not closed"},
      {"SELECT * FROM A WHERE T='x", "a quote is not closed at character 25"},
      {"SELECT * FROM A WHERE D=#2026-01-01", "a # mark is not closed"},
      {"SELECT * FROM A WHERE D=##", "## is no date"},
      {"SELECT * FROM A WHERE (K=1", "a parenthesis is not closed"},
      {"SELECT * FROM A WHERE K=1)", "closed that was not opened"},
      {"SELECT * FROM A WHERE K=1x", "a letter within a number"},
      {"SELECT * FROM \"A\"", "a character without a meaning at character 15"},
      {"SELECT pg_sleep(5)", "the function pg_sleep is unknown"},
      {"SELECT " + std::string(200, '(') + "1" + std::string(200, ')'), "nested too deep"},
  };
  for (const auto& [sql, fault] : cases) {
    try {
      translate(sql, Engine::sqlite);
      ADD_FAILURE() << "not refused: " << sql;
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.number(), database_error::statementRefused);
      EXPECT_NE(error.description().find(fault), std::string::npos) << error.description();
      EXPECT_EQ(error.sql(), sql);
      EXPECT_FALSE(error.mayRetry());
    }
  }
}

}  // namespace
}  // namespace autonotify::host
