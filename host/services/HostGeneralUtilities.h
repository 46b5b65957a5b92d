#pragma once

#include "contract/GeneralUtilities.h"

namespace autonotify::host {

class HostGeneralUtilities : public GeneralUtilities {
 public:
  void put_errorClass(errorClass* value) override { errors_ = value; }
  bool isValueEmpty(const Value& value) override;
  Value textOrDefault(const Value& value, bool defaultFlag) override;
  /// No character means anything of its own in a label of this host.
  std::string toLabelText(const std::string& text) override { return text; }
  /// Digits pass, and every code below the blank: backspace, Enter, Tab, the clipboard's keys.
  int filterKeyPress(int keyCode) override;
  bool isWholeNumber(const std::string& text, int least, int most) override;
  void fillComboFromList(const std::vector<std::string>& list, ComboBox& combo,
                         bool clearFirst) override;
  void selectComboText(ComboBox& combo, const std::string& text, int reserved1,
                       int reserved2) override;

 private:
  errorClass* errors_ = nullptr;
};

}  // namespace autonotify::host
