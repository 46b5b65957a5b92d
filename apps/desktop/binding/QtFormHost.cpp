#include "binding/QtFormHost.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <algorithm>

#include "platform/controls/Menu.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

void fillMenu(QMenu& drawn, const Form& form, const Menu& menu,
              std::vector<std::pair<QAction*, Menu*>>& actions) {
  for (Control* control : form.controls()) {
    auto* entry = dynamic_cast<Menu*>(control);
    if (!entry || entry->container() != &menu || !entry->visible()) continue;
    if (entry->caption() == "-") {
      drawn.addSeparator();
      continue;
    }
    QAction* action = drawn.addAction(shown(entry->caption()));
    action->setEnabled(entry->enabled());
    action->setCheckable(entry->checked());
    action->setChecked(entry->checked());
    actions.emplace_back(action, entry);
  }
}

}  // namespace

void QtFormHost::showModal(Form& form, HostObject*) {
  setPointer(Pointer::standard);
  FormWindow& window = *windows_.emplace_back(std::make_unique<FormWindow>(form, topWindow()));
  try {
    window.runModally();
  } catch (...) {
    remove(window);
    throw;
  }
  remove(window);
}

void QtFormHost::remove(const FormWindow& window) {
  std::erase_if(windows_, [&](const auto& held) { return held.get() == &window; });
  if (windows_.empty()) admitProgram();
}

void QtFormHost::formHidden(Form& form) {
  FormWindow* window = windowOf(form);
  if (!window) return;
  window->leave();
  if (!topVisible()) barProgram();
}

void QtFormHost::barProgram() {
  if (!program_.isEnabled()) return;
  focus_ = program_.focusWidget();
  program_.setEnabled(false);
}

void QtFormHost::admitProgram() {
  if (program_.isEnabled()) return;
  program_.setEnabled(true);
  if (focus_) focus_->setFocus();
}

void QtFormHost::repaint(Form& form) {
  if (FormWindow* window = windowOf(form)) window->drawNow();
}

void QtFormHost::popUpMenu(Form& form, Menu& menu) {
  QMenu drawn(topWindow());
  std::vector<std::pair<QAction*, Menu*>> actions;
  fillMenu(drawn, form, menu, actions);
  const QAction* chosen = drawn.exec(QCursor::pos());
  for (const auto& [action, entry] : actions) {
    if (action == chosen) Person(form).click(*entry);
  }
}

void QtFormHost::setPointer(Pointer pointer) {
  if (pointer == Pointer::busy) {
    if (!QApplication::overrideCursor()) QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void QtFormHost::pumpMessages() {
  QApplication::processEvents(topVisible() ? QEventLoop::AllEvents
                                           : QEventLoop::ExcludeUserInputEvents);
}

FormWindow* QtFormHost::windowOf(const Form& form) {
  for (const auto& window : windows_) {
    if (&window->form() == &form) return window.get();
  }
  return nullptr;
}

FormWindow* QtFormHost::topVisible() {
  const auto found = std::find_if(windows_.rbegin(), windows_.rend(),
                                  [](const auto& window) { return window->isVisible(); });
  return found == windows_.rend() ? nullptr : found->get();
}

QWidget* QtFormHost::topWindow() {
  FormWindow* top = topVisible();
  return top ? top : &program_;
}

}  // namespace autonotify::desktop
