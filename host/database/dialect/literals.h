#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/database/dialect/Tokenizer.h"
#include "platform/Value.h"

namespace autonotify::host {

/// What a literal stands for: a 32-bit integer, text or a date-time. Nothing for a number of
/// another kind, for text that holds a NUL byte or is no UTF-8, and for a date that is none.
std::optional<Value> literalValue(const Token& literal);

/// Takes a statement apart in one pass: into its text with a mark in place of each literal, and
/// what the literals stand for. Statements of one skeleton differ in their literals alone.
/// False, with nothing settled, when a literal has no value, or a character no place in the
/// dialect.
bool splitLiterals(std::string_view sql, std::string& skeleton, std::vector<Value>& literals);

/// The last literal of a statement that the dialect takes; nothing when that is a text, or stands
/// far before the end. In a text that the dialect refuses it may be anything.
std::optional<Token> lastLiteral(std::string_view sql);

}  // namespace autonotify::host
