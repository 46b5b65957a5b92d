#include "merge/templates/template_check.h"

#include <algorithm>
#include <set>
#include <utility>

#include "contract/references.h"
#include "platform/text.h"

namespace autonotify {
namespace {

constexpr std::size_t npos = std::string_view::npos;
/// Bytes that tell where a mark stands.
constexpr std::size_t mostNearby = 40;
/// Nobody reads more.
constexpr std::size_t mostFaults = 1000;

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

/// Its last whole words.
std::string_view endOf(std::string_view text) {
  if (text.size() <= mostNearby) return text;
  text.remove_prefix(text.size() - mostNearby);
  return text.substr(text.find(' ') + 1);
}

std::optional<std::size_t> lastOpenIn(std::string_view element, const MergeMarks& marks) {
  std::optional<std::size_t> place;
  MarkScanner scanner(element, marks);
  while (const std::optional<FoundMark> open = scanner.nextOpen()) place = open->begin;
  return place;
}

}  // namespace

TemplateCheck::TemplateCheck(Step& step, std::function<bool(const std::string&)> isFieldName)
    : step_(step), isFieldName_(std::move(isFieldName)) {}

std::string TemplateCheck::firstFault(const std::string& text, const MergeMarks& marks) {
  return findFault(text, marks).message;
}

auto TemplateCheck::allFaults(std::string_view text, const MergeMarks& marks)
    -> std::vector<TemplateFault> {
  failsWithoutFormat_ = false;
  std::vector<TemplateFault> faults;
  std::set<std::pair<std::string, std::string_view>> known;
  while (faults.size() < mostFaults) {
    const FoundFault fault = findFault(text, marks);
    if (fault.message.empty()) break;
    text.remove_prefix(fault.end);
    if (known.emplace(fault.message, fault.expression).second)
      faults.push_back({fault.message, std::string(fault.expression)});
  }
  return faults;
}

TemplateCheck::FoundFault TemplateCheck::findFault(std::string_view text, const MergeMarks& marks) {
  MarkScanner scanner(text, marks);
  while (const std::optional<FoundMark> open = scanner.next()) {
    if (!open->isOpen) {
      const std::optional<FoundMark> next = scanner.nextOpen();
      if (!next) return {};
      return {missingOpenMark, endOf(text.substr(0, open->begin)), next->begin};
    }
    const std::optional<FoundMark> close = scanner.nextClose();
    const std::string_view rest = text.substr(open->end);
    if (!close) return {missingOpenMark, rest.substr(0, mostNearby), text.size()};
    const std::string_view element = rest.substr(0, close->begin - open->end);
    std::string fault = faultOf(std::string(element));
    if (fault.empty()) continue;
    const auto inner = lastOpenIn(element, marks);
    return {std::move(fault), element, inner ? open->end + *inner : close->end};
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
    std::string content = element.substr(1, element.size() - 2);
    if (!failsWithoutFormat_ && content.find(',') == npos) content += ",";
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
