#include "host/database/Session.h"

#include "host/database/dialect/literals.h"

namespace autonotify::host {

std::shared_ptr<Plan> Session::plan(const std::string& sql, std::vector<Value>& parameters) {
  const bool hasSkeleton = splitLiterals(sql, skeleton_, parameters);
  if (const auto* known = hasSkeleton ? plansBySkeleton_.find(skeleton_) : nullptr) return *known;
  Translation translation = translate(sql, driver_.engine());
  std::shared_ptr<Plan> plan =
      plans_.get(translation.sql, [&] { return std::make_shared<Plan>(driver_, translation); });
  if (hasSkeleton && translation.literalsAreParameters)
    plansBySkeleton_.get(skeleton_, [&] { return plan; });
  parameters = std::move(translation.parameters);
  return plan;
}

void Session::begin(LiveRows& rows) {
  if (live_ && live_ != &rows) live_->settle(Settle::keepValues);
  live_ = &rows;
}

void Session::beforeWrite() {
  if (live_) live_->settle(Settle::keysOnly);
}

std::uint64_t Session::versionOf(const TableDef* table) const {
  const auto found = written_.find(table);
  return found == written_.end() ? 0 : found->second;
}

int Session::write(const TableDef& table, DriverStatement& statement,
                   const std::vector<Value>& values) {
  beforeWrite();
  const int rows = statement.run(values);
  written_[&table] = ++version_;
  return rows;
}

Id Session::reserveKey(const TableDef& table) {
  beforeWrite();
  return driver_.reserveKey(table);
}

void Session::takeKey(const TableDef& table, Id key) {
  beforeWrite();
  driver_.takeKey(table, key);
}

bool Session::updateField(const TableDef& table, const ColumnDef& column, Id key,
                          const Value& value) {
  Statement& statement = updates_[&column];
  if (!statement) {
    const Engine engine = driver_.engine();
    statement = driver_.prepare("UPDATE " + table.name + " SET " + column.name + "=" +
                                placeholder(engine, 1) + " WHERE " + table.key() + "=" +
                                placeholder(engine, 2));
  }
  return write(table, *statement, {value, key}) > 0;
}

bool Session::deleteRow(const TableDef& table, Id key) {
  Statement& statement = deletes_[&table];
  if (!statement)
    statement = driver_.prepare("DELETE FROM " + table.name + " WHERE " + table.key() + "=" +
                                placeholder(driver_.engine(), 1));
  return write(table, *statement, {key}) > 0;
}

void Session::insertRow(const TableDef& table, const std::vector<const ColumnDef*>& columns,
                        const std::vector<Value>& values) {
  std::string sql = "INSERT INTO " + table.name + " (";
  std::string places;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const char* const separator = i > 0 ? "," : "";
    sql += separator + columns[i]->name;
    places += separator + placeholder(driver_.engine(), i + 1);
  }
  sql += ") VALUES (" + places + ")";
  const Statement statement = inserts_.get(sql, [&] { return Statement(driver_.prepare(sql)); });
  write(table, *statement, values);
}

void Session::clear() {
  plans_.clear();
  plansBySkeleton_.clear();
  inserts_.clear();
  updates_.clear();
  deletes_.clear();
}

}  // namespace autonotify::host
