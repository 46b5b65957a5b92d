#pragma once

#include <string>

#include "platform/Value.h"

namespace autonotify {

/// True for null and for empty text.
inline bool isEmptyValue(const Value& value) {
  const auto* text = value.getIf<std::string>();
  return value.isNull() || (text && text->empty());
}

/// Empty for null.
inline std::string textOf(const Value& value) {
  return value.isNull() ? std::string{} : toText(value);
}

}  // namespace autonotify
