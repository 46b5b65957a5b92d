#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_list_columns.h"
#include "platform/text.h"

namespace autonotify {
namespace {

constexpr std::size_t npos = std::string_view::npos;

constexpr const char* missingOpenMark =
    "You are missing your opening brackets, '«' in one of your expressions";
constexpr const char* missingCloseRound =
    "You are missing the closing round bracket, ')' in one of your date expressions";
constexpr const char* missingOpenRound =
    "You are missing the opening round bracket, '(' in one of your date expressions";
constexpr const char* missingCloseMark =
    "You are missing a closing bracket, '»' in one of your expressions.  Make sure you have a "
    "bracket immediately before and after a field.\r\n\r\neg. «Company Name»";

bool isDateFormat(std::string_view format) {
  for (const std::string_view known : mergeDateFormats)
    if (known == format) return true;
  return false;
}

/// The text between two commas, `number` from 0; blanks off both ends. Throws PlatformError (9)
/// when there are fewer.
std::string partOf(std::string_view text, std::size_t number) {
  const std::size_t comma = text.find(',');
  if (text.empty() || (number == 1 && comma == npos))
    throw PlatformError(error_number::subscriptOutOfRange, "Subscript out of range");
  return std::string(trim(number == 0 ? text.substr(0, comma) : text.substr(comma + 1)));
}

}  // namespace

/// What is read of one expression; kept from one to the next, as a reading that failed and was
/// passed over leaves what was there.
struct clsInsertFieldsInRTB::Expression {
  std::string name;
  std::string format;
};

bool clsInsertFieldsInRTB::testRTBComment(const std::string& text, bool isRTF, bool raiseErrors,
                                          bool skipFieldNames) {
  return procedure(
      "Morvane.exe-clsInsertFieldsInRTB-testRTBComment", false, [&](Step& step, bool& result) {
        const std::string fault = firstFault(step, convertProvinceFields(text),
                                             isRTF ? escapedMarks : bareMarks, skipFieldNames);
        if (fault.empty()) return;
        result = true;
        if (raiseErrors && testErrorComment) testErrorComment(fault);
      });
}

/// The message of the first fault; empty when there is none.
std::string clsInsertFieldsInRTB::firstFault(Step& step, const std::string& text,
                                             const MergeMarks& marks, bool skipFieldNames) {
  Expression expression;
  for (std::size_t from = 0;;) {
    const std::size_t open = findIgnoreCase(text, marks.open, from);
    const std::size_t close = findIgnoreCase(text, marks.close, from);
    if (open == npos) return {};
    if (close == npos || close < open) return missingOpenMark;
    const std::size_t begin = open + marks.open.size();
    std::string fault = faultOfElement(step, text.substr(begin, close - begin), expression);
    if (fault.empty() && !skipFieldNames && !testStr(expression.name))
      fault = faultOfUnknownName(step, expression.name);
    if (!fault.empty()) return fault;
    from = close + marks.close.size();
  }
}

/// Reads what stands between two marks into `expression` and gives the fault of its form.
std::string clsInsertFieldsInRTB::faultOfElement(Step& step, const std::string& element,
                                                 Expression& expression) {
  if (element.starts_with('(')) {
    if (!element.ends_with(')')) return missingCloseRound;
    const std::string content = element.substr(1, element.size() - 2);
    step.assign(expression.name, [&] { return partOf(content, 0); });
    step.assign(expression.format, [&] { return partOf(content, 1); });
    if (!isDateFormat(expression.format)) {
      return "The date format of: '" + expression.format +
             "' is not valid.  Please see help for valid date formats.";
    }
  } else if (element.ends_with(')')) {
    return missingOpenRound;
  } else {
    expression.name = element;
  }
  return characterCount(expression.name) > longestFieldName ? missingCloseMark : "";
}

std::string clsInsertFieldsInRTB::faultOfUnknownName(Step& step, const std::string& name) {
  const std::string product = step.value(std::string{}, [&] { return locale().getProductName(); });
  return "The " + product + " Pad did not recognize: «" + name +
         "» as a valid placeholder field name.";
}

bool clsInsertFieldsInRTB::testStr(const std::string& name) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-testStr", false,
                   [&](Step& step, bool& result) {
                     result = upperCase(name) == upperCase(todaysDateName) ||
                              findField(step, field_column::displayName, name);
                   });
}

}  // namespace autonotify
