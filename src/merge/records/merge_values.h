#pragma once

#include <string>
#include <utility>

#include "platform/Value.h"

namespace autonotify {

/// True for null and for empty text.
inline bool isEmptyValue(const Value& value) {
  const auto* text = value.getIf<std::string>();
  return value.isNull() || (text && text->empty());
}

/// As toText; a text is moved out.
inline std::string takeText(Value&& value) {
  auto* text = value.getIf<std::string>();
  return text ? std::move(*text) : toText(value);
}

/// Empty for null.
inline std::string textOf(const Value& value) {
  return value.isNull() ? std::string{} : toText(value);
}

}  // namespace autonotify
