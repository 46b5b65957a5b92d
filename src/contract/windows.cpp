#include "contract/windows.h"

namespace autonotify {
namespace {

/// An argument of each message that no host reads.
constexpr int reservedNumber = 101;

/// A procedure that shows the styler a control.
std::function<void()> styling(Control& control, const std::string& form, const char* event,
                              void (InterfaceStyler::*mark)(HostObject*)) {
  return [&control, mark, tag = "Morvane.exe-" + form + "-" + control.name() + event] {
    procedure(tag, [&](Step& step) { step.run([&] { (styler().*mark)(&control); }); });
  };
}

}  // namespace

void showMessage(const std::string& text, int style) {
  showMessage(text, style, locale().getActiveWindow());
}

void showMessage(const std::string& text, int style, HostObject* owner) {
  messageBox().showMessage(text, style, owner, 0, 0, reservedNumber, 0, {}, 0);
}

bool askQuestion(const std::string& text, int style) {
  return askQuestion(text, style, locale().getActiveWindow());
}

bool askQuestion(const std::string& text, int style, HostObject* owner) {
  return messageBox().askQuestion(text, style, owner, 0, 0, reservedNumber, 0, {}, 0) ==
         message_answer::yes;
}

void showModal(Form& form) {
  form.showModal(locale().getActiveWindow());
}

void yieldToHost(Step& step, int times) {
  for (int i = 0; i < times; ++i) step.run([] { formHost().pumpMessages(); });
}

void markFocusGained(Control& control, const std::string& form) {
  control.onGotFocus = styling(control, form, "_GotFocus", &InterfaceStyler::markFocusGained);
}

void markFocus(Control& control, const std::string& form) {
  markFocusGained(control, form);
  control.onLostFocus = styling(control, form, "_LostFocus", &InterfaceStyler::markFocusLost);
}

void passKeys(Control& control, const std::string& form) {
  control.onKeyUp = [&control, tag = "Morvane.exe-" + form + "-" + control.name() + "_KeyUp"](
                        int keyCode, int shift) {
    procedure(tag, [&](Step& step) {
      step.run([&] { styler().handleKeyUp(&control, keyCode, shift); });
    });
  };
}

}  // namespace autonotify
