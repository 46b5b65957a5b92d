#include "binding/QtFormHost.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QMessageBox>
#include <QTableView>
#include <algorithm>

#include "GridOptionsDialog.h"
#include "binding/GridLook.h"
#include "platform/controls/Grid.h"
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

/// At the pointer; where a key has called for it and the pointer is elsewhere, below the current
/// cell.
QPoint placeOfMenu(const QWidget& window) {
  const auto* view = qobject_cast<QAbstractItemView*>(window.focusWidget());
  if (!view || view->rect().contains(view->mapFromGlobal(QCursor::pos()))) return QCursor::pos();
  return view->viewport()->mapToGlobal(view->visualRect(view->currentIndex()).bottomLeft());
}

/// The rows of a grid, as a report that is shown and printed.
struct GridReport : Report {
  GridReport(FormHost& host, const Grid& rows, const GridDialog& dialog)
      : Report(host, rows.name(), dialog.title), grid(rows), printed(dialog) {}

  const Grid& grid;
  const GridDialog& printed;
};

QString propertiesOf(const Grid& grid) {
  QStringList sorted;
  for (const GridSortKey& key : grid.sortKeys())
    if (key.column >= 0) sorted << shown(grid.get_ColHeading(key.column));
  const QString order = sorted.isEmpty() ? QObject::tr("They stand as they were loaded.")
                                         : QObject::tr("Sorted by: %1.").arg(sorted.join(", "));
  return QObject::tr("Rows: %L1.").arg(grid.get_Rows()) + "\n" + order;
}

}  // namespace

void QtFormHost::addForm(Form& form) {
  if (holding_) held_[&form] = holding_(form);
  FormHost::addForm(form);
}

void QtFormHost::removeForm(Form& form) {
  FormHost::removeForm(form);
  held_.erase(&form);
}

void QtFormHost::showModal(Form& form, HostObject*) {
  auto window = std::make_unique<FormWindow>(form, topWindow(), notes_, fieldNames_);
  if (guarding_) window->setGuard(guarding_(form));
  if (recipients_) nameRecipients(*window, recipients_);
  if (const AskNotes notes = following_ ? following_(form) : nullptr) window->follow(notes);
  for (auto* table : window->findChildren<QTableView*>())
    if (today_) table->setProperty(todayProperty, today_());
  run(std::move(window));
}

void QtFormHost::showReport(Report& report, HostObject*) {
  const auto* list = dynamic_cast<const GridReport*>(&report);
  const QByteArray pdf = list ? pdfOf(list->grid, list->printed) : pdfOf(report);
  const WindowNotes notes = list ? WindowNotes() : notes_;
  auto window = std::make_unique<PreviewWindow>(report, pdf, topWindow(), notes);
  if (list && list->printed.asksFirst) window->askPrinterFirst();
  run(std::move(window));
}

// A preview shows what is printed, and prints it. Nothing can be changed in the properties.
bool QtFormHost::showGridDialog(Grid& grid, const GridDialog& dialog) {
  setPointer(Pointer::standard);
  switch (dialog.kind) {
    case GridDialog::Kind::settings:
      return editGridOptions(grid);
    case GridDialog::Kind::properties:
      QMessageBox::information(topWindow(), topWindow()->windowTitle(), propertiesOf(grid));
      return true;
    default:
      break;
  }
  GridReport(*this, grid, dialog).showModal(nullptr);
  return false;
}

bool QtFormHost::editGridOptions(const Grid& grid) {
  return desktop::editGridOptions(grid, topWindow());
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
  const QAction* chosen = drawn.exec(placeOfMenu(*topWindow()));
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
  pump_.step(isMet ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
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
