#include "bench/Replay.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <stdexcept>

#include "host/database/dialect/Dialect.h"
#include "platform/date_time_text.h"
#include "platform/text.h"

namespace autonotify::bench {
namespace {

/// A value as the engine holds it.
RawValue storedValue(sqlite3* connection, const Value& value) {
  const RawStatement statement = prepareRaw(connection, "SELECT ?");
  if (const auto* number = value.getIf<std::int64_t>()) {
    sqlite3_bind_int64(statement.get(), 1, *number);
  } else {
    const auto* moment = value.getIf<DateTime>();
    const std::string text = moment ? dateTimeText(*moment) : toText(value);
    sqlite3_bind_text(statement.get(), 1, text.c_str(), -1, SQLITE_TRANSIENT);
  }
  sqlite3_step(statement.get());
  return RawValue(sqlite3_value_dup(sqlite3_column_value(statement.get(), 0)));
}

int columnOf(sqlite3_stmt* statement, std::string_view name) {
  name.remove_prefix(name.find('.') + 1);
  for (int i = 0; i < sqlite3_column_count(statement); ++i)
    if (equalIgnoreCase(sqlite3_column_name(statement, i), name)) return i;
  throw std::runtime_error("no column " + std::string(name));
}

}  // namespace

RawStatement prepareRaw(sqlite3* connection, std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()),
                         SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
    throw std::runtime_error(std::string(sqlite3_errmsg(connection)) + ": " + std::string(sql));
  return RawStatement(statement);
}

void readRaw(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
      break;
    case SQLITE_FLOAT:
      benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
      break;
    case SQLITE_TEXT:
      benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
      benchmark::DoNotOptimize(sqlite3_column_bytes(statement, column));
      break;
    default:
      break;
  }
}

bool isNumber(sqlite3_stmt* statement, int column) {
  const char* type = sqlite3_column_decltype(statement, column);
  return type && std::string_view(type).starts_with("INT");
}

void readKnown(sqlite3_stmt* statement, int column, bool isNumber) {
  if (isNumber)
    benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
  else
    benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
}

/// Turns the calls of one piece into steps.
class Replay::Composer {
 public:
  Composer(Replay& replay, const std::vector<DatabaseCall>& calls, sqlite3* addedIn)
      : replay_(replay), calls_(calls), addedIn_(addedIn) {}

  Piece compose() {
    for (const DatabaseCall& call : calls_) take(call);
    for (const auto& [handle, statement] : open_) end(statement);
    return std::move(piece_);
  }

 private:
  void take(const DatabaseCall& call) {
    using enum DatabaseCall::Kind;
    if (call.kind == open) return begin(call);
    if (call.kind == set) return columns_.push_back(call.text);
    if (call.kind == save) return insert(call.value);
    if (call.kind == update) return write(call);
    const auto found = open_.find(call.handle);
    if (found == open_.end()) return;
    sqlite3_stmt* const statement = found->second;
    if (call.kind == read) {
      const int column = columnOf(statement, call.text);
      piece_.push_back({Step::Kind::read, statement, column, 0, isNumber(statement, column)});
    }
    if (call.kind == next) piece_.push_back({Step::Kind::row, statement});
    if (call.kind == close) {
      end(statement);
      open_.erase(found);
    }
  }

  void begin(const DatabaseCall& call) {
    const bool isForAdding = std::any_of(calls_.begin(), calls_.end(), [&](const auto& other) {
      return other.handle == call.handle && other.kind == DatabaseCall::Kind::save;
    });
    if (isForAdding) return;
    const host::Translation translation = host::translate(call.text, host::Engine::sqlite);
    std::vector<sqlite3_stmt*> inUse;
    for (const auto& [handle, statement] : open_) inUse.push_back(statement);
    sqlite3_stmt* const statement = replay_.statementFor(translation.sql, inUse);
    bindAll(statement, translation.parameters);
    run(statement);
    open_.emplace(call.handle, statement);
    opened_[call.handle] = translation;
  }

  /// The row is the one that was opened by its key.
  void write(const DatabaseCall& call) {
    const host::Translation& opened = opened_.at(call.handle);
    std::string sql = opened.sql.substr(opened.from).replace(0, 4, "UPDATE");
    sql.insert(sql.find(" WHERE "), " SET " + call.text + "=?");
    sqlite3_stmt* const statement = replay_.statementFor(sql, {});
    bind(statement, storedValue(replay_.connection_, Value(call.value)));
    bindAll(statement, opened.parameters);
    run(statement);
    end(statement);
  }

  void insert(const std::string& key) {
    std::string names = "ClientNotificationID";
    std::string places = "?";
    for (const std::string& column : columns_) {
      names += "," + column;
      places += ",?";
    }
    sqlite3_stmt* const statement = replay_.statementFor(
        "INSERT INTO ClientNotification (" + names + ") VALUES (" + places + ")", {});
    const RawStatement stored = prepareRaw(
        addedIn_, "SELECT " + names + " FROM ClientNotification WHERE ClientNotificationID=" + key);
    sqlite3_step(stored.get());
    for (int i = 0; i < sqlite3_column_count(stored.get()); ++i)
      bind(statement, RawValue(sqlite3_value_dup(sqlite3_column_value(stored.get(), i))));
    run(statement);
    end(statement);
    columns_.clear();
  }

  void bindAll(sqlite3_stmt* statement, const std::vector<Value>& parameters) {
    for (const Value& parameter : parameters)
      bind(statement, storedValue(replay_.connection_, parameter));
  }

  void run(sqlite3_stmt* statement) {
    piece_.push_back({Step::Kind::row, statement});
    place_ = 0;
  }

  void bind(sqlite3_stmt* statement, RawValue value) {
    piece_.push_back({Step::Kind::bind, statement, ++place_, replay_.values_.size()});
    replay_.values_.push_back(std::move(value));
  }

  void end(sqlite3_stmt* statement) { piece_.push_back({Step::Kind::end, statement}); }

  Replay& replay_;
  const std::vector<DatabaseCall>& calls_;
  sqlite3* addedIn_;
  std::map<RecordsetHandle, sqlite3_stmt*> open_;
  std::map<RecordsetHandle, host::Translation> opened_;
  std::vector<std::string> columns_;
  int place_ = 0;
  Piece piece_;
};

sqlite3_stmt* Replay::statementFor(const std::string& sql,
                                   const std::vector<sqlite3_stmt*>& inUse) {
  const auto [first, last] = statements_.equal_range(sql);
  for (auto each = first; each != last; ++each)
    if (std::find(inUse.begin(), inUse.end(), each->second.get()) == inUse.end())
      return each->second.get();
  return statements_.emplace(sql, prepareRaw(connection_, sql))->second.get();
}

void Replay::add(const std::vector<DatabaseCall>& calls, sqlite3* addedIn) {
  pieces_.push_back(Composer(*this, calls, addedIn).compose());
}

void Replay::run(std::size_t piece) {
  for (const Step& step : pieces_[piece]) {
    switch (step.kind) {
      case Step::Kind::bind:
        sqlite3_bind_value(step.statement, step.place, values_[step.value].get());
        break;
      case Step::Kind::row:
        sqlite3_step(step.statement);
        break;
      case Step::Kind::read:
        readKnown(step.statement, step.place, step.isNumber);
        break;
      case Step::Kind::end:
        sqlite3_reset(step.statement);
        break;
    }
  }
}

}  // namespace autonotify::bench
