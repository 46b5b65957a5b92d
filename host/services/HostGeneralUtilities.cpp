#include "host/services/HostGeneralUtilities.h"

#include <string>

namespace autonotify::host {

bool HostGeneralUtilities::isValueEmpty(const Value& value) {
  const auto* text = value.getIf<std::string>();
  return text ? text->empty() : value.isNull();
}

Value HostGeneralUtilities::textOrDefault(const Value& value, bool) {
  return value.isNull() ? Value(std::string()) : value;
}

int HostGeneralUtilities::filterKeyPress(int keyCode) {
  const bool isDigit = keyCode >= '0' && keyCode <= '9';
  const bool isControl = keyCode > 0 && keyCode < ' ';
  return isDigit || isControl ? keyCode : 0;
}

}  // namespace autonotify::host
