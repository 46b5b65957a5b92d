#include "host/database/Session.h"

#include <algorithm>
#include <cstring>

#include "host/database/dialect/literals.h"

namespace autonotify::host {
namespace {

/// A longer statement is not remembered.
constexpr std::size_t longestRecent = 4096;

/// Looks at a few places of the text, from its end on: statements are long.
std::size_t sampledHash(std::string_view text) {
  constexpr std::size_t samples = 8;
  std::uint64_t hash = text.size();
  std::uint64_t letters = 0;
  if (text.size() < sizeof letters) return hash;
  const std::size_t last = text.size() - sizeof letters;
  const char* at = text.data() + last;
  for (std::size_t i = 0; i < samples; ++i, at -= last / samples) {
    std::memcpy(&letters, at, sizeof letters);
    hash = (hash + letters) * 0x9e3779b97f4a7c15;
  }
  return hash >> 48;
}

struct Around {
  std::string_view before;
  std::string_view behind;
};

/// The text around the literal; without one all of it stands before.
Around around(const std::optional<Token>& literal, std::string_view sql) {
  if (!literal) return {sql, {}};
  return {{sql.data(), literal->begin}, {sql.data() + literal->end, sql.size() - literal->end}};
}

}  // namespace

std::shared_ptr<Plan> Session::plan(const std::string& sql, std::vector<Value>& parameters) {
  if (sql.size() > longestRecent) return planOf(sql, parameters).plan;
  const std::optional<Token> literal = lastLiteral(sql);
  const auto [before, behind] = around(literal, sql);
  Recent& recent = recent_[sampledHash(before) % recent_.size()];
  if (recent.plan && recent.before == before && recent.behind == behind) {
    std::optional<Value> value = literal ? literalValue(*literal) : std::nullopt;
    if (value || !literal) {
      if (!recent.parameters.empty()) parameters = recent.parameters;
      if (value) parameters.push_back(std::move(*value));
      return recent.plan;
    }
  }
  return planAnew(sql, literal, parameters, recent);
}

std::shared_ptr<Plan> Session::planAnew(const std::string& sql, const std::optional<Token>& literal,
                                        std::vector<Value>& parameters, Recent& recent) {
  Planned planned = planOf(sql, parameters);
  if (planned.literalsAreParameters) {
    const auto [before, behind] = around(literal, sql);
    const auto last = parameters.end() - (literal ? 1 : 0);
    recent = {std::string(before), std::string(behind), planned.plan, {parameters.begin(), last}};
  }
  return std::move(planned.plan);
}

Session::Planned Session::planOf(const std::string& sql, std::vector<Value>& parameters) {
  const bool hasSkeleton = splitLiterals(sql, skeleton_, parameters);
  if (const auto* known = hasSkeleton ? plansBySkeleton_.find(skeleton_) : nullptr)
    return {*known, true};
  Translation translation = translate(sql, driver_.engine());
  std::shared_ptr<Plan> plan =
      plans_.get(translation.sql, [&] { return std::make_shared<Plan>(driver_, translation); });
  const bool isWhole = hasSkeleton && translation.literalsAreParameters;
  if (isWhole) plansBySkeleton_.get(skeleton_, [&] { return plan; });
  parameters = std::move(translation.parameters);
  return {std::move(plan), isWhole};
}

// Whatever is settled has ended, also where that failed.
void Session::settleAll(Settle how) {
  while (!live_.empty()) live_.back().rows->settle(how);
}

void Session::begin(LiveRows& rows, const RowStatement& statement) {
  if (!mayStay_) settleAll(Settle::keepValues);
  mayStay_ = isSideBySide_;
  const auto other = std::ranges::find(live_, &statement, &Live::statement);
  if (other != live_.end()) other->rows->settle(Settle::keepValues);
  live_.push_back({&rows, &statement});
}

// An engine that cannot tell what others do still shows a walk one state. Walks are numbered apart.
ReadState Session::readState() {
  constexpr std::uint64_t firstWalk = std::uint64_t{1} << 63;
  const std::uint64_t others = driver_.state();
  return {others == 0 && isWalking() ? firstWalk + walk_ : others, version_};
}

std::unique_ptr<RowMemory> Session::recall(const Plan& plan, const std::vector<Value>& parameters,
                                           ReadState now) {
  return remembered_.take(plan, parameters, [&](const ReadState& then) {
    return then.others == now.others && isUnwritten(plan.tablesRead(), then.own);
  });
}

void Session::remember(const std::shared_ptr<Plan>& plan, std::unique_ptr<RowMemory> memory,
                       ReadState state) noexcept {
  if (const LookUp sought = lookUp(plan, memory->parameters)) sought.ahead->note(sought.id);
  if (auto former = remembered_.put(plan, std::move(memory), state)) giveBack(std::move(former));
}

std::uint64_t Session::versionOf(const TableDef* table) const {
  const auto found = written_.find(table);
  return found == written_.end() ? 0 : found->second;
}

bool Session::isUnwritten(const std::vector<const TableDef*>& tables, std::uint64_t since) const {
  return version_ == since || std::ranges::all_of(tables, [&](const TableDef* table) {
           return versionOf(table) <= since;
         });
}

int Session::write(const TableDef& table, DriverStatement& statement,
                   const std::vector<Value>& values) {
  settleAll(Settle::keysOnly);
  const int rows = statement.run(values);
  written_[&table] = ++version_;
  return rows;
}

void Session::writeTogether(const std::function<void()>& write) {
  settleAll(Settle::keysOnly);
  const std::unique_ptr<DriverTransaction> transaction = driver_.beginWriting();
  write();
  settleAll(Settle::keysOnly);
  transaction->commit();
}

Id Session::reserveKey(const TableDef& table) {
  settleAll(Settle::keysOnly);
  return driver_.reserveKey(table);
}

void Session::takeKey(const TableDef& table, Id key) {
  settleAll(Settle::keysOnly);
  driver_.takeKey(table, key);
}

bool Session::updateField(const TableDef& table, const ColumnDef& column, Id key, Value value) {
  Prepared& statement = updates_[&column];
  if (!statement) {
    const Engine engine = driver_.engine();
    statement = driver_.prepare("UPDATE " + table.name + " SET " + column.name + "=" +
                                placeholder(engine, 1) + " WHERE " + table.key() + "=" +
                                placeholder(engine, 2));
  }
  std::vector<Value> values;
  values.reserve(2);
  values.push_back(std::move(value));
  values.emplace_back(key);
  return write(table, *statement, values) > 0;
}

bool Session::deleteRow(const TableDef& table, Id key) {
  Prepared& statement = deletes_[&table];
  if (!statement)
    statement = driver_.prepare("DELETE FROM " + table.name + " WHERE " + table.key() + "=" +
                                placeholder(driver_.engine(), 1));
  return write(table, *statement, {key}) > 0;
}

Session::Prepared Session::prepareInsert(const TableDef& table,
                                         std::span<const ColumnDef* const> columns) {
  std::string sql = "INSERT INTO " + table.name + " (";
  std::string places;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const char* const separator = i > 0 ? "," : "";
    sql += separator + columns[i]->name;
    places += separator + placeholder(driver_.engine(), i + 1);
  }
  return driver_.prepare(sql + ") VALUES (" + places + ")");
}

void Session::insertRow(const TableDef& table, std::span<const ColumnDef* const> columns,
                        const std::vector<Value>& values) {
  const std::string_view key(reinterpret_cast<const char*>(columns.data()), columns.size_bytes());
  const Prepared statement = inserts_.get(key, [&] { return prepareInsert(table, columns); });
  write(table, *statement, values);
}

void Session::clear() {
  remembered_.clear();
  ahead_.clear();
  recent_.fill({});
  plans_.clear();
  plansBySkeleton_.clear();
  inserts_.clear();
  updates_.clear();
  deletes_.clear();
}

}  // namespace autonotify::host
