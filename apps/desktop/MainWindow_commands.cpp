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
#include <QStyle>

#include "CallDialog.h"
#include "CommandBar.h"
#include "FirmDialog.h"
#include "MainWindow.h"
#include "OptionsDialog.h"
#include "binding/FaultWatch.h"
#include "contract/ProgressDialog.h"
#include "host/desk/databases.h"
#include "host/desk/day_text.h"
#include "host/desk/work/change_notification.h"
#include "host/desk/work/claiming.h"
#include "host/desk/work/client_card.h"
#include "host/desk/work/edit_templates.h"
#include "host/desk/work/open_notification_list.h"
#include "host/desk/work/recipient_names.h"
#include "outcome_texts.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr const char* fileMenu = QT_TRANSLATE_NOOP("autonotify::desktop::MainWindow", "&File");
/// Its commands are about the chosen task, and are offered at the task too.
constexpr const char* taskMenu = QT_TRANSLATE_NOOP("autonotify::desktop::MainWindow", "&Task");
constexpr const char* viewMenu = QT_TRANSLATE_NOOP("autonotify::desktop::MainWindow", "&View");
constexpr const char* toolsMenu = QT_TRANSLATE_NOOP("autonotify::desktop::MainWindow", "T&ools");
constexpr const char* helpMenu = QT_TRANSLATE_NOOP("autonotify::desktop::MainWindow", "&Help");

}  // namespace

