#include "MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "host/desk/databases.h"
#include "host/desk/work/due_list.h"
#include "mail_choice.h"
#include "outcome_texts.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr const char* geometryKey = "mainWindow";

enum Page { noDatabasePage, noTaskPage, taskPage };

}  // namespace

MainWindow::MainWindow(host::DeskOptions options, QWidget* parent)
    : QMainWindow(parent), options_(std::move(options)), forms_(*this), tasks_(new TaskPage(this)) {
  setWindowTitle(tr("Client Notifications"));
  forms_.setFieldNames([this] { return fieldNames(); });
  makeActions();
  pages_ = new QStackedWidget(this);
  pages_->addWidget(makeEmptyPage(tr("No database is open"),
                                  tr("Open your firm's database to see its tasks."),
                                  {action("openDatabase"), action("openServer")}));
  pages_->addWidget(makeEmptyPage(tr("No open task"), tr("The firm has nothing left to do."), {}));
  pages_->addWidget(tasks_);
  setCentralWidget(pages_);
  makeMenus();
  makeStatusBar();
  connect(tasks_, &TaskPage::failed, this, &MainWindow::tellFault);
  connect(tasks_, &TaskPage::read, this, &MainWindow::showUnreadable);
  connect(tasks_, &TaskPage::activated, this, [this] { perform(&MainWindow::openTask); });
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

bool MainWindow::openDatabase(const QString& place) {
  host::DeskOptions options = options_;
  const bool isFile = host::isFile(plain(place));
  options.database = plain(isFile ? QFileInfo(place).absoluteFilePath() : place);
  QString fault;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  try {
    auto desk = makeDesk(options, {errors_, messages_, forms_});
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

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(!isAtWork_);
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

void MainWindow::makeStatusBar() {
  unreadable_ = new QLabel(this);
  unreadable_->setObjectName("unreadable");
  unreadable_->setTextFormat(Qt::PlainText);
  // A long list of names is cut, and does not widen the window.
  unreadable_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  statusBar()->addWidget(unreadable_, 1);
  counts_ = new QLabel(this);
  statusBar()->addPermanentWidget(counts_);
}

void MainWindow::tellFault(const QString& message) {
  QMessageBox box(QMessageBox::Critical, tr("Client Notifications"), message, QMessageBox::Ok,
                  this);
  box.setTextFormat(Qt::PlainText);
  box.exec();
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

void MainWindow::showUnreadable() {
  unreadable_->setText(textOf(tasks_->unreadable()));
  unreadable_->setToolTip(detailsOf(tasks_->unreadable()));
}

}  // namespace autonotify::desktop
