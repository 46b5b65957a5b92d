#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QIcon>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QStatusBar>
#include <QToolBar>

#include "CallDialog.h"
#include "MainWindow.h"
#include "OptionsDialog.h"
#include "binding/FaultWatch.h"
#include "host/desk/databases.h"
#include "host/desk/work/claiming.h"
#include "host/desk/work/edit_templates.h"
#include "outcome_texts.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

/// Its commands are about the chosen task, and are offered at the task too.
constexpr const char* taskMenu = "&Task";
constexpr int filedMessageMs = 15000;

}  // namespace

std::span<const MainWindow::Command> MainWindow::commands() {
  using Self = MainWindow;
  const QKeySequence noKeys;
  static const Command rows[] = {
      {"openDatabase", "&File", "&Open Database...", QKeySequence::Open, "document-open", "",
       inMenu, &Self::always, &Self::chooseDatabase},
      {"openServer", "&File", "Open Ser&ver...", noKeys, "network-server", "", inMenu,
       &Self::always, &Self::chooseServer},
      {"quit", "&File", "&Quit", QKeySequence::Quit, "application-exit", "", inMenuBelowLine,
       &Self::always, &Self::quit},
      {"notifyNow", taskMenu, "&Notify Now...", Qt::CTRL | Qt::Key_N, "mail-send",
       "Choose how the client of the chosen task hears of it now", inMenuAndBar, &Self::hasTask,
       &Self::notifyNow},
      {"notifyAutomatically", taskMenu, "Notify &Automatically...",
       Qt::CTRL | Qt::SHIFT | Qt::Key_N, "appointment-new",
       "Choose how the client hears of the task on its notification date", inMenuAndBar,
       &Self::hasTask, &Self::notifyAutomatically},
      {"composeEmail", taskMenu, "&Email Now...", Qt::CTRL | Qt::Key_E, "mail-message-new",
       "Write to the client of the chosen task now", inMenuAndBar, &Self::hasTask,
       &Self::composeEmail},
      {"scheduleEmail", taskMenu, "&Schedule Email...", Qt::CTRL | Qt::Key_S, "view-calendar-day",
       "Have the client notified by email on the task's notification date", inMenuAndBar,
       &Self::canSchedule, &Self::scheduleEmail},
      {"editEmail", taskMenu, "E&dit Email...", Qt::CTRL | Qt::Key_D, "document-edit",
       "Change the email that waits for its date", inMenuAndBar, &Self::emailWaits,
       &Self::editEmail},
      {"callClient", taskMenu, "&Call Client...", Qt::CTRL | Qt::Key_T, "call-start",
       "Show the call that waits, and note how it went", inMenu, &Self::callWaits,
       &Self::callClient},
      {"blankFax", taskMenu, "Blank &Fax...", Qt::CTRL | Qt::SHIFT | Qt::Key_F, "channel-fax",
       "Write a fax to the client of the chosen task that is about no task", inMenuBelowLine,
       &Self::hasTask, &Self::writeBlankFax},
      {"blankLetter", taskMenu, "Blank &Letter...", Qt::CTRL | Qt::SHIFT | Qt::Key_L,
       "channel-letter", "Write a letter to the client of the chosen task that is about no task",
       inMenu, &Self::hasTask, &Self::writeBlankLetter},
      {"scheduleYear", taskMenu, "Schedule a &Year...", Qt::CTRL | Qt::Key_Y, "view-calendar-day",
       "Choose how the client of the chosen task hears of all tasks of a year", inMenuBelowLine,
       &Self::hasTask, &Self::scheduleYear},
      {"refresh", "&View", "&Refresh", QKeySequence::Refresh, "view-refresh", "", inMenuAndBar,
       &Self::hasDesk, &Self::refresh},
      {"findTask", "&View", "&Find Task", QKeySequence::Find, "edit-find", "", inMenu,
       &Self::always, &Self::findTask},
      {"editTemplates", "T&ools", "&Templates...", noKeys, "document-new-from-template",
       "Edit the texts that clients are notified with", inMenu, &Self::hasDesk,
       &Self::editTemplates},
      {"options", "T&ools", "&Options...", noKeys, "configure", "", inMenu, &Self::always,
       &Self::changeOptions},
      {"about", "&Help", "&About", noKeys, "help-about", "", inMenu, &Self::always,
       &Self::showAbout},
  };
  return rows;
}

void MainWindow::makeActions() {
  for (const Command& command : commands()) {
    auto* made = new QAction(QIcon::fromTheme(command.icon), tr(command.text), this);
    made->setObjectName(command.name);
    made->setShortcut(command.keys);
    if (*command.toolTip) made->setToolTip(tr(command.toolTip));
    connect(made, &QAction::triggered, this, [this, run = command.run] { perform(run); });
    actions_.push_back(made);
  }
}

