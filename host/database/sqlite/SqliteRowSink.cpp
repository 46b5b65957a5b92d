#include "host/database/sqlite/SqliteRowSink.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include "host/database/schema/Schema.h"
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

std::string updateText(std::string_view table, std::span<const Field> fields) {
  std::string text = "UPDATE " + std::string(table) + " SET ";
  for (const Field& field : fields)
    text += (&field == fields.data() ? "" : ", ") + std::string(field.column) + "=?";
  return text + " WHERE " + findTable(table)->key() + "=?";
}

/// The fields in their order; gives the place behind them.
int bindAll(SQLite::Statement& statement, std::span<const Field> fields) {
  int index = 0;
  for (const Field& field : fields) field.value.visit(Binder{statement, ++index});
  return index + 1;
}

}  // namespace

SqliteRowSink::SqliteRowSink(SQLite::Database& database) : database_(database) {}

SqliteRowSink::~SqliteRowSink() = default;

void SqliteRowSink::begin() {
  // At once for writing: what is read from now on stays true until the end.
  transaction_ = translated([&] {
    return std::make_unique<SQLite::Transaction>(database_, SQLite::TransactionBehavior::IMMEDIATE);
  });
}

void SqliteRowSink::commit() {
  translated([&] { transaction_->commit(); });
  transaction_.reset();
}

SQLite::Statement& SqliteRowSink::statementFor(const char* verb, TextOf textOf,
                                               std::string_view table,
                                               std::span<const Field> fields) {
  (shape_ = verb) += table;
  for (const Field& field : fields) (shape_ += ',') += field.column;
  auto& statement = statements_[shape_];
  if (!statement) statement = std::make_unique<SQLite::Statement>(database_, textOf(table, fields));
  return *statement;
}

Id SqliteRowSink::insertRow(std::string_view table, std::span<const Field> fields) {
  return translated([&] {
    SQLite::Statement& statement = statementFor("+", insertText, table, fields);
    bindAll(statement, fields);
    statement.exec();
    statement.reset();
    return static_cast<Id>(database_.getLastInsertRowid());
  });
}

void SqliteRowSink::updateRow(std::string_view table, Id key, std::span<const Field> fields) {
  if (fields.empty()) return;
  translated([&] {
    SQLite::Statement& statement = statementFor("=", updateText, table, fields);
    statement.bind(bindAll(statement, fields), key);
    statement.exec();
    statement.reset();
  });
}

}  // namespace autonotify::host
