#pragma once

#include "contract/RichTextUtility.h"

namespace autonotify::host {

/// Works on the boxes themselves and shows nothing, so that neither reference is asked.
class HostRichTextUtility : public RichTextUtility {
 public:
  void put_errorClass(errorClass* value) override { errors_ = value; }
  void put_LocaleReference(LocaleReference* value) override { locale_ = value; }
  Value insertTextAt(RichTextBox* box, const std::string& text, int position) override;
  std::string toPlainText(const std::string& richText) override;
  void release() override;

 private:
  errorClass* errors_ = nullptr;
  LocaleReference* locale_ = nullptr;
};

}  // namespace autonotify::host
