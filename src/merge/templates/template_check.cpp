#include "merge/templates/template_check.h"

#include <algorithm>

#include "contract/references.h"
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
  return std::find(mergeDateFormats.begin(), mergeDateFormats.end(), format) !=
         mergeDateFormats.end();
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

TemplateCheck::TemplateCheck(Step& step, std::function<bool(const std::string&)> isFieldName)
    : step_(step), isFieldName_(std::move(isFieldName)) {}

std::string TemplateCheck::firstFault(const std::string& text, const MergeMarks& marks) {
  MarkScanner scanner(text, marks);
  while (const std::optional<FoundMark> open = scanner.next()) {
    if (!open->isOpen) return scanner.nextOpen() ? missingOpenMark : "";
    const std::optional<FoundMark> close = scanner.nextClose();
    if (!close) return missingOpenMark;
    std::string fault = faultOf(text.substr(open->end, close->begin - open->end));
    if (!fault.empty()) return fault;
  }
  return {};
}

/// The fault of what stands between two marks.
std::string TemplateCheck::faultOf(const std::string& element) {
  std::string fault = faultOfForm(element);
  if (fault.empty() && isFieldName_ && !isFieldName_(name_)) return faultOfUnknownName();
  return fault;
}

/// Reads the name and the format.
std::string TemplateCheck::faultOfForm(const std::string& element) {
  if (element.starts_with('(')) {
    if (!element.ends_with(')')) return missingCloseRound;
    const std::string content = element.substr(1, element.size() - 2);
    step_.assign(name_, partOf, content, 0);
    step_.assign(format_, partOf, content, 1);
    if (!isDateFormat(format_)) {
      return "The date format of: '" + format_ +
             "' is not valid.  Please see help for valid date formats.";
    }
  } else if (element.ends_with(')')) {
    return missingOpenRound;
  } else {
    name_ = element;
  }
  return characterCount(name_) > longestFieldName ? missingCloseMark : "";
}

std::string TemplateCheck::faultOfUnknownName() {
  const std::string product = step_.value(std::string{}, [] { return locale().getProductName(); });
  return "The " + product + " Pad did not recognize: «" + name_ +
         "» as a valid placeholder field name.";
}

}  // namespace autonotify
