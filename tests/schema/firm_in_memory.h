#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/database/schema/Schema.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"

namespace autonotify::host {

/// A firm in memory and questions about it.
class Firm {
 public:
  Firm() : database_(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE) {
    for (const std::string& statement : schemaStatements(Engine::sqlite)) database_.exec(statement);
  }
  explicit Firm(const DemoOptions& options) : Firm() {
    SqliteRowSink sink(database_);
    makeDemoFirm(sink, options);
  }

  SQLite::Database& database() { return database_; }

  int number(const std::string& select) { return database_.execAndGet(select).getInt(); }
  int count(const std::string& table) { return number("SELECT COUNT(*) FROM " + table); }

  /// Every value that is selected, with a bar behind each.
  std::string text(const std::string& select) {
    std::string result;
    SQLite::Statement rows(database_, select);
    while (rows.executeStep())
      for (int i = 0; i < rows.getColumnCount(); ++i)
        result += (rows.isColumnNull(i) ? "NULL" : rows.getColumn(i).getString()) + '|';
    return result;
  }

  std::string content() {
    std::string result;
    for (const TableDef& table : schemaTables()) result += text("SELECT * FROM " + table.name);
    return result;
  }

 private:
  SQLite::Database database_;
};

inline DemoOptions small(std::uint64_t seed = 1) {
  DemoOptions options;
  options.companies = 12;
  options.contacts = 10;
  options.staff = 4;
  options.seed = seed;
  return options;
}

}  // namespace autonotify::host