std::span<const MainWindow::Command> MainWindow::commands() {
  using Self = MainWindow;
  const QKeySequence noKeys;
  static const Command rows[] = {
      {"openDatabase", fileMenu, QT_TR_NOOP("&Open Database..."), QKeySequence::Open,
       "document-open", "", inMenu, &Self::always, &Self::chooseDatabase},
      {"openServer", fileMenu, QT_TR_NOOP("Open Ser&ver..."), noKeys, "network-server", "", inMenu,
       &Self::always, &Self::chooseServer},
      {"printWorklist", fileMenu, QT_TR_NOOP("&Print Worklist..."), QKeySequence::Print,
       "document-print", QT_TR_NOOP("Print the letters, faxes and calls that are due as a list"),
       inMenuBelowLine, &Self::hasDesk, &Self::printWorklist},
      {"quit", fileMenu, QT_TR_NOOP("&Quit"), QKeySequence::Quit, "application-exit", "",
       inMenuBelowLine, &Self::always, &Self::quit},
      {"actOnRow", taskMenu, QT_TR_NOOP("Send, Print or &Call"), noKeys, "mail-send",
       QT_TR_NOOP("Do what the button of the chosen row says"), inMenu, &Self::hasRow,
       &Self::actOnRow},
      {"notifyNow", taskMenu, QT_TR_NOOP("&Notify Now..."), Qt::CTRL | Qt::Key_N, "mail-send",
       QT_TR_NOOP("Choose how the client of the chosen task hears of it now"), inMenuAndBar,
       &Self::hasTask, &Self::notifyNow},
      {"notifyAutomatically", taskMenu, QT_TR_NOOP("Notify &Automatically..."),
       Qt::CTRL | Qt::SHIFT | Qt::Key_N, "appointment-new",
       QT_TR_NOOP("Choose how the client hears of the task on its notification date"), inMenuAndBar,
       &Self::hasTask, &Self::notifyAutomatically},
      {"editRow", taskMenu, QT_TR_NOOP("Edit Notificat&ion..."), Qt::Key_F2, "document-edit",
       QT_TR_NOOP("Change the text and the address of the chosen row"), inMenuAndBar, &Self::hasRow,
       &Self::editRow},
      {"composeEmail", taskMenu, QT_TR_NOOP("&Email Now..."), Qt::CTRL | Qt::Key_E,
       "mail-message-new", QT_TR_NOOP("Write to the client of the chosen task now"), inMenu,
       &Self::hasTask, &Self::composeEmail},
      {"scheduleEmail", taskMenu, QT_TR_NOOP("&Schedule Email..."), Qt::CTRL | Qt::Key_S,
       "view-calendar-day",
       QT_TR_NOOP("Have the client notified by email on the task's notification date"), inMenu,
       &Self::canSchedule, &Self::scheduleEmail},
      {"editEmail", taskMenu, QT_TR_NOOP("E&dit Email..."), Qt::CTRL | Qt::Key_D, "document-edit",
       QT_TR_NOOP("Change the email that waits for its date"), inMenu, &Self::emailWaits,
       &Self::editEmail},
      {"callClient", taskMenu, QT_TR_NOOP("&Call Client..."), Qt::CTRL | Qt::Key_T, "call-start",
       QT_TR_NOOP("Show the call that waits, and note how it went"), inMenu, &Self::callWaits,
       &Self::callClient},
      {"blankFax", taskMenu, QT_TR_NOOP("Blank &Fax..."), Qt::CTRL | Qt::SHIFT | Qt::Key_F,
       "channel-fax",
       QT_TR_NOOP("Write a fax to the client of the chosen row that is about no task"),
       inMenuBelowLine, &Self::hasClient, &Self::writeBlankFax},
      {"blankLetter", taskMenu, QT_TR_NOOP("Blank &Letter..."), Qt::CTRL | Qt::SHIFT | Qt::Key_L,
       "channel-letter",
       QT_TR_NOOP("Write a letter to the client of the chosen row that is about no task"), inMenu,
       &Self::hasClient, &Self::writeBlankLetter},
      {"scheduleYear", taskMenu, QT_TR_NOOP("Schedule a &Year..."), Qt::CTRL | Qt::Key_Y,
       "view-calendar-day",
       QT_TR_NOOP("Choose how the client of the chosen task hears of all tasks of a year"),
       inMenuBelowLine, &Self::hasTask, &Self::scheduleYear},
      {"notifications", viewMenu, QT_TR_NOOP("&Notifications..."), Qt::CTRL | Qt::Key_L,
       "view-list-details",
       QT_TR_NOOP("Find, sort and send notifications, those that are due first"), inMenuAndBar,
       &Self::hasDesk, &Self::openNotifications},
      {"refresh", viewMenu, QT_TR_NOOP("&Refresh"), QKeySequence::Refresh, "view-refresh", "",
       inMenuAndBar, &Self::hasDesk, &Self::refresh},
      {"find", viewMenu, QT_TR_NOOP("&Find"), QKeySequence::Find, "edit-find", "", inMenu,
       &Self::hasDesk, &Self::find},
      {"nextPane", viewMenu, QT_TR_NOOP("Next &Pane"), Qt::Key_F6, "", "", inMenu, &Self::hasDesk,
       &Self::goToNextPane},
      {"editTemplates", toolsMenu, QT_TR_NOOP("&Templates..."), noKeys,
       "document-new-from-template", QT_TR_NOOP("Edit the texts that clients are notified with"),
       inMenu, &Self::hasDesk, &Self::editTemplates},
      {"firm", toolsMenu, QT_TR_NOOP("The &Firm..."), noKeys, "view-pim-contacts",
       QT_TR_NOOP("Change the firm's name, address, telephone and email"), inMenu, &Self::hasDesk,
       &Self::changeFirm},
      {"options", toolsMenu, QT_TR_NOOP("&Options..."), noKeys, "configure", "", inMenu,
       &Self::always, &Self::changeOptions},
      {"about", helpMenu, QT_TR_NOOP("&About"), noKeys, "help-about", "", inMenu, &Self::always,
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
  auto* bar = new CommandBar(tr("Commands"), this);
  addToolBar(bar);
  bar->setObjectName("commands");
  bar->setMovable(false);
  const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
  bar->setIconSize({icon, icon});
  QMenu* menu = nullptr;
  std::string title;
  for (const Command& command : commands()) {
    if (title != command.menu && command.menu == std::string(toolsMenu)) makeGoMenu();
    if (title != command.menu) menu = menuBar()->addMenu(tr(command.menu));
    title = command.menu;
    if (command.place == inMenuBelowLine) menu->addSeparator();
    menu->addAction(action(command.name));
    if (title == taskMenu) {
      tasks_->addCommand(action(command.name), command.place == inMenuBelowLine);
      day_->addCommand(action(command.name), command.place == inMenuBelowLine);
    }
    if (command.canRun == &MainWindow::hasClient) clients_->addCommand(action(command.name));
    if (command.place == inMenuAndBar) bar->addAction(action(command.name));
  }
  bar->addWidget(makeFind());
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
  const host::TaskLine* line = chosen();
  return line && (line->pendingChannels & nt_Email);
}

bool MainWindow::callWaits() const {
  const host::TaskLine* line = chosen();
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

void MainWindow::notify(const UseCase& useCase, Notes notesOf) {
  const host::TaskLine* line = chosen();
  if (!line) return;
  setSubject(notesOf(*desk_, *line), line->task.dueDate);
  const Id task = line->task.id;
  compose([&] { return useCase(*desk_, task); });
  showSent(task);
  refresh();
}

void MainWindow::scheduleYear() {
  const auto offer = [this](host::AskYear ask) { askYear_ = std::move(ask); };
  notify([&](host::Desk& desk, Id task) { return host::chooseYear(desk, task, offer); },
         clientNotes);
  askYear_ = nullptr;
}

void MainWindow::write(host::WriteToClient useCase) {
  const host::TaskLine* line = chosen();
  const auto client =
      line ? std::optional(host::clientOf(*desk_, line->task)) : clients_->chosenClient();
  if (!client) return;
  setSubject(clientNotes(*desk_, *client));
  compose([&] { return useCase(*desk_, *client); });
  refresh();
}

void MainWindow::compose(const std::function<host::Outcome<host::Composed>()>& useCase) {
  // What one left that ended in a fault is not of this one.
  desk_->takeFiled();
  desk_->takeSent();
  const QString words = textOf(useCase());
  if (!words.isEmpty()) tellFault(words);
  showFiled();
}

void MainWindow::setSubject(WindowNotes notes, DateTime due) {
  forms_.setNotes(std::move(notes));
  due_ = due;
}

ComposerDays MainWindow::composerDays() const {
  return {desk_->today(), due_};
}

QString MainWindow::dateQuestion(const Form& form) const {
  if (const auto outlook = host::readComposerOutlook(form))
    return desktop::dateQuestion(*outlook, composerDays());
  if (form.name() != host::yearForm || !askYear_) return {};
  // What refuses it the pass meets too, and tells.
  const auto year = askYear_(form);
  return year ? yearQuestion(*desk_, *year) : QString();
}

AskNotes MainWindow::notesFor(const Form& form) const {
  if (!host::readComposerOutlook(form)) return nullptr;
  return [this, &form] {
    const auto outlook = host::readComposerOutlook(form);
    return outlook ? composerNotes(*outlook, composerDays()) : WindowNotes();
  };
}

void MainWindow::showSent(Id task) {
  for (const Id id : desk_->takeSent()) {
    const auto sent = host::findNotification(*desk_, id);
    if (!sent) continue;
    statusBar()->showMessage(tr("Sent to %1").arg(shown(addressOf(*sent))), messageMs);
    const auto waiting = host::findWaitingEmail(*desk_, task);
    if (!waiting) continue;
    const QString question =
        tr("An email about this task still waits for %1. Do you want to cancel that one?")
            .arg(shown(host::dayText(waiting->date)));
    const int answer = messages_.askQuestion(plain(question), message_style::alreadySent, nullptr,
                                             0, 0, 0, 0, {}, 0);
    if (answer != message_answer::yes) continue;
    const auto cancelled = host::cancelNotification(*desk_, waiting->id);
    if (!cancelled) tellFault(textOf(cancelled.refused()));
  }
}

void MainWindow::showFiled() {
  for (const host::FiledDocument& document : desk_->takeFiled())
    statusBar()->showMessage(tr("Filed as %1").arg(shown(document.path)), messageMs);
}

void MainWindow::openNotifications() {
  desk_->takeFiled();
  setSubject({});
  const auto tell = [this](const host::RefusedRow& row) {
    messages_.showMessage(plain(textOf(row)), message_style::warning, nullptr, 0, 0, 0, 0, {}, 0);
  };
  const auto name = [this](const host::Notification& row) {
    const host::TaskLine line = subjectLine(*desk_, row);
    setSubject(taskNotes(*desk_, line), line.task.dueDate);
  };
  host::openNotificationList(*desk_, {name, tell});
  showFiled();
  refresh();
}

void MainWindow::callClient() {
  const host::TaskLine* line = chosen();
  if (!line) return;
  const auto claimed = host::claimTask(*desk_, line->task.id);
  if (!claimed) return tellFault(textOf(claimed.refused()));
  const auto waiting = host::findWaitingCall(*desk_, line->task.id);
  if (waiting) return call(*waiting, subjectOf(*line));
  tellFault(tr("No call of this task waits any more."));
  refresh();
}

void MainWindow::call(const host::Notification& row, const QString& subject) {
  CallDialog dialog(row, subject, this);
  if (dialog.exec() != QDialog::Accepted) return;
  const QString words = textOf(host::noteCall(*desk_, row.id, dialog.callResult(), dialog.note()));
  if (!words.isEmpty()) tellFault(words);
  refresh();
}

void MainWindow::editTemplates() {
  setSubject({});
  const host::TaskLine* line = chosen();
  const auto refused = host::editTemplates(*desk_, line ? line->task.id : noId);
  if (refused) tellFault(textOf(*refused));
}

std::shared_ptr<void> MainWindow::claimFor(const Form& form) {
  if (form.name() != "frmTaskAutoNotification") return nullptr;
  auto claim = host::claimTemplates(*desk_);
  if (claim) return *std::move(claim);
  const QString words = tr("Another desk is changing the templates. Try again when it is done.");
  messages_.showMessage(plain(words), message_style::warning, nullptr, 0, 0, 0, 0, {}, 0);
  throw PlatformError(ProgressDialog::cancelled, "The templates are claimed by another desk");
}

// The addresses alone will do where the names cannot be read.
std::map<QString, RecipientName> MainWindow::recipientNames(const QStringList& addresses) {
  std::map<QString, RecipientName> names;
  std::vector<std::string> sought;
  sought.reserve(static_cast<std::size_t>(addresses.size()));
  for (const QString& address : addresses) sought.push_back(plain(address));
  try {
    for (const host::NamedAddress& each : host::nameAddresses(*desk_, sought))
      if (!each.name.empty()) names[shown(each.address)] = {shown(each.name), each.isOfFirm};
  } catch (const PlatformError&) {
  }
  return names;
}

FieldNames MainWindow::fieldNames() {
  FieldNames names;
  if (!desk_) return names;
  for (const MergeFieldInfo& field : desk_->tools().listMergeFields(MergeUse::task)) {
    static const QRegularExpression token("\u00ab(\\(?)([^,\u00bb]+)");
    const QRegularExpressionMatch match = token.match(shown(field.token));
    names.all.insert(match.captured(2));
    if (match.capturedLength(1) > 0) names.dates.insert(match.captured(2));
  }
  return names;
}

void MainWindow::changeOptions() {
  OptionsDialog dialog(desk_.get(), this);
  if (dialog.exec() != QDialog::Accepted || !desk_) return;
  // A new desk takes up what has changed.
  openDatabase(shown(options_.database));
}

void MainWindow::changeFirm() {
  if (FirmDialog(*desk_, this).exec() == QDialog::Accepted) openDatabase(shown(options_.database));
}

void MainWindow::refresh() {
  tasksAreOld_ = clientsAreOld_ = true;
  readPage();
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
