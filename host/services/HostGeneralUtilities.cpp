#include "host/services/HostGeneralUtilities.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/controls/ComboBox.h"
#include "platform/text.h"

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

bool HostGeneralUtilities::isWholeNumber(const std::string& text, int least, int most) {
  if (!isNumeric(text)) return false;
  const double number = toDouble(text);
  return number == std::floor(number) && number >= least && (most < least || number <= most);
}

void HostGeneralUtilities::fillComboFromList(const std::vector<std::string>& list, ComboBox& combo,
                                             bool clearFirst) {
  if (clearFirst) combo.clear();
  for (const std::string& text : list) combo.addItem(text);
}

void HostGeneralUtilities::selectComboText(ComboBox& combo, const std::string& text, int, int) {
  const auto& entries = combo.entries();
  const auto found = std::ranges::find_if(entries, [&](const ComboBox::Entry& entry) {
    return equalIgnoreCase(trim(entry.text), trim(text));
  });
  if (found != entries.end()) combo.setListIndex(static_cast<int>(found - entries.begin()));
}

}  // namespace autonotify::host
