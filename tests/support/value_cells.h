#pragma once

#include <cstdlib>
#include <string>
#include <vector>

#include "platform/Value.h"
#include "platform/date_time_text.h"

// Values in the files of tests: 'text', #2026-04-30#, ~1.5~, 12, True, NULL.
namespace autonotify::test {

/// A comma between two.
inline std::string cellOf(const std::vector<Value>& values) {
  std::string all;
  for (const Value& value : values) {
    const char* const mark = value.getIf<std::string>() ? "'"
                             : value.getIf<DateTime>()  ? "#"
                             : value.getIf<double>()    ? "~"
                                                        : "";
    all += (all.empty() ? "" : ", ") + (mark + (value.isNull() ? "NULL" : toText(value)) + mark);
  }
  return all;
}

inline Value valueOfCell(const std::string& cell) {
  if (cell == "NULL") return Null{};
  if (cell == "True" || cell == "False") return cell == "True";
  const std::string inner = cell.substr(1, cell.size() - 2);
  if (cell.front() == '\'') return inner;
  if (cell.front() == '#') return parseDateTime(inner).value();
  if (cell.front() == '~') return std::strtod(inner.c_str(), nullptr);
  return std::int64_t{std::stoll(cell)};
}

}  // namespace autonotify::test
