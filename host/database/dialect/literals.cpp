#include "host/database/dialect/literals.h"

#include <array>
#include <cstdint>
#include <limits>

#include "platform/date_time_text.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

std::optional<Value> numberValue(std::string_view digits) {
  std::int64_t number = 0;
  for (const char digit : digits) {
    number = number * 10 + (digit - '0');
    if (!isAsciiDigit(digit) || number > std::numeric_limits<std::int32_t>::max())
      return std::nullopt;
  }
  return digits.empty() ? std::nullopt : std::optional<Value>(number);
}

std::optional<Value> textValue(std::string_view content) {
  if (content.find('\0') != content.npos || !isValidUtf8(content)) return std::nullopt;
  return replaceAll(content, "''", "'");
}

std::optional<Value> dateValue(std::string_view content) {
  const std::optional<DateTime> moment = parseDateTime(content);
  return moment ? std::optional<Value>(*moment) : std::nullopt;
}

/// Characters that stand nowhere but in literals.
char markOf(TokenKind literal) {
  return literal == TokenKind::number ? '?' : literal == TokenKind::text ? '\'' : '#';
}

Token tokenAt(std::string_view sql, TokenKind kind, std::size_t begin, std::size_t end) {
  const std::size_t mark = kind == TokenKind::date ? 1 : 0;
  const std::string_view content = sql.substr(begin + mark, end - begin - 2 * mark);
  return {kind, Keyword::none, content, begin, end};
}

/// How far before the end the last literal is looked for: behind it stands an order, if anything.
constexpr std::size_t longestRest = 64;

bool mayEndName(char character) {
  return isAsciiLetter(character) || character == '_' || isAsciiDigit(character);
}

constexpr auto endsLiteral = [] {
  std::array<bool, 256> result{};
  for (const char character : std::string_view("0123456789#'"))
    result[static_cast<unsigned char>(character)] = true;
  return result;
}();

/// The place behind the last character before `end` that may end a literal; `from` without one.
/// Most are letters: four are looked at in a turn.
std::size_t literalEnd(std::string_view sql, std::size_t from, std::size_t end) {
  const auto ends = [&](std::size_t at) -> unsigned {
    return endsLiteral[static_cast<unsigned char>(sql[at])];
  };
  while (end >= from + 4 && !(ends(end - 1) | ends(end - 2) | ends(end - 3) | ends(end - 4)))
    end -= 4;
  while (end > from && !ends(end - 1)) --end;
  return end;
}

}  // namespace

std::optional<Value> literalValue(const Token& literal) {
  switch (literal.kind) {
    case TokenKind::number:
      return numberValue(literal.content);
    case TokenKind::text:
      return textValue(literal.content);
    case TokenKind::date:
      return dateValue(literal.content);
    default:
      return std::nullopt;
  }
}

bool splitLiterals(std::string_view sql, std::string& skeleton, std::vector<Value>& literals) {
  skeleton.clear();
  literals.clear();
  std::size_t copied = 0;
  Tokenizer tokens(sql);
  while (const std::optional<Token> literal = tokens.nextLiteral()) {
    skeleton.append(sql, copied, literal->begin - copied);
    copied = literal->end;
    if (literal->kind == TokenKind::end) return true;
    std::optional<Value> value = literalValue(*literal);
    if (!value) return false;
    literals.push_back(std::move(*value));
    skeleton += markOf(literal->kind);
  }
  return false;
}

std::optional<Token> lastLiteral(std::string_view sql) {
  const std::size_t from = sql.size() > longestRest ? sql.size() - longestRest : 1;
  for (std::size_t end = sql.size(); end > from;) {
    end = literalEnd(sql, from, end);
    if (end == from) break;
    const char last = sql[end - 1];
    if (last == '\'') return std::nullopt;
    std::size_t begin = end - 1;
    if (last == '#') {
      begin = sql.rfind('#', end - 2);
      if (begin == sql.npos) return std::nullopt;
      return tokenAt(sql, TokenKind::date, begin, end);
    }
    while (begin > 0 && isAsciiDigit(sql[begin - 1])) --begin;
    if (begin > 0 && !mayEndName(sql[begin - 1]))
      return tokenAt(sql, TokenKind::number, begin, end);
    end = begin;
  }
  return std::nullopt;
}

}  // namespace autonotify::host
