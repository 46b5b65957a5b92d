#include "host/database/postgres/PostgresRowSink.h"

#include <algorithm>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/dialect/Dialect.h"
#include "host/database/postgres/PostgresDriver.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

const TableDef& tableNamed(std::string_view name) {
  if (const TableDef* table = findTable(name)) return *table;
  throw DatabaseError(database_error::statementFailed, "There is no table " + std::string(name));
}

}  // namespace

void PostgresRowSink::begin() {
  lastKeys_.clear();
  scope_ = connection_.beginWriting();
}

void PostgresRowSink::commit() {
  flush();
  moveSequences();
  connection_.commit(*scope_);
  scope_.reset();
}

Id PostgresRowSink::insertRow(std::string_view name, std::span<const Field> fields) {
  if (!scope_) {
    begin();
    const Id key = insertRow(name, fields);
    commit();
    return key;
  }
  const TableDef& table = tableNamed(name);
  const auto given = std::find_if(fields.begin(), fields.end(), [&](const Field& field) {
    return equalIgnoreCase(field.column, table.key());
  });
  const Id key = given == fields.end() ? nextKey(table) : toInteger(given->value);
  if (keys_ == KeySource::counted) lastKeyOf(table) = std::max(lastKeyOf(table), key);
  Batch& batch = batchOf(table, fields, given == fields.end());
  std::vector<Value>& row = batch.rows.emplace_back();
  for (const Field& field : fields) row.push_back(field.value);
  if (given == fields.end()) row.push_back(key);
  if (batch.rows.size() >= rowsAtOnce) send(batch);
  return key;
}

void PostgresRowSink::updateRow(std::string_view name, Id key, std::span<const Field> fields) {
  if (fields.empty()) return;
  flush();
  const TableDef& table = tableNamed(name);
  std::string text = "UPDATE " + table.name + " SET ";
  std::vector<Value> values;
  for (const Field& field : fields) {
    text += values.empty() ? "" : ", ";
    values.push_back(field.value);
    (text += field.column) += '=' + placeholder(Engine::postgres, values.size());
  }
  values.push_back(key);
  connection_.execute(
      text + " WHERE " + table.key() + '=' + placeholder(Engine::postgres, values.size()), values);
}

Id PostgresRowSink::nextKey(const TableDef& table) {
  if (keys_ == KeySource::counted) return lastKeyOf(table) + 1;
  std::vector<Id>& keys = reserved_[&table];
  if (keys.empty())
    for (const auto& row : connection_.execute(
             "SELECT nextval(" + sequenceOf(table) + ") FROM generate_series(1, $1)",
             {static_cast<int>(rowsAtOnce)}))
      keys.push_back(row[0].as<Id>());
  const Id key = keys.front();
  keys.erase(keys.begin());
  return key;
}

// Every row carries its key, behind the other columns when it was counted.
PostgresRowSink::Batch& PostgresRowSink::batchOf(const TableDef& table,
                                                 std::span<const Field> fields, bool withKey) {
  shape_ = table.name;
  for (const Field& field : fields) (shape_ += ',') += field.column;
  const auto [place, isNew] = batches_.try_emplace(shape_);
  Batch& batch = place->second;
  if (!isNew) return batch;
  for (const Field& field : fields) (batch.insert += ", ") += field.column;
  if (withKey) batch.insert += ", " + table.key();
  batch.insert = "INSERT INTO " + table.name + " (" + batch.insert.substr(2) + ") VALUES ";
  return batch;
}

Id& PostgresRowSink::lastKeyOf(const TableDef& table) {
  const auto [place, isNew] = lastKeys_.try_emplace(&table, 0);
  if (isNew)
    place->second =
        connection_.execute("SELECT coalesce(max(" + table.key() + "), 0) FROM " + table.name)
            .front()[0]
            .as<Id>();
  return place->second;
}

void PostgresRowSink::flush() {
  for (auto& [shape, batch] : batches_) send(batch);
}

void PostgresRowSink::send(Batch& batch) {
  std::vector<Value> values;
  std::string places;
  for (std::vector<Value>& row : batch.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      places += i > 0 ? "," : values.empty() ? "(" : ",(";
      values.push_back(std::move(row[i]));
      places += placeholder(Engine::postgres, values.size());
    }
    places += ')';
  }
  if (!values.empty()) connection_.execute(batch.insert + places, values);
  batch.rows.clear();
}

void PostgresRowSink::moveSequences() {
  for (const auto& [table, key] : lastKeys_)
    if (key > 0) connection_.execute("SELECT setval(" + sequenceOf(*table) + ", $1)", {key});
}

}  // namespace autonotify::host
