#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>
#include <iterator>
#include <utility>

#include "MailProgramSender.h"
#include "MainWindow.h"
#include "day/row_acts.h"
#include "host/desk/work/claiming.h"
#include "host/desk/work/client_card.h"
#include "host/desk/work/deliver_by_hand.h"
#include "host/desk/work/note_call.h"
#include "host/desk/work/print_worklist.h"
#include "mail_choice.h"
#include "outcome_texts.h"
#include "platform/rich_text.h"
#include "qt_text.h"
#include "yes_question.h"

namespace autonotify::desktop {
namespace {

constexpr int findPauseMs = 200;
constexpr int findWidthInLetters = 32;

/// The places that are the day, or the worklist of a channel.
struct DayPlace {
  Navigation::Place place;
  int channels;
};
constexpr DayPlace dayPlaces[] = {{Navigation::Place::today, host::allChannels},
                                  {Navigation::Place::letters, nt_Letter},
                                  {Navigation::Place::faxes, nt_Fax},
                                  {Navigation::Place::calls, nt_Phone}};

const DayPlace* dayPlace(Navigation::Place place) {
  const auto* found = std::ranges::find(dayPlaces, place, &DayPlace::place);
  return found == std::end(dayPlaces) ? nullptr : found;
}

}  // namespace

bool MainWindow::isDayPage() const {
  return dayPlace(place_) != nullptr;
}

void MainWindow::goTo(Navigation::Place place) {
  if (!desk_) return;
  if (place == Navigation::Place::list || place == Navigation::Place::templates) {
    navigation_->mark(place_);
    return action(place == Navigation::Place::list ? "notifications" : "editTemplates")->trigger();
  }
  place_ = place;
  find_->clear();
  applyFilter();
  navigation_->mark(place);
  if (const DayPlace* row = dayPlace(place))
    day_->showChannels(row->channels, Navigation::textOf(place));
  readPage();
  updatePage();
  if (!navigation_->hasFocus()) pages_->currentWidget()->setFocus();
  showUnreadable();
  updateDay();
}

void MainWindow::readPage() {
  if (!desk_) return;
  if (place_ == Navigation::Place::tasks && std::exchange(tasksAreOld_, false))
    tasks_->readFrom(*desk_);
  if (place_ == Navigation::Place::clients && std::exchange(clientsAreOld_, false))
    clients_->readFrom(*desk_);
}

const host::TaskLine* MainWindow::chosen() const {
  if (place_ == Navigation::Place::tasks) return tasks_->chosen();
  return dayTask_ ? &*dayTask_ : nullptr;
}

bool MainWindow::isClientChosen() const {
  return place_ == Navigation::Place::clients && clients_->chosenClient();
}

void MainWindow::showHistory() {
  const host::DayLine* line = day_->chosen();
  if (!line) return;
  const host::Client client = host::clientOf(line->row);
  goTo(Navigation::Place::clients);
  clients_->showClient(client);
}

void MainWindow::showTasksOf(const QString& client) {
  goTo(Navigation::Place::tasks);
  find_->setText(client);
  applyFilter();
}

void MainWindow::updateDay() {
  const host::DayLine* line = isDayPage() ? day_->chosen() : nullptr;
  dayTask_.reset();
  if (line && line->row.scheduleId >= 0) {
    try {
      dayTask_ = host::findTaskLine(*desk_, line->row.scheduleId);
    } catch (const PlatformError&) {
      // Nothing is offered for a task that cannot be read; the status bar names its row.
    }
  }
  const host::WorkingDay& day = day_->day();
  navigation_->setBadge(Navigation::Place::today,
                        day.overdue.count + day.today.count + day.thisWeek.count);
  for (const DayPlace& row : dayPlaces)
    if (row.place != Navigation::Place::today)
      navigation_->setBadge(row.place, host::countOf(day.overdue.byChannel, row.channels) +
                                           host::countOf(day.today.byChannel, row.channels));
  counts_->setText(tr("%L1 waiting  \u00b7  %L2 sent today")
                       .arg(day.overdue.count + day.today.count + day.thisWeek.count)
                       .arg(day.sentToday));
  updateCommands();
}

QWidget* MainWindow::makeFind() {
  auto* bar = new QWidget(this);
  auto* layout = new QHBoxLayout(bar);
  layout->setContentsMargins({});
  layout->addStretch();
  find_ = new QLineEdit(bar);
  find_->setObjectName("filter");
  find_->setPlaceholderText(tr("Find a client or task"));
  find_->setAccessibleName(find_->placeholderText());
  find_->setClearButtonEnabled(true);
  find_->addAction(QIcon::fromTheme("edit-find"), QLineEdit::LeadingPosition);
  find_->setFixedWidth(findWidthInLetters * find_->fontMetrics().averageCharWidth());
  layout->addWidget(find_);
  auto* pause = new QTimer(find_);
  pause->setSingleShot(true);
  pause->setInterval(findPauseMs);
  connect(find_, &QLineEdit::textChanged, pause, qOverload<>(&QTimer::start));
  connect(pause, &QTimer::timeout, this, &MainWindow::applyFilter);
  find_->installEventFilter(this);
  return bar;
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != find_ || event->type() != QEvent::KeyPress)
    return QMainWindow::eventFilter(watched, event);
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
      find_->clear();
      return true;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      applyFilter();
      goToRows();
      return true;
    default:
      return false;
  }
}

