#include "host/database/dialect/literals.h"

#include <charconv>
#include <cstdint>

#include "platform/date_time_text.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

std::optional<Value> numberValue(std::string_view digits) {
  std::int32_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, fault] = std::from_chars(digits.data(), end, number);
  if (stop != end || fault != std::errc()) return std::nullopt;
  return number;
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

}  // namespace autonotify::host
