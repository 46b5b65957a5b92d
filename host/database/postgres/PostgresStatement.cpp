#include "host/database/postgres/PostgresStatement.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <exception>
#include <string_view>
#include <utility>

#include "host/database/dialect/DatabaseError.h"
#include "platform/date_time_text.h"

namespace autonotify::host {
namespace {

constexpr int window = PostgresDriver::window;

std::string firstRows(const std::string& sql, int count) {
  return "SELECT * FROM (" + sql + ") AS given LIMIT " + std::to_string(count);
}

/// How many parameters a translated statement has; it holds no other $ mark.
std::size_t parameterCount(std::string_view sql) {
  std::size_t greatest = 0;
  for (std::size_t at = sql.find('$'); at != sql.npos; at = sql.find('$', at + 1)) {
    std::size_t number = 0;
    std::from_chars(sql.data() + at + 1, sql.data() + sql.size(), number);
    greatest = std::max(greatest, number);
  }
  return greatest;
}

template <class Number>
Number numberOf(const pqxx::field& field) {
  Number number{};
  const char* text = field.c_str();
  std::from_chars(text, text + field.size(), number);
  return number;
}

Value readText(const pqxx::field& field) {
  return std::string(field.c_str(), field.size());
}

// Moments are whole seconds; another program may have stored parts of one.
Value readMoment(const pqxx::field& field) {
  const std::string_view text(field.c_str(), field.size());
  if (const auto moment = parseDateTime(text.substr(0, text.find('.')))) return *moment;
  return std::string(text);
}

struct TypeReader {
  pqxx::oid type;  // of pg_type
  Value (*read)(const pqxx::field&);
};

constexpr TypeReader typeReaders[] = {
    {16, [](const pqxx::field& field) { return Value(*field.c_str() == 't'); }},
    {20, [](const pqxx::field& field) { return Value(numberOf<std::int64_t>(field)); }},
    {21, [](const pqxx::field& field) { return Value(numberOf<std::int64_t>(field)); }},
    {23, [](const pqxx::field& field) { return Value(numberOf<std::int64_t>(field)); }},
    {700, [](const pqxx::field& field) { return Value(numberOf<double>(field)); }},
    {701, [](const pqxx::field& field) { return Value(numberOf<double>(field)); }},
    {1700, [](const pqxx::field& field) { return Value(numberOf<double>(field)); }},
    {1082, readMoment},
    {1114, readMoment},
};

}  // namespace

PostgresStatement::PostgresStatement(PostgresDriver& driver, std::string sql,
                                     const std::string& name)
    : driver_(driver),
      sql_(std::move(sql)),
      rows_{name + "r", firstRows(sql_, window + 1)},
      write_{name + "w", sql_} {}

PostgresStatement::~PostgresStatement() {
  reset();
  for (Prepared* prepared : {&rows_, &write_})
    if (prepared->generation > 0) driver_.forget(std::move(prepared->name));
}

const std::vector<ResultColumn>& PostgresStatement::columns() const {
  if (columns_.empty())
    describe(driver_.connection().executeApart(firstRows(sql_, 0),
                                               std::vector<Value>(parameterCount(sql_))));
  return columns_;
}

void PostgresStatement::describe(const pqxx::result& result) const {
  columns_ = driver_.catalogue().columnsOf(driver_.connection(), result);
}

pqxx::result PostgresStatement::executePrepared(Prepared& prepared,
                                                const std::vector<Value>& parameters) {
  const PostgresParameters bound(parameters);
  PostgresConnection& connection = driver_.connection();
  return connection.perform(sql_, [&](pqxx::transaction_base& transaction) {
    // Preparing is an exchange of its own, which a statement that runs once is spared.
    if (!std::exchange(prepared.wasUsed, true))
      return transaction.exec_params(prepared.sql, bound.all());
    if (prepared.generation != connection.generation()) {
      transaction.conn().prepare(prepared.name, prepared.sql);
      prepared.generation = connection.generation();
    }
    return transaction.exec_prepared(prepared.name, bound.all());
  });
}

void PostgresStatement::execute(const std::vector<Value>& parameters) {
  reset();
  chunk_ = executePrepared(rows_, parameters);
  if (columns_.empty()) describe(chunk_);
  if (readers_.empty())
    for (int i = 0; i < static_cast<int>(chunk_.columns()); ++i)
      readers_.push_back(readerOf(chunk_.column_type(i)));
  if (chunk_.size() > window) openCursor(parameters);
}

// What came of the first rows is of an older moment than the cursor, and so left.
void PostgresStatement::openCursor(const std::vector<Value>& parameters) {
  const PostgresParameters bound(parameters);
  const std::string declaration = "DECLARE " + rows_.name + " NO SCROLL CURSOR FOR " + sql_;
  reading_ = driver_.connection().beginReading();
  driver_.connection().perform(*reading_, sql_, [&](pqxx::transaction_base& transaction) {
    return transaction.exec_params(declaration, bound.all());
  });
  fetch();
}

void PostgresStatement::fetch() {
  const std::string sql = "FETCH " + std::to_string(window) + " FROM " + rows_.name;
  chunk_ = driver_.connection().perform(
      *reading_, sql_, [&](pqxx::transaction_base& transaction) { return transaction.exec(sql); });
  next_ = 0;
}

bool PostgresStatement::step() {
  if (next_ == chunk_.size() && reading_) fetch();
  if (next_ < chunk_.size()) {
    ++next_;
    return true;
  }
  reset();
  return false;
}

Value PostgresStatement::value(int column, const ColumnDef*) const {
  const pqxx::field field = chunk_[next_ - 1][column];
  if (field.is_null()) return Null{};
  return readers_[static_cast<std::size_t>(column)](field);
}

Id PostgresStatement::key(int column) const {
  return numberOf<Id>(chunk_[next_ - 1][column]);
}

void PostgresStatement::reset() noexcept {
  chunk_.clear();
  next_ = 0;
  closeCursor();
  reading_.reset();
}

// With the last reader the transaction ends, and so do its cursors.
void PostgresStatement::closeCursor() noexcept {
  if (reading_.use_count() < 2) return;
  try {
    driver_.connection().perform(*reading_, sql_, [&](pqxx::transaction_base& transaction) {
      return transaction.exec("CLOSE " + rows_.name);
    });
  } catch (const std::exception&) {
    // Nor is there anything to close where the transaction has failed.
  }
}

int PostgresStatement::run(const std::vector<Value>& parameters) {
  return static_cast<int>(executePrepared(write_, parameters).affected_rows());
}

PostgresStatement::Reader PostgresStatement::readerOf(pqxx::oid type) {
  const auto* known =
      std::find_if(std::begin(typeReaders), std::end(typeReaders),
                   [&](const TypeReader& candidate) { return candidate.type == type; });
  return known == std::end(typeReaders) ? readText : known->read;
}

}  // namespace autonotify::host
