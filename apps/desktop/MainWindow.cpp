#include "MainWindow.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSessionManager>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTime>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "binding/DateBinding.h"
#include "binding/FittingArea.h"
#include "host/desk/databases.h"
#include "host/desk/rows/ScheduleKind.h"
#include "host/desk/work/due_list.h"
#include "host/desk/work/firm_holidays.h"
#include "host/desk/work/guard_composer.h"
#include "host/desk/work/people_list.h"
#include "mail_choice.h"
#include "outcome_texts.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr const char* geometryKey = "mainWindow";

enum Page { noDatabasePage, noTaskPage, taskPage, dayPage, clientsPage };

constexpr QSize firstSize(1366, 768);
constexpr int marginOfWindow = 8;

/// As many as the editor of templates offers.
std::size_t countTemplates(host::Desk& desk) {
  const auto kinds = host::readScheduleKinds(desk).rows;
  return static_cast<std::size_t>(
      std::ranges::count_if(kinds, [](const auto& kind) { return !kind.isFamily(); }));
}

QString userAndFirm(host::Desk& desk) {
  QStringList names{shown(desk.clients().getUserNameFromID(desk.locale().getCurrentUserID())),
                    shown(desk.clients().getCompanyNameFromClientID(clientDataOfFirm))};
  names.removeAll(QString());
  return names.join("  \u00b7  ") + "  \u00b7";
}

}  // namespace

MainWindow::MainWindow(host::DeskOptions options, QWidget* parent)
    : QMainWindow(parent),
      options_(std::move(options)),
      forms_(*this),
      tasks_(new TaskPage(this)),
      day_(new DayPage(this)),
      clients_(new ClientsPage(this)),
      navigation_(new Navigation(this)) {
  setWindowTitle(tr("Client Notifications"));
  forms_.setFieldNames([this] { return fieldNames(); });
  forms_.setRecipients([this](const QStringList& list) { return recipientNames(list); });
  forms_.setToday([this] { return desk_ ? qtDate(desk_->today()) : QDate::currentDate(); });
  forms_.setHolding([this](const Form& form) { return claimFor(form); });
  forms_.setGuarding([this](Form& form) {
    return host::guardComposer(form, messages_,
                               [this](const Form& each) { return plain(dateQuestion(each)); });
  });
  forms_.setFollowing([this](const Form& form) { return notesFor(form); });
  makeActions();
  makePages();
  makeMenus();
  makeStatusBar();
  connect(qApp, &QGuiApplication::commitDataRequest, this, &MainWindow::endSession,
          Qt::DirectConnection);
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          [this] {
            if (desk_) desk_->database().rest();
          });
  resize(firstSize.boundedTo(FittingArea::roomFor(*this)));
  restoreGeometry(QSettings().value(geometryKey).toByteArray());
  const std::string database = options_.database;
  if (database.empty() || !openDatabase(shown(database))) updatePage();
  updateCommands();
}

MainWindow::~MainWindow() {
  QSettings().setValue(geometryKey, saveGeometry());
  clients_->clear();
  day_->setDesk(nullptr);
  tasks_->setDesk(nullptr);
}

void MainWindow::makePages() {
  pages_ = new QStackedWidget(this);
  pages_->addWidget(makeEmptyPage(tr("No database is open"),
                                  tr("Open your firm's database to see its tasks."),
                                  {action("openDatabase"), action("openServer")}));
  pages_->addWidget(makeEmptyPage(tr("No open task"), tr("The firm has nothing left to do."), {}));
  pages_->addWidget(tasks_);
  pages_->addWidget(day_);
  pages_->addWidget(clients_);
  auto* centre = new QWidget(this);
  auto* layout = new QHBoxLayout(centre);
  layout->setContentsMargins(marginOfWindow, marginOfWindow, 0, 0);
  layout->addWidget(navigation_);
  layout->addWidget(pages_, 1);
  setCentralWidget(centre);
  connect(navigation_, &Navigation::chosen, this, &MainWindow::goTo);
  connect(tasks_, &TaskPage::failed, this, &MainWindow::tellFault);
  connect(tasks_, &TaskPage::read, this, &MainWindow::showUnreadable);
  connect(tasks_, &TaskPage::activated, this, [this] { perform(&MainWindow::openTask); });
  connect(tasks_, &TaskPage::changed, this, [this] {
    updatePage();
    updateCommands();
  });
  connect(day_, &DayPage::failed, this, &MainWindow::tellFault, Qt::QueuedConnection);
  connect(day_, &DayPage::read, this, &MainWindow::showUnreadable);
  connect(day_, &DayPage::acted, this, [this] { perform(&MainWindow::actOnRow); });
  connect(clients_, &ClientsPage::failed, this, &MainWindow::tellFault, Qt::QueuedConnection);
  connect(clients_, &ClientsPage::tasksWanted, this, &MainWindow::showTasksOf);
  connect(clients_, &ClientsPage::changed, this, &MainWindow::updateCommands);
  connect(day_, &DayPage::editWanted, action("editRow"), &QAction::trigger);
  connect(day_, &DayPage::historyWanted, this, &MainWindow::showHistory);
  connect(day_, &DayPage::changed, this, &MainWindow::updateDay);
}

