#include "merge/fields/field_table.h"

#include "merge/fields/field_catalogue.h"
#include "merge/fields/recent_entries.h"
#include "merge/templates/template_layout.h"
#include "platform/PlatformError.h"

namespace autonotify {
namespace {

constexpr std::size_t keptTables = 8;

}  // namespace

MergeFields::MergeFields(std::vector<MergeField> fields, std::vector<SharedFieldRows> rows)
    : fields_(std::move(fields)), rows_(std::move(rows)), names_(fields_.size()) {
  int row = 0;
  for (const MergeField& field : fields_) {
    ++row;
    if (mayFormMark(field.foldedName)) canClaim_ = false;
    const std::size_t name = names_.add(field.foldedName);
    if (name == named_.size()) named_.emplace_back();
    int& first = field.isDate ? named_[name].date : named_[name].other;
    if (first == 0) first = row;
  }
}

int MergeFields::firstRow(const HashedText& foldedName, bool isDate) const {
  const std::optional<std::size_t> name = names_.find(foldedName);
  if (!name) return 0;
  return isDate ? named_[*name].date : named_[*name].other;
}

MergeField mergeFieldOf(const Value& displayName, int key, const Value& dataType) {
  return {foldCase(toText(displayName)), key,
          toInteger(dataType) == static_cast<int>(FieldType::date)};
}

FieldTable::FieldTable(const std::vector<SharedFieldRows>& pieces) {
  std::vector<MergeField> fields;
  for (const SharedFieldRows& piece : pieces) {
    for (const FieldRow& row : *piece) {
      rows_.push_back(&row);
      const Value& dataType = row.item(field_column::dataType);
      fields.push_back(mergeFieldOf(row.item(field_column::displayName), size(), dataType));
      fields.back().plan = &row.plan;
    }
  }
  mergeFields_ = std::make_shared<const MergeFields>(std::move(fields), pieces);
}

std::shared_ptr<const FieldTable> sharedFieldTable(const std::vector<SharedFieldRows>& pieces) {
  static RecentEntries<std::vector<SharedFieldRows>, std::shared_ptr<const FieldTable>> tables(
      keptTables);
  return tables.findOrMake(pieces, [&] { return std::make_shared<const FieldTable>(pieces); });
}

void addRowsTo(Step& step, GridColumnList& list, const FieldRows& rows, int firstKey) {
  for (const FieldRow& row : rows) {
    step.run([&] { list.addEntry(Value(firstKey), std::span(row.items).first(row.itemCount)); });
    ++firstKey;
  }
}

GridColumnList* FieldList::lend(Step& step) {
  if (isLent_) return list_.get();
  isLent_ = true;
  int key = 1;
  for (const SharedFieldRows& piece : pieces_) {
    addRowsTo(step, *list_, *piece, key);
    key += static_cast<int>(piece->size());
  }
  if (current_ > 0) step.run([&] { list_->selectEntry(Value(current_)); });
  return list_.get();
}

void FieldList::clearEntries() {
  if (isLent_) list_->clearEntries();
  pieces_.clear();
  table_.reset();
  current_ = 0;
}

void FieldList::addRows(Step& step, const SharedFieldRows& rows, int firstKey) {
  if (isLent_) return addRowsTo(step, *list_, *rows, firstKey);
  pieces_.push_back(rows);
  table_.reset();
}

const FieldTable& FieldList::table() {
  if (!table_) table_ = sharedFieldTable(pieces_);
  return *table_;
}

int FieldList::getEntryCount() {
  return isLent_ ? list_->getEntryCount() : table().size();
}

bool FieldList::selectEntry(int key) {
  if (isLent_) return list_->selectEntry(Value(key));
  if (key < 1 || key > table().size()) return false;
  current_ = key;
  return true;
}

int FieldList::findEntry(int column, const std::string& text) {
  if (isLent_) return list_->findEntry(column, text);
  const Value sought(text);
  for (int key = 1; key <= table().size(); ++key) {
    if (!(table().row(key).item(column) == sought)) continue;
    current_ = key;
    return key - 1;
  }
  return -1;
}

int FieldList::currentKey() const {
  if (current_ == 0) {
    throw PlatformError(error_number::subscriptOutOfRange, "Subscript out of range", "FieldList");
  }
  return current_;
}

Value FieldList::getItem(int column) {
  return isLent_ ? list_->getItem(column) : table().row(currentKey()).item(column);
}

Value FieldList::getEntryKey() {
  return isLent_ ? list_->getEntryKey() : Value(currentKey());
}

std::shared_ptr<const MergeFields> FieldList::mergeFields() {
  if (!isLent_) return table().mergeFields();
  std::vector<MergeField> fields;
  const int count = list_->getEntryCount();
  for (int row = 1; row <= count; ++row) {
    list_->selectEntry(Value(row));
    fields.push_back(mergeFieldOf(list_->getItem(field_column::displayName),
                                  toInteger(list_->getEntryKey()),
                                  list_->getItem(field_column::dataType)));
  }
  return std::make_shared<const MergeFields>(std::move(fields));
}

}  // namespace autonotify
