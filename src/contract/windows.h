#pragma once

#include <memory>
#include <string>

#include "contract/procedure.h"
#include "contract/references.h"
#include "platform/controls/Form.h"
#include "platform/controls/ItemList.h"

namespace autonotify {

// What windows do with their host. Each function without a `Step` is a statement, or part of one:
//
//   step.run(showMessage, "This notification has already been sent.", message_style::alreadySent);

/// Shows the message above the host's active window.
void showMessage(const std::string& text, int style);
/// Shows the message above a window or report of the component.
void showMessageAbove(HostObject* owner, const std::string& text, int style);
/// True when the person said yes.
bool askQuestion(const std::string& text, int style);
/// The same above a window of the component's own.
bool askQuestionAbove(Form& owner, const std::string& text, int style);

/// Shows the window above the host's active window until it is hidden or unloaded.
void showModal(Form& form);
/// The same for a window that may be on the screen: that one is brought to the front.
void showAgain(Form& form);
/// Gives the window the host's look.
void styleForm(Form& form);
void setPointer(Pointer pointer);

/// Lets the host handle its messages, `times` over.
void yieldToHost(Step& step, int times);

// A change of a list that the host could not show is shown when its statement is repeated; it is
// not made twice.

/// Appends an entry.
void addEntry(Step& step, ItemList& list, const std::string& text, int itemData = 0);
/// Chooses an entry, or none by -1. Requires: index < listCount().
void chooseEntry(Step& step, ItemList& list, int index);

/// Tells the styler when the control gains and when it loses the focus. `form` begins the tags of
/// the two procedures.
void markFocus(Control& control, const std::string& form);
void markFocusGained(Control& control, const std::string& form);
/// Hands the keys released in the control to the styler.
void passKeys(Control& control, const std::string& form);

/// Makes a window, lets `use(window)` run its initializer and read its results, and unloads it. A
/// window that could not be made is not used.
template <class Make, class Use>
void withWindow(Step& step, Make&& make, Use&& use) {
  decltype(make()) window;
  step.assign(window, make);
  if (!window) return;
  use(*window);
  window->unload();
}
template <class Window, class Use>
void withWindow(Step& step, Use&& use) {
  withWindow(step, std::make_unique<Window>, use);
}

}  // namespace autonotify