bool MainWindow::openDatabase(const QString& place) {
  host::DeskOptions options = options_;
  const bool isFile = host::isFile(plain(place));
  options.database = plain(isFile ? QFileInfo(place).absoluteFilePath() : place);
  const bool wasOpen = desk_ != nullptr;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const QString fault = takeDesk(options);
  if (!fault.isEmpty() && wasOpen) takeDesk(options_);
  desk_ ? goTo(place_) : updatePage();
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

// The component knows one desk at a time: the one before goes first.
QString MainWindow::takeDesk(const host::DeskOptions& options) {
  const auto giveUp = [this] {
    tasks_->setDesk(nullptr);
    clients_->clear();
    day_->setDesk(nullptr);
    desk_.reset();
  };
  giveUp();
  QString fault;
  try {
    desk_ = makeDesk(options, {errors_, messages_, forms_});
    day_->setDesk(desk_.get());
    tasksAreOld_ = clientsAreOld_ = true;
  } catch (const PlatformError& error) {
    fault = faultOf(error.description());
  } catch (const std::exception& error) {
    fault = shown(error.what());
  }
  if (!fault.isEmpty()) giveUp();
  return fault;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(!isAtWork_);
}

bool MainWindow::closeWindows() {
  if (!QApplication::activeModalWidget()) return !isAtWork_;
  while (const QPointer<QWidget> top = QApplication::activeModalWidget()) {
    top->close();
    if (top && top->isVisible()) return false;
  }
  return true;
}

void MainWindow::endSession(QSessionManager& session) {
  const bool mayEnd = session.allowsInteraction() ? closeWindows() : !isAtWork_;
  if (!mayEnd) session.cancel();
  session.release();
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
  counts_->setObjectName("counts");
  statusBar()->insertWidget(0, counts_);
  user_ = new QLabel(this);
  user_->setObjectName("user");
  user_->setTextFormat(Qt::PlainText);
  statusBar()->addPermanentWidget(user_);
  upToDate_ = new QLabel(this);
  statusBar()->addPermanentWidget(upToDate_);
}

void MainWindow::tellFault(const QString& message) {
  QMessageBox box(QMessageBox::Critical, tr("Client Notifications"), message, QMessageBox::Ok,
                  this);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

void MainWindow::updatePage() {
  navigation_->setVisible(hasDesk());
  const Page rows = place_ == Navigation::Place::clients ? clientsPage
                    : isDayPage()                        ? dayPage
                    : tasks_->hasTasks()                 ? taskPage
                                                         : noTaskPage;
  pages_->setCurrentIndex(hasDesk() ? rows : noDatabasePage);
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
    day_->reload();
    const auto tasks = host::countTasks(*desk_, {});
    const auto listed = host::countListedNotifications(*desk_);
    const DateTime today = desk_->today();
    const int daysShown = 7 * static_cast<int>(day_->day().weeks.size());
    const auto unknownYear = host::yearWithoutHolidays(*desk_, today, today.addDays(daysShown));
    navigation_->setBadge(Navigation::Place::tasks, tasks);
    navigation_->setBadge(Navigation::Place::list, listed);
    navigation_->setBadge(Navigation::Place::clients, host::countClients(*desk_));
    navigation_->setBadge(Navigation::Place::templates, countTemplates(*desk_));
    user_->setText(userAndFirm(*desk_));
    const QString time = QLocale().toString(QTime::currentTime(), QLocale::ShortFormat);
    const QString upToDate = tr("Up to date at %1").arg(time);
    upToDate_->setText(unknownYear
                           ? tr("%1 has no holidays yet: its dates pass over weekends alone; %2")
                                 .arg(QString::number(*unknownYear), upToDate)
                           : upToDate);
  } catch (const PlatformError& error) {
    counts_->setText(faultOf(error.description()));
  }
}

void MainWindow::showUnreadable() {
  const host::UnreadableRows& rows = isDayPage()                            ? day_->day().unreadable
                                     : place_ == Navigation::Place::clients ? clients_->unreadable()
                                                                            : tasks_->unreadable();
  unreadable_->setText(textOf(rows));
  unreadable_->setToolTip(detailsOf(rows));
}

}  // namespace autonotify::desktop
