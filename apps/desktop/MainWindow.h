#pragma once

#include <QMainWindow>
#include <memory>

#include "DialogErrorClass.h"
#include "DialogMsgbox.h"
#include "TaskPage.h"
#include "binding/QtFormHost.h"
#include "host/desk/Desk.h"

class QAction;
class QLabel;
class QStackedWidget;

namespace autonotify::desktop {

/// The setting that holds the database opened last.
inline constexpr const char* lastDatabaseKey = "lastDatabase";

/// The firm's open tasks, and what can be done about their notifications.
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
  std::unique_ptr<host::Desk> makeDesk(const host::DeskOptions& options);
  void makeActions();
  void makeMenus();
  QWidget* makeEmptyPage(const QString& title, const QString& hint, const QList<QAction*>& actions);
  QAction* addCommand(const QString& text, const QKeySequence& keys, void (MainWindow::*run)());

  /// Runs the command unless one is running: the component lets events through while its windows
  /// are on their way out, and the desk must not go from under it.
  void perform(void (MainWindow::*run)());
  void chooseDatabase();
  void chooseServer();
  void composeEmail();
  void scheduleEmail();
  void editEmail();
  /// Runs `act` while no other desk may work on the item; says so when one does.
  template <class Act>
  void whileClaimed(host::WorkItem item, Id id, Act&& act);
  /// Edits the chosen task's email, or schedules one.
  void openTask();
  void changeOptions();
  void refresh();
  void showAbout();
  void tellLoss();
  void tellFault(const QString& message);

  void updateCommands();
  void updatePage();
  /// The counts follow when the window has been painted.
  void updateCounts();
  void showCounts();

  host::DeskOptions options_;
  DialogErrorClass errors_;
  DialogMsgbox messages_;
  QtFormHost forms_;
  std::unique_ptr<host::Desk> desk_;
  TaskPage* tasks_;

  QAction* open_ = nullptr;
  QAction* openServer_ = nullptr;
  QAction* compose_ = nullptr;
  QAction* schedule_ = nullptr;
  QAction* edit_ = nullptr;
  QAction* refresh_ = nullptr;
  QLabel* counts_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  bool countsAreOld_ = false;
  bool isAtWork_ = false;
};

}  // namespace autonotify::desktop
