#include "host/database/column_values.h"

#include "host/database/dialect/DatabaseError.h"
#include "host/words/Words.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

Value storableText(const ColumnDef& column, const std::string& text) {
  if (text.find('\0') != std::string::npos)
    throw DatabaseError(database_error::invalidText,
                        Words::tr("Text with a NUL byte cannot be stored in %1", {column.name}));
  if (!isValidUtf8(text))
    throw DatabaseError(database_error::invalidText,
                        Words::tr("Text that is no UTF-8 cannot be stored in %1", {column.name}));
  return text;
}

bool emptyMeansNull(ColumnKind kind) {
  return kind != ColumnKind::Key && kind != ColumnKind::Flag;
}

}  // namespace

Value valueFromText(const ColumnDef& column, const std::string& text) {
  if (column.kind == ColumnKind::Text || column.kind == ColumnKind::Memo)
    return storableText(column, text);
  if (emptyMeansNull(column.kind) && trim(text).empty()) return Null{};
  switch (column.kind) {
    case ColumnKind::SmallInteger:
      return toInteger16(text);
    case ColumnKind::Key:
    case ColumnKind::Integer:
      return toInteger(text);
    case ColumnKind::Flag:
      return toFlag(text);
    case ColumnKind::DateTime:
      return toDateTime(text);
    default:
      return toDouble(text);
  }
}

Value defaultValue(const ColumnDef& column) {
  if (column.defaultValue.empty()) return column.kind == ColumnKind::Flag ? Value(false) : Value();
  return valueFromText(column, column.defaultValue);
}

std::string comparisonText(const Value& value) {
  return value.isNull() ? std::string() : toText(value);
}

}  // namespace autonotify::host
