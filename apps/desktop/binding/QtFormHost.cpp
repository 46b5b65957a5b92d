#include "binding/QtFormHost.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>

#include "platform/controls/Menu.h"
#include "text.h"

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
  windows_.push_back(std::make_unique<FormWindow>(form, topWindow()));
  // The busy pointer of a window that fills itself ends when it shows.
  windows_.back()->runModally();
  std::erase_if(windows_, [&](const auto& window) { return &window->form() == &form; });
}

void QtFormHost::formHidden(Form& form) {
  if (FormWindow* window = windowOf(form)) window->leave();
}

void QtFormHost::repaint(Form& form) {
  if (FormWindow* window = windowOf(form)) window->repaint();
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
  QApplication::processEvents();
}

FormWindow* QtFormHost::windowOf(const Form& form) {
  for (const auto& window : windows_) {
    if (&window->form() == &form) return window.get();
  }
  return nullptr;
}

QWidget* QtFormHost::topWindow() {
  return windows_.empty() ? &program_ : windows_.back().get();
}

}  // namespace autonotify::desktop
