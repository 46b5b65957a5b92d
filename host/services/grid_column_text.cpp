#include "host/services/grid_column_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

#include "contract/GridColumnList.h"

namespace autonotify::host {
namespace {

constexpr std::string_view heading = "columns/1 ";

struct Escape {
  char plain;
  char letter;
};
constexpr Escape escapes[] = {{'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}, {'\\', '\\'}, {'\0', '0'}};

template <class Number>
std::string numberText(Number number) {
  char digits[32];
  return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

template <class Number>
std::optional<Number> readNumber(std::string_view text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc{} && stop == end ? std::optional(number) : std::nullopt;
}

/// Writes one field by the kind of its value.
struct FieldWriter {
  std::string operator()(Null) const { return "n"; }
  std::string operator()(bool flag) const { return flag ? "bTrue" : "bFalse"; }
  std::string operator()(std::int64_t number) const { return "i" + numberText(number); }
  std::string operator()(double number) const { return "d" + numberText(number); }
  std::string operator()(DateTime moment) const {
    return "t" + numberText(moment.days()) + ":" + numberText(moment.seconds());
  }
  std::string operator()(const std::string& text) const {
    std::string field = "s";
    for (const char byte : text) appendEscaped(field, byte);
    return field;
  }

 private:
  static void appendEscaped(std::string& field, char byte) {
    for (const Escape& escape : escapes) {
      if (byte == escape.plain) {
        field += '\\';
        field += escape.letter;
        return;
      }
    }
    field += byte;
  }
};

std::optional<char> plainOf(char letter) {
  for (const Escape& escape : escapes) {
    if (letter == escape.letter) return escape.plain;
  }
  return std::nullopt;
}

std::optional<Value> readText(std::string_view content) {
  std::string text;
  for (std::size_t at = 0; at < content.size(); ++at) {
    if (content[at] != '\\') {
      text += content[at];
      continue;
    }
    const std::optional<char> plain =
        ++at < content.size() ? plainOf(content[at]) : std::optional<char>();
    if (!plain) return std::nullopt;
    text += *plain;
  }
  return Value(std::move(text));
}

std::optional<Value> readMoment(std::string_view content) {
  const std::size_t colon = content.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const auto days = readNumber<std::int32_t>(content.substr(0, colon));
  const auto seconds = readNumber<std::int32_t>(content.substr(colon + 1));
  if (!days || !seconds || *seconds < 0 || *seconds >= 86400) return std::nullopt;
  return DateTime::fromSerial(*days, *seconds);
}

template <class Number>
std::optional<Value> readNumberValue(std::string_view content) {
  const std::optional<Number> number = readNumber<Number>(content);
  return number ? std::optional<Value>(*number) : std::nullopt;
}

std::optional<Value> readField(std::string_view field) {
  if (field == "n") return Value();
  if (field == "bTrue" || field == "bFalse") return Value(field == "bTrue");
  if (field.empty()) return std::nullopt;
  const std::string_view content = field.substr(1);
  switch (field.front()) {
    case 'i':
      return readNumberValue<std::int64_t>(content);
    case 'd':
      return readNumberValue<double>(content);
    case 't':
      return readMoment(content);
    case 's':
      return readText(content);
    default:
      return std::nullopt;
  }
}

/// Takes the text up to the separator, and the separator, off the front.
std::string_view takeUntil(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

std::string_view takeLine(std::string_view& text) {
  std::string_view line = takeUntil(text, '\n');
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::optional<GridColumnEntry> readEntry(std::string_view line) {
  std::vector<Value> fields;
  do {
    std::optional<Value> value = readField(takeUntil(line, '\t'));
    if (!value || fields.size() > GridColumnList::maxItems) return std::nullopt;
    fields.push_back(*std::move(value));
  } while (!line.empty());
  GridColumnEntry entry{fields.front(), {}};
  entry.items.assign(fields.begin() + 1, fields.end());
  return entry;
}

}  // namespace

std::string gridColumnText(const std::vector<GridColumnEntry>& entries) {
  std::string text = std::string(heading) + numberText(entries.size()) + '\n';
  for (const GridColumnEntry& entry : entries) {
    text += entry.key.visit(FieldWriter{});
    for (const Value& item : entry.items) text += '\t' + item.visit(FieldWriter{});
    text += '\n';
  }
  return text;
}

std::optional<std::vector<GridColumnEntry>> parseGridColumnText(std::string_view text) {
  std::string_view first = takeLine(text);
  if (!first.starts_with(heading)) return std::nullopt;
  const auto count = readNumber<std::size_t>(first.substr(heading.size()));
  std::vector<GridColumnEntry> entries;
  while (!text.empty()) {
    if (text.find('\n') == std::string_view::npos) return std::nullopt;
    std::optional<GridColumnEntry> entry = readEntry(takeLine(text));
    if (!entry) return std::nullopt;
    entries.push_back(*std::move(entry));
  }
  if (entries.size() != count) return std::nullopt;
  return entries;
}

}  // namespace autonotify::host
