#include "binding/QtFormHost.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <algorithm>

#include "platform/controls/Menu.h"
#include "preview/PreviewWindow.h"
#include "preview/report_pdf.h"
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
  run(std::make_unique<FormWindow>(form, topWindow(), notes_, fieldNames_));
}

void QtFormHost::showReport(Report& report, HostObject*) {
  run(std::make_unique<PreviewWindow>(report, pdfOf(report), topWindow(), notes_));
}

void QtFormHost::run(std::unique_ptr<ModalWindow> window) {
  setPointer(Pointer::standard);
  ModalWindow& running = *windows_.emplace_back(std::move(window));
  try {
    running.runModally();
  } catch (...) {
    remove(running);
    throw;
  }
  remove(running);
}

void QtFormHost::remove(const ModalWindow& window) {
  std::erase_if(windows_, [&](const auto& held) { return held.get() == &window; });
  if (windows_.empty()) admitProgram();
}

void QtFormHost::formHidden(Form& form) {
  leave(form);
}

void QtFormHost::reportClosed(Report& report) {
  leave(report);
}

void QtFormHost::leave(const HostObject& model) {
  ModalWindow* window = windowOf(model);
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
  if (ModalWindow* window = windowOf(form)) window->drawNow();
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
  const bool isMet = topVisible() || QApplication::activeModalWidget();
  QApplication::processEvents(isMet ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
}

ModalWindow* QtFormHost::windowOf(const HostObject& model) {
  for (const auto& window : windows_) {
    if (&window->model() == &model) return window.get();
  }
  return nullptr;
}

ModalWindow* QtFormHost::topVisible() {
  const auto found = std::find_if(windows_.rbegin(), windows_.rend(),
                                  [](const auto& window) { return window->isVisible(); });
  return found == windows_.rend() ? nullptr : found->get();
}

QWidget* QtFormHost::topWindow() {
  ModalWindow* top = topVisible();
  return top ? top : &program_;
}

}  // namespace autonotify::desktop
