#include "contract/windows.h"

#include "contract/tags.h"

namespace autonotify {
namespace {

/// An argument of each message that no host reads.
constexpr int reservedNumber = 101;

/// A procedure that shows the styler a control.
template <class... Given>
auto styling(std::string tag, Control& control,
             void (InterfaceStyler::*show)(HostObject*, Given...)) {
  return [tag = std::move(tag), &control, show](Given... given) {
    procedure(tag, [&](Step& step) { step.run([&] { (styler().*show)(&control, given...); }); });
  };
}

bool ask(HostObject* owner, const std::string& text, int style) {
  return messageBox().askQuestion(text, style, owner, 0, 0, reservedNumber, 0, {}, 0) ==
         message_answer::yes;
}

}  // namespace

void showMessage(const std::string& text, int style) {
  showMessageAbove(locale().getActiveWindow(), text, style);
}

void showMessageAbove(HostObject* owner, const std::string& text, int style) {
  messageBox().showMessage(text, style, owner, 0, 0, reservedNumber, 0, {}, 0);
}

bool askQuestion(const std::string& text, int style) {
  return ask(locale().getActiveWindow(), text, style);
}

bool askQuestionAbove(Form& owner, const std::string& text, int style) {
  return ask(&owner, text, style);
}

void showModal(Form& form) {
  form.showModal(locale().getActiveWindow());
}

void showAgain(Form& form) {
  if (!form.isVisible()) return showModal(form);
  formHost().bringToFront(form, locale().getActiveWindow());
}

void styleForm(Form& form) {
  styler().styleForm(&form);
}

void setPointer(Pointer pointer) {
  formHost().setPointer(pointer);
}

void yieldToHost(Step& step, int times) {
  for (int i = 0; i < times; ++i) step.run([] { formHost().pumpMessages(); });
}

void addEntry(Step& step, ItemList& list, const std::string& text, int itemData) {
  const int place = list.listCount();
  step.run([&] { list.listCount() == place ? list.addItem(text, itemData) : list.refresh(); });
}

void chooseEntry(Step& step, ItemList& list, int index) {
  step.run([&] { list.listIndex() == index ? list.refresh() : list.setListIndex(index); });
}

void markFocusGained(Control& control, const std::string& form) {
  control.onGotFocus = styling(windowTag(form, control.name() + "_GotFocus"), control,
                               &InterfaceStyler::markFocusGained);
}

void markFocus(Control& control, const std::string& form) {
  markFocusGained(control, form);
  control.onLostFocus = styling(windowTag(form, control.name() + "_LostFocus"), control,
                                &InterfaceStyler::markFocusLost);
}

void passKeys(Control& control, const std::string& form) {
  control.onKeyUp =
      styling(windowTag(form, control.name() + "_KeyUp"), control, &InterfaceStyler::handleKeyUp);
}

}  // namespace autonotify
