#include "editor/frmTestComment.h"

#include "contract/windows.h"

namespace autonotify {

frmTestComment::frmTestComment() : Window(formHost(), "frmTestComment", "Test Of The Template") {
  react(cmdOk.onClick, "cmdOk_Click", &frmTestComment::close);
}

void frmTestComment::Initialize(const std::string& text) {
  procedure(tag("Initialize"), [&](Step& step) {
    step.run([&] { rtbClientNotes.setText(text); });
    step.run(styleForm, *this);
    step.run(autonotify::showModal, *this);
  });
}

void frmTestComment::close(Step&) {
  unload();
}

}  // namespace autonotify
