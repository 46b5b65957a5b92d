#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace autonotify {

// The spelling of merge fields in a template: "«Company Name»", "«(Task Due Date, mmmm d yyyy)»".

struct MergeMarks {
  std::string_view open;
  std::string_view close;
};

/// « and » as they stand in plain text.
inline constexpr MergeMarks bareMarks{"\xC2\xAB", "\xC2\xBB"};
/// The same as RTF holds them.
inline constexpr MergeMarks escapedMarks{"\\'ab", "\\'bb"};

/// The most characters that the name of a field has.
inline constexpr std::size_t longestFieldName = 40;

/// The formats in which a date field may be written; all others are refused. Their numbers, from 1,
/// are those of the commands that insert today's date.
inline constexpr std::array<std::string_view, 14> mergeDateFormats{
    "dddd, mmmm d yyyy",
    "dddd mmmm d yyyy",
    "mmmm d, yyyy",
    "mmmm d yyyy",
    "mmm d yyyy",
    "dd/mm/yy",
    "mm/dd/yy",
    "d",
    "dddd",
    "mmmm",
    "mmm",
    "yyyy",
    "mmmm yyyy",
    "mmmm d",
};

/// The name under which today's date is written; no field of the list has it.
inline constexpr std::string_view todaysDateName = "Todays Date";

/// The pattern that prints a date field written with the format: "dd/mm/yy" names its month.
constexpr std::string_view printedFormat(std::string_view format) {
  return format == "dd/mm/yy" ? "dd/mmm/yy" : format;
}

/// What stands between the marks of a date field: "(Task Due Date, yyyy)".
std::string dateContent(std::string_view name, std::string_view format);
std::string plainToken(const MergeMarks& marks, std::string_view content);
std::string dateToken(const MergeMarks& marks, std::string_view name, std::string_view format);

/// True when a value holds a mark, or could form one with the text on either side of it.
bool mayFormMark(std::string_view value);
/// True when the text ends in the beginning of a mark.
bool endsInsideMark(std::string_view text);

/// One mark of a text, from its first byte to the one behind its last.
struct FoundMark {
  std::size_t begin = 0;
  std::size_t end = 0;
  bool isOpen = false;
};

/// Goes through the marks of one spelling in a text, which outlives it.
class MarkScanner {
 public:
  MarkScanner(std::string_view text, const MergeMarks& marks);

  // Nothing behind the last one.
  std::optional<FoundMark> next();
  std::optional<FoundMark> nextOpen() { return nextOf(true); }
  std::optional<FoundMark> nextClose() { return nextOf(false); }

 private:
  std::optional<FoundMark> nextOf(bool isOpen);

  std::string_view text_;
  MergeMarks marks_;
  std::size_t seldomAt_;  ///< of a mark's characters, the one looked for
  std::size_t at_ = 0;
};

}  // namespace autonotify
