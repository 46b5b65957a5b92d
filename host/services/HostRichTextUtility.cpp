#include "host/services/HostRichTextUtility.h"

#include <algorithm>

#include "platform/PlatformError.h"
#include "platform/controls/RichTextBox.h"
#include "platform/rich_text.h"
#include "platform/text.h"

namespace autonotify::host {

Value HostRichTextUtility::insertTextAt(RichTextBox* box, const std::string& text, int position) {
  if (!box) throw PlatformError(error_number::objectNotSet, "Object not set", className);
  box->insertTextAt(text, static_cast<std::size_t>(std::max(position, 0)));
  return true;
}

std::string HostRichTextUtility::toPlainText(const std::string& richText) {
  return replaceAll(replaceAll(plainTextOf(richText), "\r\n", "\n"), "\n", "\r\n");
}

void HostRichTextUtility::release() {
  errors_ = nullptr;
  locale_ = nullptr;
}

}  // namespace autonotify::host
