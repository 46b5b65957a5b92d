#pragma once

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "MainWindow.h"
#include "demo_firm.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "qt_text.h"

namespace autonotify::desktop {

/// A person at the program's window: acts once in the composer that comes up, and presses the
/// first of the messages' buttons that leaves things as they are, or agrees to all.
class Visitor {
 public:
  using Act = std::function<void(QDialog& composer)>;

  explicit Visitor(Act act, bool agrees = false) : act_(std::move(act)), agrees_(agrees) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { look(); });
    timer_.start(5);
  }

  bool sawComposer() const { return looks_ > 0; }
  std::vector<std::string> messages;

 private:
  void look() {
    QWidget* top = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(top)) {
      messages.push_back(plain(box->text()));
      if (messages.size() > 200) throw std::logic_error("the messages do not end");
      QAbstractButton* const yes = box->button(QMessageBox::Yes);
      agrees_&& yes ? yes->click() : box->reject();
    } else if (auto* composer = qobject_cast<QDialog*>(top)) {
      // Without a window system nobody makes a window the active one.
      QApplication::setActiveWindow(composer);
      // On its own: messages may come up during the act, and the timer goes on looking.
      if (looks_++ == 0) QTimer::singleShot(0, [this, composer] { act_(*composer); });
      if (looks_ < 2000) return;
      ADD_FAILURE() << "the composer stays";
      composer->close();
    }
  }

  int looks_ = 0;
  Act act_;
  bool agrees_;
  QTimer timer_;
};

inline void press(QDialog& composer, const char* name) {
  QTest::mouseClick(composer.findChild<QPushButton*>(name), Qt::LeftButton);
}
inline constexpr auto finish = [](QDialog& composer) { press(composer, "cmdFinish"); };
inline constexpr auto cancel = [](QDialog& composer) { press(composer, "cmdCancel"); };
inline constexpr auto closeBox = [](QDialog& composer) { composer.close(); };

/// Acts once in the window that comes up next above this one.
inline void actAbove(QDialog& window, const Visitor::Act& act) {
  QTimer::singleShot(5, &window, [&window, act] {
    auto* top = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    top&& top != &window ? act(*top) : actAbove(window, act);
  });
}

inline std::string read(QWidget& window, const QString& label) {
  return plain(window.findChild<QLabel*>(label)->text());
}

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() { makeDemoFirm(path(), 8, 8, today); }

  void open() { open(path()); }
  void open(const std::string& database) {
    window_ = std::make_unique<MainWindow>(host::DeskOptions{.database = database, .today = today});
    window_->show();
    QApplication::processEvents();
    window_->goTo(Navigation::Place::tasks);
  }
  std::string path() { return plain(folder_.filePath("firm.db")); }

  /// Runs the command while `act` is done in the composer, which does not come up without one.
  /// Gives what the person was told.
  std::vector<std::string> run(const char* command, const Visitor::Act& act = nullptr,
                               bool agrees = false) {
    Visitor visitor(act ? act : closeBox, agrees);
    trigger(command);
    EXPECT_EQ(visitor.sawComposer(), act != nullptr) << command;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << command;
    EXPECT_TRUE(window_->isVisible());
    return visitor.messages;
  }
  QAction& action(const char* command) { return *window_->findChild<QAction*>(command); }
  void trigger(const char* command) { action(command).trigger(); }
  /// Whether each of the commands about emails can be run.
  std::vector<bool> enabled() {
    std::vector<bool> states;
    for (const char* command : commands) states.push_back(action(command).isEnabled());
    return states;
  }

  /// A task for which the command makes sense: with an email or a call that waits, or without. No
  /// email is for a day that has passed.
  Id chooseTaskFor(std::string_view command) {
    auto* table = window_->findChild<QTableView*>("tasks");
    auto& tasks = static_cast<TaskTableModel&>(*table->model());
    const notifyType channel = command == "callClient" ? nt_Phone : nt_Email;
    const bool waits = channel == nt_Phone || command == "editEmail";
    for (int row = 0; row < tasks.rowCount(); ++row) {
      const host::TaskLine& line = tasks.lineAt(tasks.index(row, 0));
      if (bool(line.pendingChannels & channel) != waits) continue;
      if (command == "editEmail" && line.notificationDate < today) continue;
      if (command == "scheduleEmail" && line.task.dueDate < monthsAhead) continue;
      table->selectRow(row);
      return line.task.id;
    }
    ADD_FAILURE() << "no such task";
    return noId;
  }

  /// As the window's navigation tells it.
  QString badge(Navigation::Place place) {
    auto& list = *window_->findChild<Navigation*>();
    for (int row = 0; row < list.count(); ++row)
      if (list.item(row)->text() == Navigation::textOf(place))
        return list.item(row)->data(Qt::AccessibleTextRole).toString();
    return {};
  }

  /// At another connection, as another desk would.
  void execute(const std::string& sql) { host::openSqlite(path())->connection().exec(sql); }
  int rows() { return rows(path()); }
  int rows(const std::string& database) {
    return host::openSqlite(database)
        ->connection()
        .execAndGet("SELECT count(*) FROM ClientNotification")
        .getInt();
  }

  static constexpr const char* commands[] = {"composeEmail", "scheduleEmail", "editEmail"};
  static constexpr DateTime monthsAhead = DateTime::of(2026, 7, 15);
  static constexpr DateTime today = DateTime::of(2026, 4, 15);
  QTemporaryDir folder_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace autonotify::desktop
