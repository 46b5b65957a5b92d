#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "host/exchange/EntryKind.h"
#include "platform/Value.h"

namespace autonotify::host {

/// The order in which a file writes dates as numbers: "12/31/2026" has the month first.
enum class DateOrder { monthFirst, dayFirst };
/// As the locale of the environment writes them.
DateOrder dateOrderOfLocale();

/// The value of a cell that is not empty. Throws EntryRefused, naming the column.
Value readCell(const EntryColumn& column, const std::string& cell, DateOrder order);
/// yes or no, in the words that files use. Throws EntryRefused.
bool readFlag(const std::string& cell);
/// What may stand around a text: blanks and line ends.
inline constexpr std::string_view blanks = " \t\r\n";
/// The text without the blanks around it.
std::string withoutBlanks(const std::string& text);
/// The text with blanks for its line ends.
std::string inOneLine(const std::string& text);
/// In one line, no more than so many characters, the last of them an ellipsis where it is longer.
std::string shortened(const std::string& cell, std::size_t characters);
/// As readCell reads it, whichever the order: ISO dates, yes and no.
std::string cellText(CellType type, const Value& value);

}  // namespace autonotify::host
