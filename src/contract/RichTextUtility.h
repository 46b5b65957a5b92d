#pragma once

#include <string>

#include "platform/HostObject.h"
#include "platform/Value.h"

namespace autonotify {

class errorClass;
class LocaleReference;
class RichTextBox;

/// Helps with rich texts and the boxes that hold them; a new object for each use. The references
/// are not owned.
class RichTextUtility : public HostObject {
 public:
  static constexpr const char* className = "RichTextUtility";
  virtual void put_errorClass(errorClass* value) = 0;
  virtual void put_LocaleReference(LocaleReference* value) = 0;
  /// Puts plain text into the box at a place in characters, looking like what stands there, and the
  /// caret behind it. A place below 0 means the start, one behind the end the end. Gives True.
  /// Throws PlatformError (91) without a box.
  virtual Value insertTextAt(RichTextBox* box, const std::string& text, int position) = 0;
  /// The plain text of a rich text, lines ended by carriage return and line feed.
  virtual std::string toPlainText(const std::string& richText) = 0;
  /// Gives the references back.
  virtual void release() = 0;
};

}  // namespace autonotify
