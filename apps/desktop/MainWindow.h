#pragma once

#include <QMainWindow>
#include <memory>
#include <span>
#include <vector>

#include "DialogErrorClass.h"
#include "DialogMsgbox.h"
#include "TaskPage.h"
#include "binding/QtFormHost.h"
#include "host/desk/Desk.h"
#include "host/desk/work/notify_client.h"
#include "host/desk/work/schedule_year.h"
#include "task_notes.h"

class QAction;
class QLabel;
class QStackedWidget;

namespace autonotify::desktop {

/// The setting that holds the database opened last.
inline constexpr const char* lastDatabaseKey = "lastDatabase";

/// The firm's open tasks, and what can be done about their notifications. Its commands are rows of
/// a table (MainWindow_commands.cpp).
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

 protected:
  void paintEvent(QPaintEvent* event) override;
  /// Stays while a command runs.
  void closeEvent(QCloseEvent* event) override;

 private:
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
  void makeStatusBar();
  QAction* action(const char* name) const;
  QWidget* makeEmptyPage(const QString& title, const QString& hint, const QList<QAction*>& actions);

  // When a command can be run.
  bool always() const { return true; }
  bool hasDesk() const { return desk_ != nullptr; }
  bool hasTask() const { return tasks_->chosen() != nullptr; }
  /// As the list has it.
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
  void composeEmail() { compose(host::composeEmail, taskNotes); }
  void scheduleEmail() { compose(host::scheduleEmail, taskNotes); }
  void editEmail() { compose(host::editEmail, taskNotes); }
  void notifyNow() { compose(host::notifyNow, channelNotes); }
  void notifyAutomatically() { compose(host::notifyAutomatically, channelNotes); }
  void writeBlankFax() { compose(host::writeBlankFax, clientNotes); }
  void writeBlankLetter() { compose(host::writeBlankLetter, clientNotes); }
  void scheduleYear() { compose(host::chooseYear, clientNotes); }
  using UseCase = host::Outcome<host::Composed> (*)(host::Desk& desk, Id task);
  using Notes = WindowNotes (*)(host::Desk& desk, const host::TaskLine& line);
  /// Has a message to the chosen task's client composed, in windows that bear the notes.
  void compose(UseCase useCase, Notes notesOf);
  void callClient();
  /// Edits the chosen task's email, or schedules one.
  void openTask() { emailWaits() ? editEmail() : scheduleEmail(); }
  void editTemplates();
  /// As templates of tasks spell them.
  QSet<QString> fieldNames();
  void changeOptions();
  void refresh();
  void findTask() { tasks_->focusFilter(); }
  void showAbout();
  void tellFault(const QString& message);

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
  QtFormHost forms_;
  std::unique_ptr<host::Desk> desk_;
  TaskPage* tasks_;

  /// In the order of commands().
  std::vector<QAction*> actions_;
  QLabel* unreadable_ = nullptr;
  QLabel* counts_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  bool countsAreOld_ = false;
  bool isAtWork_ = false;
};

}  // namespace autonotify::desktop