void MainWindow::makeMenus() {
  QToolBar* bar = addToolBar(tr("Commands"));
  bar->setObjectName("commands");
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  QMenu* menu = nullptr;
  std::string title;
  for (const Command& command : commands()) {
    if (title != command.menu) menu = menuBar()->addMenu(tr(command.menu));
    title = command.menu;
    if (command.place == inMenuBelowLine) menu->addSeparator();
    menu->addAction(action(command.name));
    if (title == taskMenu)
      tasks_->addCommand(action(command.name), command.place == inMenuBelowLine);
    if (command.place == inMenuAndBar) bar->addAction(action(command.name));
  }
}

QAction* MainWindow::action(const char* name) const {
  return findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
}

void MainWindow::updateCommands() {
  for (std::size_t i = 0; i < actions_.size(); ++i) {
    actions_[i]->setEnabled((this->*commands()[i].canRun)());
  }
}

void MainWindow::perform(void (MainWindow::*run)()) {
  if (isAtWork_) return;
  isAtWork_ = true;
  const auto done = qScopeGuard([this] {
    isAtWork_ = false;
    // A window that found nothing to show may have left it busy.
    forms_.setPointer(Pointer::standard);
  });
  FaultWatch::guard([&] {
    try {
      (this->*run)();
      // An open file can be written to on and on after someone has deleted it.
      if (desk_ && host::isFile(options_.database) && !QFileInfo::exists(shown(options_.database)))
        tellFault(tr("The database file is no longer in its place: nothing that you do is kept."));
    } catch (const PlatformError& error) {
      tellFault(faultOf(error.description()));
    }
  });
}

bool MainWindow::emailWaits() const {
  const host::TaskLine* line = tasks_->chosen();
  return line && (line->pendingChannels & nt_Email);
}

bool MainWindow::callWaits() const {
  const host::TaskLine* line = tasks_->chosen();
  return line && (line->pendingChannels & nt_Phone);
}

void MainWindow::chooseDatabase() {
  const QString path = QFileDialog::getOpenFileName(
      this, tr("Open Database"), shown(options_.database), tr("Databases (*.db);;All files (*)"));
  if (!path.isEmpty()) openDatabase(path);
}

void MainWindow::chooseServer() {
  bool isChosen = false;
  const QString place =
      QInputDialog::getText(this, tr("Open Server"),
                            tr("The address of the database (its password comes from the password "
                               "file ~/.pgpass):"),
                            QLineEdit::Normal, "postgresql://user@server/firm", &isChosen);
  if (isChosen && !place.trimmed().isEmpty()) openDatabase(place.trimmed());
}

/// Behind the command: the window stays while one runs.
void MainWindow::quit() {
  QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

void MainWindow::compose(UseCase useCase, Notes notesOf) {
  const host::TaskLine* line = tasks_->chosen();
  if (!line) return;
  // What one left that ended in a fault is not of this one.
  desk_->takeFiled();
  forms_.setNotes(notesOf(*desk_, *line));
  const QString words = textOf(useCase(*desk_, line->task.id));
  if (!words.isEmpty()) tellFault(words);
  for (const host::FiledDocument& document : desk_->takeFiled())
    statusBar()->showMessage(tr("Filed as %1").arg(shown(document.path)), filedMessageMs);
  refresh();
}

// While the person is on the telephone no other desk calls the same client, and what one has noted
// before is known.
void MainWindow::callClient() {
  const host::TaskLine* line = tasks_->chosen();
  if (!line) return;
  const auto claimed = host::claimTask(*desk_, line->task.id);
  if (!claimed) return tellFault(textOf(claimed.refused()));
  const auto call = host::findWaitingCall(*desk_, line->task.id);
  if (!call) {
    tellFault(tr("No call of this task waits any more."));
    return refresh();
  }
  CallDialog dialog(*call, subjectOf(*line), this);
  if (dialog.exec() != QDialog::Accepted) return;
  const QString words =
      textOf(host::noteCall(*desk_, call->id, dialog.callResult(), dialog.note()));
  if (!words.isEmpty()) tellFault(words);
  refresh();
}

void MainWindow::editTemplates() {
  forms_.setNotes({});
  const host::TaskLine* line = tasks_->chosen();
  const auto refused = host::editTemplates(*desk_, line ? line->task.id : noId);
  if (refused) tellFault(textOf(*refused));
}

QSet<QString> MainWindow::fieldNames() {
  QSet<QString> names;
  if (!desk_) return names;
  for (const MergeFieldInfo& field : desk_->tools().listMergeFields(MergeUse::task)) {
    static const QRegularExpression name("\u00ab\\(?([^,\u00bb]+)");
    names.insert(name.match(shown(field.token)).captured(1));
  }
  return names;
}

void MainWindow::changeOptions() {
  OptionsDialog dialog(desk_.get(), this);
  if (dialog.exec() != QDialog::Accepted || !desk_) return;
  // A new desk takes up what has changed.
  openDatabase(shown(options_.database));
}

void MainWindow::refresh() {
  if (desk_) tasks_->reload();
  updateCounts();
}

void MainWindow::showAbout() {
  QMessageBox::about(
      this, tr("About Client Notifications"),
      tr("<h3>Client Notifications %1</h3><p>The notices that an accounting firm owes "
         "its clients: when, in which words, and sent.</p>")
          .arg(QApplication::applicationVersion()));
}

}  // namespace autonotify::desktop
