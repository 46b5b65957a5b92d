#include "merge/fields/field_format.h"

#include "contract/references.h"

namespace autonotify {
namespace {

constexpr int firstFormattedYear = 1900;

}  // namespace

std::optional<std::string> formattedDate(DateTime date, const DateFormat& format) {
  if (date.year() < firstFormattedYear) return std::nullopt;
  return format.text(date);
}

DateFormat fieldDateFormat(std::string_view pattern) {
  return DateFormat(pattern.empty() ? "mmm d, yyyy" : pattern);
}

std::optional<std::string> formattedField(const Value& value, FieldType type,
                                          const DateFormat& format) {
  switch (type) {
    case FieldType::date:
      return formattedDate(toDateTime(value), format);
    case FieldType::time:
      return formatDateTime(toDateTime(value), "h:Nn am/pm");
    case FieldType::currency:
      return formatNumber(toDouble(value), "$#,##0.00;$-#,##0.00");
    case FieldType::yesNo:
      return toFlag(value) ? "Yes" : "No";
    case FieldType::duration:
      return validation().getDurationText(toInteger(Value(toDouble(value) * 60)));
    case FieldType::text:
    case FieldType::documentsList:
      break;
  }
  return std::nullopt;
}

}  // namespace autonotify
