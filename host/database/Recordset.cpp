#include "host/database/Recordset.h"

#include <algorithm>

#include "host/database/column_values.h"
#include "host/database/dialect/DatabaseError.h"
#include "host/words/Words.h"

namespace autonotify::host {

Recordset::Recordset(Session& session, const std::string& sql, CursorMode cursor, LockMode lock)
    : session_(session), rows_(session, sql), lock_(lock) {
  // A recordset on a whole table may have been opened only for adding: its rows wait.
  const bool mayBeForAdding =
      cursor == CursorMode::keyset && lock == LockMode::updatable && rows_.plan().isWholeTable();
  if (mayBeForAdding)
    rows_.describe();
  else
    rows_.begin();
}

std::vector<std::string> Recordset::columnNames() const {
  std::vector<std::string> names;
  for (const PlanColumn& column : rows_.plan().columns()) names.push_back(column.name);
  return names;
}

std::vector<std::vector<Value>> Recordset::allRows() {
  const std::size_t count = rows_.plan().columns().size();
  std::vector<std::vector<Value>> result;
  for (std::size_t row = rows_.first(); rows_.has(row); row = rows_.next(row)) {
    std::vector<Value> values;
    for (std::size_t i = 0; i < count; ++i)
      if (std::optional<Value> value = rows_.value(row, static_cast<int>(i)))
        values.push_back(std::move(*value));
    if (values.size() == count) result.push_back(std::move(values));
  }
  return result;
}

void Recordset::appendColumn(const std::string& name, std::vector<Value>& array) {
  const int index = rows_.plan().columnIndex(name);
  std::vector<Value> values;
  for (std::size_t row = rows_.first(); rows_.has(row); row = rows_.next(row))
    if (std::optional<Value> value = rows_.value(row, index)) values.push_back(std::move(*value));
  array.insert(array.end(), values.begin(), values.end());
}

bool Recordset::hasRows() {
  if (position_ >= RowList::firstAdded && rows_.has(position_) && !isDeleted(position_))
    return true;
  std::size_t row = rows_.first();
  if (deleted_.empty()) return rows_.has(row);
  while (rows_.has(row) && isDeleted(row)) row = rows_.next(row);
  return rows_.has(row);
}

bool Recordset::isAtEnd() {
  if (newRow_) return false;
  if (position_ == 0) position_ = rows_.first();
  return !rows_.has(position_) || (!deleted_.empty() && !hasRows());
}

void Recordset::moveNext() {
  newRow_.reset();
  if (isAtEnd()) return;
  std::size_t row = rows_.next(position_);
  while (rows_.has(row) && !rows_.exists(row)) row = rows_.next(row);
  position_ = row;
}

bool Recordset::moveTo(std::size_t position) {
  if (!rows_.has(position)) return false;
  newRow_.reset();
  position_ = position;
  return true;
}

bool Recordset::find(const std::string& name, const std::string& value) {
  newRow_.reset();
  soughtColumn_ = rows_.plan().columnIndex(name);
  const PlanColumn& sought = column(soughtColumn_);
  try {
    soughtText_ = sought.origin ? comparisonText(valueFromText(*sought.origin, value)) : value;
  } catch (const PlatformError&) {
    // No row holds what its column cannot hold. Rows beyond the end match nothing either.
    soughtText_.assign(1, '\0');
  }
  return findFrom(rows_.first());
}

void Recordset::findNext() {
  if (soughtColumn_ < 0) return moveNext();
  newRow_.reset();
  if (!isAtEnd()) findFrom(rows_.next(position_));
}

bool Recordset::findFrom(std::size_t row) {
  auto index = std::find_if(indexes_.begin(), indexes_.end(), [&](const ColumnIndex& candidate) {
    return candidate.column() == soughtColumn_;
  });
  if (index != indexes_.end() && !index->isCurrent(session_, rows_)) {
    indexes_.erase(index);
    index = indexes_.end();
  }
  if (index == indexes_.end())
    index = indexes_.insert(index, ColumnIndex(session_, rows_, soughtColumn_));
  const auto found = index->find(rows_, soughtText_, row);
  position_ = found.value_or(RowList::firstAdded + rows_.count());
  return found.has_value();
}

const PlanColumn& Recordset::column(int index) const {
  return rows_.plan().columns()[static_cast<std::size_t>(index)];
}

void Recordset::requireCurrentRow() {
  if (isAtEnd())
    throw DatabaseError(database_error::noCurrentRow, "The recordset stands on no row");
}

void Recordset::requireNoTemplate(int index) const {
  static const ColumnDef* const templates = findColumn("ScheduleTypes", "NotificationComment");
  if (column(index).origin == templates)
    throw DatabaseError(
        database_error::invalidText,
        Words::tr("The template in ScheduleTypes.NotificationComment is larger than 16 MiB"));
}

Value Recordset::passedValue(int index) {
  requireCurrentRow();
  rows_.ask(index);
  if (rows_.isAtHand(position_, index)) return rows_.valueAtHand(index);
  const Value* const value = rows_.passedValue(position_, index);
  if (!value)
    throw DatabaseError(database_error::rowGone, Words::tr("The current row has been deleted"));
  return *value;
}

void Recordset::requireUpdatable() const {
  if (lock_ != LockMode::updatable)
    throw DatabaseError(database_error::notUpdatable, "The recordset was opened read-only");
}

const PlanColumn& Recordset::writableColumn(const std::string& name, bool keyToo) const {
  requireUpdatable();
  const PlanColumn& result = column(rows_.plan().columnIndex(name));
  if (result.tableIndex < 0)
    throw DatabaseError(database_error::notUpdatable,
                        "Column " + name + " is of no single row of a table");
  if (!keyToo && result.origin->kind == ColumnKind::Key)
    throw DatabaseError(database_error::notUpdatable,
                        "Column " + name + " is the key of its table");
  return result;
}

void Recordset::update(const std::string& name, const std::string& text) {
  const PlanColumn& target = writableColumn(name, false);
  Value value = valueFromText(*target.origin, text);
  if (newRow_)
    throw DatabaseError(database_error::noCurrentRow, "The row being added is not saved yet");
  requireCurrentRow();
  const Id key = rows_.key(position_, target.tableIndex);
  if (!session_.updateField(*target.table, *target.origin, key, std::move(value)))
    throw DatabaseError(database_error::rowGone, Words::tr("The current row has been deleted"));
}

void Recordset::remove() {
  requireUpdatable();
  if (newRow_ || !rows_.plan().isKeyed())
    throw DatabaseError(newRow_ ? database_error::noCurrentRow : database_error::notUpdatable,
                        "There is no row of a table to delete");
  requireCurrentRow();
  if (!session_.deleteRow(*rows_.plan().tables().front(), rows_.key(position_, 0)))
    throw DatabaseError(database_error::rowGone, Words::tr("The current row has been deleted"));
  deleted_.insert(position_);
}

const TableDef& Recordset::table() const {
  if (rows_.plan().tables().size() != 1)
    throw DatabaseError(database_error::notUpdatable,
                        "Rows are added to a recordset of a single table only");
  return *rows_.plan().tables().front();
}

void Recordset::beginRow() {
  requireUpdatable();
  auto row = std::make_unique<NewRow>();
  row->values.resize(table().columns.size());
  row->key = session_.reserveKey(table());
  newRow_ = std::move(row);
}

Recordset::NewRow& Recordset::newRow() {
  if (!newRow_) throw DatabaseError(database_error::noCurrentRow, "No row is being added");
  return *newRow_;
}

Value Recordset::newValue(const PlanColumn& wanted) const {
  if (!wanted.origin) return Null{};
  if (wanted.origin->kind == ColumnKind::Key) return newRow_->key;
  const std::optional<Value>& set = newRow_->values[placeInTable(wanted)];
  return set ? *set : defaultValue(*wanted.origin);
}

std::size_t Recordset::placeInTable(const PlanColumn& column) {
  return static_cast<std::size_t>(column.origin - column.table->columns.data());
}

void Recordset::setValue(const std::string& name, const std::string& text) {
  const PlanColumn& target = writableColumn(name, true);
  Value value = valueFromText(*target.origin, text);
  NewRow& row = newRow();
  if (target.origin->kind == ColumnKind::Key) {
    row.key = toInteger(value);
    row.isKeyGiven = true;
  } else {
    row.values[placeInTable(target)] = std::move(value);
  }
}

void Recordset::saveRow() {
  requireUpdatable();
  const NewRow& row = newRow();
  std::vector<const ColumnDef*> columns;
  std::vector<Value> values;
  columns.reserve(row.values.size());
  values.reserve(row.values.size());
  // In the table's order, so that the same set of columns is the same statement.
  for (std::size_t i = 0; i < row.values.size(); ++i) {
    const ColumnDef& each = table().columns[i];
    const bool isKey = each.kind == ColumnKind::Key;
    if (!isKey && !row.values[i]) continue;
    columns.push_back(&each);
    values.push_back(isKey ? Value(row.key) : *row.values[i]);
  }
  if (row.isKeyGiven) session_.takeKey(table(), row.key);
  session_.insertRow(table(), columns, values);
  position_ = rows_.append(row.key);
  newRow_.reset();
}

}  // namespace autonotify::host
