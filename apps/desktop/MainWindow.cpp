#include "MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <utility>

#include "MailProgramSender.h"
#include "OptionsDialog.h"
#include "WaitingSender.h"
#include "binding/FaultWatch.h"
#include "host/desk/databases.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr const char* geometryKey = "mainWindow";

enum Page { noDatabasePage, noTaskPage, taskPage };

}  // namespace

MainWindow::MainWindow(host::DeskOptions options, QWidget* parent)
    : QMainWindow(parent), options_(std::move(options)), forms_(*this), tasks_(new TaskPage(this)) {
  setWindowTitle(tr("Client Notifications"));
  makeActions();
  pages_ = new QStackedWidget(this);
  pages_->addWidget(makeEmptyPage(tr("No database is open"),
                                  tr("Open your firm's database to see its tasks."),
                                  {open_, openServer_}));
  pages_->addWidget(makeEmptyPage(tr("No open task"), tr("The firm has nothing left to do."), {}));
  pages_->addWidget(tasks_);
  setCentralWidget(pages_);
  makeMenus();
  counts_ = new QLabel(this);
  statusBar()->addPermanentWidget(counts_);
  connect(tasks_, &TaskPage::failed, this, &MainWindow::tellFault);
  connect(tasks_, &TaskPage::activated, this, &MainWindow::openTask);
  connect(tasks_, &TaskPage::changed, this, [this] {
    updatePage();
    updateCommands();
  });
  resize(1000, 640);
  restoreGeometry(QSettings().value(geometryKey).toByteArray());
  if (!options_.database.empty()) openDatabase(shown(options_.database));
  updatePage();
  updateCommands();
}

MainWindow::~MainWindow() {
  QSettings().setValue(geometryKey, saveGeometry());
  tasks_->setDesk(nullptr);
}

std::unique_ptr<host::Desk> MainWindow::makeDesk(const host::DeskOptions& options) {
  host::DeskOptions all = options;
  if (all.outbox.empty()) all.outbox = chosenOutbox();
  all.mailServer = chosenMailServer();
  if (all.mailServer) all.mailServer->whileWaiting = WaitingSender::paintWindows;
  auto desk = std::make_unique<host::Desk>(all, host::DeskDialogs{errors_, messages_, forms_});
  if (mailProgramIsChosen()) {
    desk->classes().registerClass<MailProgramSender>();
  } else {
    WaitingSender::registerAt(*desk);
  }
  return desk;
}

bool MainWindow::openDatabase(const QString& place) {
  host::DeskOptions options = options_;
  const bool isFile = host::isFile(plain(place));
  options.database = plain(isFile ? QFileInfo(place).absoluteFilePath() : place);
  QString fault;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  try {
    auto desk = makeDesk(options);
    tasks_->setDesk(desk.get());
    desk_ = std::move(desk);
  } catch (const PlatformError& error) {
    fault = faultOf(error.description());
  } catch (const std::exception& error) {
    fault = shown(error.what());
  }
  QApplication::restoreOverrideCursor();
  const QString name = shown(host::placeShown(plain(place)));
  if (!fault.isEmpty()) {
    tellFault(tr("%1 cannot be opened.\n\n%2").arg(name, fault));
    return false;
  }
  options_.database = options.database;
  QSettings().setValue(lastDatabaseKey, shown(options.database));
  setWindowTitle(
      tr("%1 - Client Notifications").arg(isFile ? QFileInfo(place).completeBaseName() : name));
  updateCounts();
  return true;
}

QAction* MainWindow::addCommand(const QString& text, const QKeySequence& keys,
                                void (MainWindow::*run)()) {
  auto* action = new QAction(text, this);
  action->setShortcut(keys);
  connect(action, &QAction::triggered, this, [this, run] { perform(run); });
  return action;
}

void MainWindow::perform(void (MainWindow::*run)()) {
  if (isAtWork_) return;
  isAtWork_ = true;
  const auto done = qScopeGuard([this] { isAtWork_ = false; });
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

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(!isAtWork_);
}

void MainWindow::makeActions() {
  open_ = addCommand(tr("&Open Database..."), QKeySequence::Open, &MainWindow::chooseDatabase);
  openServer_ = addCommand(tr("Open Ser&ver..."), {}, &MainWindow::chooseServer);
  compose_ = addCommand(tr("&Email Now..."), tr("Ctrl+E"), &MainWindow::composeEmail);
  compose_->setToolTip(tr("Write to the client of the chosen task now"));
  schedule_ = addCommand(tr("&Schedule Email..."), tr("Ctrl+S"), &MainWindow::scheduleEmail);
  schedule_->setObjectName("scheduleEmail");
  schedule_->setToolTip(tr("Have the client notified by email on the task's notification date"));
  edit_ = addCommand(tr("E&dit Email..."), tr("Ctrl+D"), &MainWindow::editEmail);
  edit_->setToolTip(tr("Change the email that waits for its date"));
  refresh_ = addCommand(tr("&Refresh"), QKeySequence::Refresh, &MainWindow::refresh);
}

