#include "store/column_lookup.h"

namespace autonotify {
namespace {

bool readFirstRow(Step& step, const ColumnSource& source, Id id, Value& value) {
  const Rows row(step, source.statement, id, keysetRead);
  if (row) value = row.value(source.column);
  return static_cast<bool>(row);
}

template <class Result, class Convert>
Result lookUp(const ColumnLookup& lookup, Id id, Result none, Convert convert) {
  return procedure(lookup.tag, std::move(none), [&](Step& step, Result& result) {
    if (!isDatabaseOpen(step)) return;
    Value value = readColumn(step, lookup.first, lookup.second, id);
    if (!isEmpty(step, value)) step.assign(result, convert, value);
  });
}

}  // namespace

Value readColumn(Step& step, const ColumnSource& first, const ColumnSource& second, Id id) {
  Value value;
  const bool found = readFirstRow(step, first, id, value);
  if (!found && !second.statement.empty()) readFirstRow(step, second, id, value);
  return value;
}

Id lookUpId(const ColumnLookup& lookup, Id id) {
  return lookUp(lookup, id, noId, toInteger);
}

std::string lookUpText(const ColumnLookup& lookup, Id id) {
  return lookUp(lookup, id, std::string{}, takeText);
}

DateTime lookUpDate(const ColumnLookup& lookup, Id id) {
  return lookUp(lookup, id, DateTime{}, toDateTime);
}

bool isPositiveIdText(std::string_view tag, const std::string& text) {
  return procedure(tag, false, [&](Step& step, bool& result) {
    if (text.empty() || !isNumeric(text)) return;
    step.assign(result, [&] { return toInteger(toDouble(text)) > 0; });
  });
}

}  // namespace autonotify
