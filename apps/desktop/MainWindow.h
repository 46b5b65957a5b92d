#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "DialogErrorClass.h"
#include "DialogMsgbox.h"
#include "TaskPage.h"
#include "binding/ContextMenuKey.h"
#include "binding/QtFormHost.h"
#include "composer_notes.h"
#include "day/ClientsPage.h"
#include "day/DayPage.h"
#include "day/Navigation.h"
#include "host/desk/Desk.h"
#include "host/desk/work/notify_client.h"
#include "host/desk/work/schedule_year.h"
#include "host/desk/work/send_notification.h"
#include "task_notes.h"

class QAction;
class QLabel;
class QLineEdit;
class QSessionManager;
class QStackedWidget;

namespace autonotify::desktop {

/// The setting that holds the database opened last.
inline constexpr const char* lastDatabaseKey = "lastDatabase";

/// What the firm's clients are to be told today, its open tasks, and what can be done about them.
/// Its commands are rows of a table (MainWindow_commands.cpp).
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// `options` without a database opens none.
  explicit MainWindow(host::DeskOptions options, QWidget* parent = nullptr);
  ~MainWindow() override;

  /// Opens the database, a file or one on a server, and shows its tasks; False, with a message,
  /// when it cannot be used. The one that was open stays then.
  bool openDatabase(const QString& place);
  /// Null while no database is open.
  host::Desk* desk() { return desk_.get(); }
  /// Closes the windows that are up, each as its close box does: what is not saved is asked about.
  /// False where one stays, or a command runs without one.
  bool closeWindows();
  /// Shows the page, or opens the window that is at that place.
  void goTo(Navigation::Place place);

 protected:
  void paintEvent(QPaintEvent* event) override;
  /// Stays while a command runs.
  void closeEvent(QCloseEvent* event) override;
  /// Keys in the field that finds rows.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// What the status bar tells stays so long.
  static constexpr int messageMs = 15000;

  enum CommandPlace { inMenu, inMenuBelowLine, inMenuAndBar };
  struct Command {
    /// The action's object name.
    const char* name;
    const char* menu;
    const char* text;
    QKeySequence keys;
    /// A name in the desktop's icon theme.
    const char* icon;
    const char* toolTip;
    CommandPlace place;
    bool (MainWindow::*canRun)() const;
    void (MainWindow::*run)();
  };
  static std::span<const Command> commands();

  void makeActions();
  void makeMenus();
  void makeGoMenu();
  void makeStatusBar();
  void makePages();
  /// The field that finds rows of the page.
  QWidget* makeFind();
  QAction* action(const char* name) const;
  QWidget* makeEmptyPage(const QString& title, const QString& hint, const QList<QAction*>& actions);

  // When a command can be run.
  bool always() const { return true; }
  bool hasDesk() const { return desk_ != nullptr; }
  bool hasTask() const { return chosen() != nullptr; }
  bool hasClient() const { return hasTask() || isClientChosen(); }
  bool hasRow() const { return isDayPage() && day_->chosen(); }
  /// As the page has it.
  bool callWaits() const;
  bool canSchedule() const { return hasTask() && !emailWaits(); }
  /// For the chosen task's date.
  bool emailWaits() const;

  /// Runs the command unless one is running: the component lets events through while its windows
  /// are on their way out, and the desk must not go from under it.
  void perform(void (MainWindow::*run)());
  void chooseDatabase();
  void chooseServer();
  void quit();
  void composeEmail() { notify(host::composeEmail, taskNotes); }
  void scheduleEmail() { notify(host::scheduleEmail, taskNotes); }
  void editEmail() { notify(host::editEmail, taskNotes); }
  void notifyNow() { notify(host::notifyNow, channelNotes); }
  void notifyAutomatically() { notify(host::notifyAutomatically, channelNotes); }
  void writeBlankFax() { write(host::writeBlankFax); }
  void writeBlankLetter() { write(host::writeBlankLetter); }
  void scheduleYear();
  using UseCase = std::function<host::Outcome<host::Composed>(host::Desk& desk, Id task)>;
  using Notes = WindowNotes (*)(host::Desk& desk, const host::TaskLine& line);
  /// Has a message to the chosen task's client composed, in windows that bear the notes.
  void notify(const UseCase& useCase, Notes notesOf);
  /// Has a message to the chosen client, or to that of the chosen task, composed.
  void write(host::WriteToClient useCase);
  /// In the windows that bear what setSubject was told.
  void compose(const std::function<host::Outcome<host::Composed>()>& useCase);
  /// Tells where the documents that were filed meanwhile lie.
  void showFiled();
  /// Tells to whom emails went at once, and offers to cancel the one about the task that waits.
  void showSent(Id task);
  /// In place of the present one; gives what is wrong with it, empty for nothing.
  QString takeDesk(const host::DeskOptions& options);
  void openNotifications();
  /// Of the page's channel, or of all that are a person's work.
  void printWorklist();
  void callClient();
  /// While the person is on the telephone no other desk calls the client.
  void call(const host::Notification& row, const QString& subject);

