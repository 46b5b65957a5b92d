#pragma once

#include <string>
#include <vector>

#include "contract/errorClass.h"
#include "platform/HostObject.h"
#include "platform/Value.h"

namespace autonotify {

class ComboBox;

/// Small helpers of the host for values and lists.
class GeneralUtilities : public HostObject {
 public:
  static constexpr const char* className = "GeneralUtilities";
  /// Not owned; null takes it away.
  virtual void put_errorClass(errorClass* value) = 0;
  /// True for null and for empty text.
  virtual bool isValueEmpty(const Value& value) = 0;
  /// The value made safe for text use: empty text for null; otherwise the value as it is.
  virtual Value textOrDefault(const Value& value, bool defaultFlag) = 0;
  /// The text as a label has to hold it in order to show just that.
  virtual std::string toLabelText(const std::string& text) = 0;
  /// The key as a numeric field accepts it, 0 for a key that it refuses.
  virtual int filterKeyPress(int keyCode) = 0;
  /// The text is a whole number from `least` to `most`; a `most` below `least` is no bound.
  virtual bool isWholeNumber(const std::string& text, int least, int most) = 0;
  /// Appends the texts to the combo box, in place of what it holds when `clearFirst` says so.
  virtual void fillComboFromList(const std::vector<std::string>& list, ComboBox& combo,
                                 bool clearFirst) = 0;
  /// Chooses the first entry that reads like the text, in any case and whatever blanks stand around
  /// it; without one nothing changes. The reserved numbers are -1.
  virtual void selectComboText(ComboBox& combo, const std::string& text, int reserved1,
                               int reserved2) = 0;
};

}  // namespace autonotify
