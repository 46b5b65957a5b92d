// Any statement, planned anew and found in the cache of plans: both give the same rows or the same
// failure. So do its neighbours, which differ from it in digits alone and may share its plan.
#include <sqlite3.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/require.h"
#include "host/database/Session.h"
#include "host/database/dialect/DatabaseError.h"
#include "host/database/sqlite/SqliteDriver.h"

namespace {

using namespace autonotify;
using namespace autonotify::host;

const char* sampleOf(ColumnKind kind, int key) {
  switch (kind) {
    case ColumnKind::Text:
    case ColumnKind::Memo:
      return key == 1 ? "'a'" : "NULL";
    case ColumnKind::DateTime:
      return key == 1 ? "'2026-04-15'" : "'2026-04-15 09:30:00'";
    default:
      return key == 1 ? "1" : "0";
  }
}

/// Two rows in each table.
void fill(SQLite::Database& database) {
  for (const std::string& statement : schemaStatements(Engine::sqlite)) database.exec(statement);
  for (const TableDef& table : schemaTables()) {
    for (int key = 1; key <= 2; ++key) {
      std::string values = std::to_string(key);
      for (std::size_t i = 1; i < table.columns.size(); ++i)
        values += std::string(",") + sampleOf(table.columns[i].kind, key);
      database.exec("INSERT INTO " + table.name + " VALUES (" + values + ")");
    }
  }
}

struct Connection {
  Connection() : driver(SQLite::Database(":memory:", SQLite::OPEN_READWRITE)) {
    fill(driver.database());
    // A statement that joins all tables would take for ever.
    constexpr int instructions = 20000;
    sqlite3_progress_handler(
        driver.database().getHandle(), instructions, [](void*) { return 1; }, nullptr);
  }

  SqliteDriver driver;
  Session cached{driver};
};

struct Result {
  int failure = 0;
  bool isInterrupted = false;
  std::vector<std::string> columns;
  std::vector<Value> values;

  bool operator==(const Result&) const = default;
};

void readRows(Plan& plan, const std::vector<Value>& parameters, Result& result) {
  constexpr std::size_t mostValues = 2000;
  const std::shared_ptr<RowStatement> rows = plan.rows();
  DriverStatement& statement = *rows->statement;
  statement.execute(parameters);
  plan.describe();
  const int columns = static_cast<int>(plan.columns().size());
  for (int column = 0; column < columns; ++column) plan.ask(column);
  for (const PlanColumn& column : plan.columns()) result.columns.push_back(column.name);
  while (result.values.size() < mostValues && statement.step())
    for (int column = 0; column < columns; ++column) result.values.push_back(rows->value(column));
  statement.reset();
}

Result run(Session& session, const std::string& sql) {
  Result result;
  try {
    std::vector<Value> parameters;
    const std::shared_ptr<Plan> plan = session.plan(sql, parameters);
    readRows(*plan, parameters, result);
  } catch (const DatabaseError& error) {
    result.failure = error.number();
    result.isInterrupted = (error.nativeCode() & 0xFF) == SQLITE_INTERRUPT;
  }
  return result;
}

/// The statement with each digit raised by so much.
std::string neighbour(std::string sql, int by) {
  for (char& c : sql) {
    if (c >= '0' && c <= '9') c = static_cast<char>('0' + (c - '0' + by) % 10);
  }
  return sql;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Connection connection;
  const std::string sql(reinterpret_cast<const char*>(data), size);
  for (const int by : {0, 1, 7, 0}) {
    const std::string each = neighbour(sql, by);
    Session anew(connection.driver);
    const Result known = run(connection.cached, each);
    const Result fresh = run(anew, each);
    require(known.isInterrupted || fresh.isInterrupted || known == fresh);
  }
  return 0;
}