  // Of the day (MainWindow_day.cpp).
  /// What the button of the chosen row says.
  void actOnRow();
  void sendEmail(Id notification);
  void sendThroughProgram(Id notification);
  void showDocument(Id notification);
  void callRow(Id notification);
  /// Opens the window in which the row's address and text are changed.
  void editRow();
  void tellSent(const host::SendOutcome& outcome);
  /// "%1" in the question stands for the name.
  bool isSureOf(const QString& question, const QString& name = {});
  void updateDay();
  bool isDayPage() const;
  /// What of the page is out of date is read.
  void readPage();
  /// All that the client of the chosen row was told and will be.
  void showHistory();
  void showTasksOf(const QString& client);
  /// Edits the chosen task's email, or schedules one.
  void openTask() { emailWaits() ? editEmail() : scheduleEmail(); }
  void editTemplates();
  /// The notes of the windows that come up, and the due date of what they are about.
  void setSubject(WindowNotes notes, DateTime due = {});
  ComposerDays composerDays() const;
  /// What is odd about the dates of what the window writes, as a question; empty for nothing.
  QString dateQuestion(const Form& form) const;
  AskNotes notesFor(const Form& form) const;
  /// What keeps other desks off that which the window changes. Its editor of templates may come up
  /// from other windows too.
  std::shared_ptr<void> claimFor(const Form& form);
  std::map<QString, RecipientName> recipientNames(const QStringList& addresses);
  /// As templates of tasks spell them.
  FieldNames fieldNames();
  void changeFirm();
  void changeOptions();
  /// The person logs out: stays where a window does.
  void endSession(QSessionManager& session);
  void refresh();
  void find();
  void applyFilter();
  void goToRows();
  void goToNextPane();
  void showAbout();
  void tellFault(const QString& message);

  /// The task that is chosen, on whichever page; null for none.
  const host::TaskLine* chosen() const;
  /// On the page of the clients.
  bool isClientChosen() const;
  void updateCommands();
  void updatePage();
  /// The counts follow when the window has been painted.
  void updateCounts();
  void showCounts();
  /// Says once, beside the counts, which rows the list cannot show.
  void showUnreadable();

  host::DeskOptions options_;
  DialogErrorClass errors_;
  DialogMsgbox messages_;
  ContextMenuKey menuKey_;
  QtFormHost forms_;
  /// Of what the component's windows are about.
  DateTime due_;
  /// Null while no window of a year is up.
  host::AskYear askYear_;
  std::unique_ptr<host::Desk> desk_;
  TaskPage* tasks_;
  DayPage* day_;
  ClientsPage* clients_;
  Navigation* navigation_;
  Navigation::Place place_ = Navigation::Place::today;
  /// Of the day's chosen row.
  std::optional<host::TaskLine> dayTask_;
  QLineEdit* find_ = nullptr;
  // Not read since something was done.
  bool tasksAreOld_ = true;
  bool clientsAreOld_ = true;

  /// In the order of commands().
  std::vector<QAction*> actions_;
  QLabel* unreadable_ = nullptr;
  QLabel* counts_ = nullptr;
  /// Who works here, and for whom.
  QLabel* user_ = nullptr;
  QLabel* upToDate_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  bool countsAreOld_ = false;
  bool isAtWork_ = false;
};

}  // namespace autonotify::desktop