void MainWindow::goToRows() {
  if (isDayPage()) return day_->goToFirstRow();
  if (place_ == Navigation::Place::clients) return clients_->goToFirstRow();
  tasks_->goToFirstRow();
}

/// From the pages' names to the rows and back.
void MainWindow::goToNextPane() {
  if (navigation_->hasFocus()) return goToRows();
  navigation_->setFocus(Qt::TabFocusReason);
}

void MainWindow::makeGoMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&Go"));
  for (int place = 0; place < Navigation::places; ++place) {
    const auto there = static_cast<Navigation::Place>(place);
    QAction* made = menu->addAction(Navigation::textOf(there));
    made->setObjectName(QString("go%1").arg(place + 1));
    made->setShortcut(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + place));
    connect(made, &QAction::triggered, this, [this, there] { goTo(there); });
  }
}

void MainWindow::find() {
  find_->setFocus(Qt::ShortcutFocusReason);
  find_->selectAll();
}

void MainWindow::applyFilter() {
  const QString text = find_->text();
  if (isDayPage()) return day_->setFilter(text);
  if (place_ == Navigation::Place::clients) return clients_->setFilter(text);
  tasks_->setFilter(text);
}

void MainWindow::actOnRow() {
  const host::DayLine* line = day_->chosen();
  if (!line) return;
  const Id notification = line->row.id;
  desk_->takeFiled();
  dayTask_ ? setSubject(taskNotes(*desk_, *dayTask_), dayTask_->task.dueDate) : setSubject({});
  switch (actOf(*line)) {
    case RowAct::send:
      chosenMail().toProgram ? sendThroughProgram(notification) : sendEmail(notification);
      break;
    case RowAct::finishCancel:
      sendEmail(notification);
      break;
    case RowAct::sendFax:
    case RowAct::print:
      showDocument(notification);
      break;
    case RowAct::call:
      return callRow(notification);
    case RowAct::addAddress:
      return editRow();
  }
  showFiled();
  refresh();
}

void MainWindow::printWorklist() {
  forms_.setNotes({});
  const DayPlace* place = dayPlace(place_);
  const int channels = place ? place->channels : host::handChannels;
  const auto list = host::showWorklist(*desk_, {.channels = channels & host::handChannels});
  if (list.entries == 0) statusBar()->showMessage(tr("No letter, fax or call is due."), messageMs);
  if (!list.unreadable.empty()) tellFault(shown(list.unreadable.begin()->description()));
}

void MainWindow::sendEmail(Id notification) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const auto outcome = host::sendNotification(*desk_, notification, {});
  QApplication::restoreOverrideCursor();
  tellSent(outcome);
}

void MainWindow::tellSent(const host::SendOutcome& outcome) {
  const QString fault = faultOf(outcome);
  if (!fault.isEmpty()) return tellFault(fault);
  statusBar()->showMessage(textOf(outcome), messageMs);
}

/// The mail program does not tell what became of the message.
void MainWindow::sendThroughProgram(Id notification) {
  const auto fate = host::deliverByHand(*desk_, notification, [&](const host::Notification& row) {
    MailProgramSender sender;
    sender.put_to(row.fields[host::Notification::emailTo]);
    sender.put_cc(row.fields[host::Notification::emailCc]);
    sender.put_bcc(row.fields[host::Notification::emailBcc]);
    sender.put_subject(row.fields[host::Notification::emailSubject]);
    sender.put_body(plainTextOf(row.memo));
    if (!sender.send()) {
      tellFault(shown(sender.getLastError()));
      return false;
    }
    return isSureOf(tr("Did you send the email from your mail program?"));
  });
  const QString words = textOf(fate);
  if (!words.isEmpty()) tellFault(words);
}

/// The preview prints it; only the person knows whether it has left the house.
void MainWindow::showDocument(Id notification) {
  desk_->requireDocuments();
  const auto fate = host::deliverByHand(*desk_, notification, [&](const host::Notification& row) {
    if (!desk_->tools().makeDocument(row.id)) return false;
    return isSureOf(
        row.channel == nt_Fax ? tr("Was the fax sent to %1?") : tr("Was the letter to %1 printed?"),
        shown(clientName(*desk_, row)));
  });
  const QString words = textOf(fate);
  if (!words.isEmpty()) tellFault(words);
}

bool MainWindow::isSureOf(const QString& question, const QString& name) {
  const QString words = name.isNull() ? question : question.arg(name);
  return isYes(this, tr("Client Notifications"), words + "\n\n" + tr("It is marked as sent then."));
}

void MainWindow::callRow(Id notification) {
  const host::DayLine line = *day_->chosen();
  const auto claimed = host::claimNotification(*desk_, notification);
  if (!claimed) return tellFault(textOf(claimed.refused()));
  if (stateOf(claimed->row) == host::NotificationState::pending)
    return call(claimed->row,
                dayTask_ ? subjectOf(*dayTask_) : shown(line.client + ", " + line.item));
  tellFault(tr("The call to %1 is settled already.").arg(shown(line.client)));
  refresh();
}

void MainWindow::editRow() {
  const host::DayLine* line = day_->chosen();
  if (!line) return;
  if (line->row.channel == nt_Email && dayTask_) return editEmail();
  if (dayTask_) return notifyAutomatically();
  tellFault(
      tr("This notification is about an item of the diary: change it in the notifications "
         "list."));
}

}  // namespace autonotify::desktop