void MainWindow::makeMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  file->addActions({open_, openServer_});
  file->addSeparator();
  QAction* quit = file->addAction(tr("&Quit"), this, &QWidget::close);
  quit->setShortcut(QKeySequence::Quit);
  QMenu* task = menuBar()->addMenu(tr("&Task"));
  task->addActions({compose_, schedule_, edit_});
  QMenu* view = menuBar()->addMenu(tr("&View"));
  view->addAction(refresh_);
  view->addAction(tr("&Find Task"), tasks_, &TaskPage::focusFilter)
      ->setShortcut(QKeySequence::Find);
  menuBar()
      ->addMenu(tr("T&ools"))
      ->addAction(tr("&Options..."), this, [this] { perform(&MainWindow::changeOptions); })
      ->setObjectName("options");
  menuBar()->addMenu(tr("&Help"))->addAction(tr("&About"), this, &MainWindow::showAbout);
  QToolBar* bar = addToolBar(tr("Commands"));
  bar->setObjectName("commands");
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
  bar->addActions({compose_, schedule_, edit_, refresh_});
}

QWidget* MainWindow::makeEmptyPage(const QString& title, const QString& hint,
                                   const QList<QAction*>& actions) {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  layout->addStretch();
  for (const QString& text : {QString("<h2>%1</h2>").arg(title), hint}) {
    auto* label = new QLabel(text, page);
    label->setAlignment(Qt::AlignCenter);
    layout->addWidget(label);
  }
  for (QAction* action : actions) {
    auto* button = new QPushButton(action->text(), page);
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    layout->addWidget(button, 0, Qt::AlignCenter);
  }
  layout->addStretch();
  return page;
}

void MainWindow::chooseDatabase() {
  const QString path = QFileDialog::getOpenFileName(
      this, tr("Open Database"), shown(options_.database), tr("Databases (*.db);;All files (*)"));
  if (!path.isEmpty()) openDatabase(path);
}

template <class Act>
void MainWindow::whileClaimed(host::WorkItem item, Id id, Act&& act) {
  if (const auto claim = desk_->claims().take(item, id)) {
    act();
  } else {
    tellFault(tr("Another desk is at work on it. Try again in a moment."));
  }
  refresh();
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

void MainWindow::composeEmail() {
  const host::TaskLine* line = tasks_->chosen();
  if (!line) return;
  // The email is a row of the database while it is written: nobody else may send that.
  const Id task = line->task.id;
  whileClaimed(host::WorkItem::task, task, [&] {
    desk_->control().cls_openSendNotificationWizardEmailForm_InitializeAutoNotifyNow(
        Tasks, remittanceNotification, noId, task);
  });
}

void MainWindow::scheduleEmail() {
  const host::TaskLine* line = tasks_->chosen();
  if (!line) return;
  const Id task = line->task.id;
  whileClaimed(host::WorkItem::task, task, [&] {
    // Another desk may have scheduled one since the list was read.
    if (host::findPendingNotification(*desk_, task, nt_Email) != noId)
      return tellFault(tr("The email is scheduled already."));
    desk_->control().cls_openSendNotificationWizardEmailForm_InitializeNewAutoNotify(
        Tasks, remittanceNotification, noId, task);
    if (!desk_->control().get_cancelFlag() &&
        host::findPendingNotification(*desk_, task, nt_Email) == noId)
      tellLoss();
  });
}

void MainWindow::editEmail() {
  const host::TaskLine* line = tasks_->chosen();
  if (!line) return;
  const Id row = host::findPendingNotification(*desk_, line->task.id, nt_Email);
  if (row == noId) return refresh();
  whileClaimed(host::WorkItem::notification, row, [&] {
    if (desk_->tools().editEmailNotification(row) && !host::findNotification(*desk_, row))
      tellLoss();
  });
}

void MainWindow::openTask() {
  (edit_->isEnabled() ? edit_ : schedule_)->trigger();
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

/// Programs that know nothing of claims may take an email away.
void MainWindow::tellLoss() {
  tellFault(tr("The email was deleted by someone else meanwhile. What you wrote is lost."));
}

void MainWindow::tellFault(const QString& message) {
  QMessageBox box(QMessageBox::Critical, tr("Client Notifications"), message, QMessageBox::Ok,
                  this);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

void MainWindow::updateCommands() {
  const host::TaskLine* line = tasks_->chosen();
  const bool isScheduled = line && (line->pendingChannels & nt_Email);
  compose_->setEnabled(line != nullptr);
  schedule_->setEnabled(line && !isScheduled);
  edit_->setEnabled(isScheduled);
  refresh_->setEnabled(desk_ != nullptr);
}

void MainWindow::updatePage() {
  pages_->setCurrentIndex(tasks_->hasTasks() ? taskPage : desk_ ? noTaskPage : noDatabasePage);
}

void MainWindow::updateCounts() {
  countsAreOld_ = true;
  update();
}

void MainWindow::paintEvent(QPaintEvent* event) {
  QMainWindow::paintEvent(event);
  // Counting takes longer the more there is: the tasks are seen first.
  if (std::exchange(countsAreOld_, false)) QTimer::singleShot(0, this, &MainWindow::showCounts);
}

void MainWindow::showCounts() {
  if (!desk_) return;
  try {
    const auto tasks = host::countTasks(*desk_, {});
    const auto due = host::countDueNotifications(*desk_);
    counts_->setText(tasks == 1 ? tr("1 open task") : tr("%L1 open tasks").arg(tasks));
    tasks_->showDue(due);
  } catch (const PlatformError& error) {
    counts_->setText(faultOf(error.description()));
  }
}

}  // namespace autonotify::desktop
