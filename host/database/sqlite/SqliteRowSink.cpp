#include "host/database/sqlite/SqliteRowSink.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include "host/database/sqlite/SqliteDriver.h"
#include "platform/date_time_text.h"

namespace autonotify::host {

namespace {

struct Binder {
  SQLite::Statement& statement;
  int index;

  void operator()(Null) const { statement.bind(index); }
  void operator()(bool flag) const { statement.bind(index, flag ? 1 : 0); }
  void operator()(std::int64_t number) const { statement.bind(index, number); }
  void operator()(double number) const { statement.bind(index, number); }
  void operator()(DateTime moment) const { statement.bind(index, dateTimeText(moment)); }
  // The row is stepped before the caller's fields go.
  void operator()(const std::string& text) const { statement.bindNoCopy(index, text); }
};

std::string insertText(std::string_view table, std::span<const Field> fields) {
  std::string columns;
  std::string marks;
  for (const Field& field : fields) {
    columns += (columns.empty() ? "" : ", ") + std::string(field.column);
    marks += marks.empty() ? "?" : ", ?";
  }
  const std::string into = "INSERT INTO " + std::string(table);
  return fields.empty() ? into + " DEFAULT VALUES"
                        : into + " (" + columns + ") VALUES (" + marks + ")";
}

}  // namespace

SqliteRowSink::SqliteRowSink(SQLite::Database& database) : database_(database) {}

SqliteRowSink::~SqliteRowSink() = default;

void SqliteRowSink::begin() {
  transaction_ = translated([&] { return std::make_unique<SQLite::Transaction>(database_); });
}

void SqliteRowSink::commit() {
  translated([&] { transaction_->commit(); });
  transaction_.reset();
}

SQLite::Statement& SqliteRowSink::statementFor(std::string_view table,
                                               std::span<const Field> fields) {
  shape_.assign(table);
  for (const Field& field : fields) (shape_ += ',') += field.column;
  auto& statement = statements_[shape_];
  if (!statement)
    statement = std::make_unique<SQLite::Statement>(database_, insertText(table, fields));
  return *statement;
}

Id SqliteRowSink::insertRow(std::string_view table, std::span<const Field> fields) {
  return translated([&] {
    SQLite::Statement& statement = statementFor(table, fields);
    int index = 0;
    for (const Field& field : fields) field.value.visit(Binder{statement, ++index});
    statement.exec();
    statement.reset();
    return static_cast<Id>(database_.getLastInsertRowid());
  });
}

}  // namespace autonotify::host
