#pragma once

#include <string>

#include "contract/Window.h"
#include "platform/controls/Button.h"
#include "platform/controls/RichTextBox.h"

namespace autonotify {

/// Shows what a template has become when it was tried.
class frmTestComment : public Window {
 public:
  frmTestComment();

  /// Shows the plain text until the person is done.
  void Initialize(const std::string& text);

  RichTextBox rtbClientNotes{*this, "rtbClientNotes"};
  Button cmdOk{*this, "cmdOk", "OK"};

 private:
  void close(Step& step);
};

}  // namespace autonotify
