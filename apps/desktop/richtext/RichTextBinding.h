#pragma once

#include "binding/Binding.h"
#include "platform/controls/RichTextBox.h"
#include "richtext/RichTextEditor.h"

namespace autonotify::desktop {

/// Ties a rich-text box to its editor.
class RichTextBinding : public BindingOf<RichTextBox, RichTextEditor> {
 public:
  RichTextBinding(Form& form, RichTextBox& control, RichTextEditor& editor);

 protected:
  void drawEnabled(bool isEnabled) override;
  QWidget& colored() override;
  void drawValue() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void passContent();
  void passSelection();

  QTextEdit& edit_;
  /// What the editor shows.
  std::optional<RichText> shown_;
  /// A key is on its way into the text.
  bool isKeyPassed_ = false;
};

}  // namespace autonotify::desktop
