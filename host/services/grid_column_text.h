#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Value.h"

namespace autonotify::host {

struct GridColumnEntry {
  Value key;
  std::vector<Value> items;

  friend bool operator==(const GridColumnEntry&, const GridColumnEntry&) = default;
};

// The text form of a GridColumnList:
//
//   columns/1 2
//   i1<tab>sDue date<tab>i1400<tab>bTrue
//   i2<tab>sClient<tab>n<tab>bFalse
//
// The first line tells the form and the number of entries; then one line each, all ended by line
// feeds: the key and the items, parted by tabs. Each field is a letter and a content: n null,
// b True or False, i integer, d double, t days and seconds parted by ":", s text, in which tab,
// line feed, carriage return, backslash and the zero byte are written \t \n \r \\ \0.

std::string gridColumnText(const std::vector<GridColumnEntry>& entries);

/// Nothing for a text that is no such form as a whole; a carriage return before a line's end is
/// overlooked, since texts travel through other systems.
std::optional<std::vector<GridColumnEntry>> parseGridColumnText(std::string_view text);

}  // namespace autonotify::host
