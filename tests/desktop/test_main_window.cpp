#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QProgressDialog>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <thread>

#include "MainWindow.h"
#include "demo_firm.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/desk/rows/Notification.h"
#include "host/desk/user_options.h"
#include "host/desk/work/note_call.h"
#include "preview/PdfPages.h"
#include "preview/PreviewWindow.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

using testing::HasSubstr;

/// A person at the program's window: acts once in the composer that comes up, and presses the
/// first of the messages' buttons that leaves things as they are.
class Visitor {
 public:
  using Act = std::function<void(QDialog& composer)>;

  explicit Visitor(Act act) : act_(std::move(act)) {
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
      box->reject();
    } else if (auto* composer = qobject_cast<QDialog*>(top)) {
      // Without a window system nobody makes a window the active one.
      QApplication::setActiveWindow(composer);
      // On its own: messages may come up during the act, and the timer goes on looking.
      if (looks_++ == 0) QTimer::singleShot(0, [this, composer] { act_(*composer); });
      if (looks_ < 200) return;
      ADD_FAILURE() << "the composer stays";
      composer->close();
    }
  }

  int looks_ = 0;
  Act act_;
  QTimer timer_;
};

void press(QDialog& composer, const char* name) {
  QTest::mouseClick(composer.findChild<QPushButton*>(name), Qt::LeftButton);
}
constexpr auto finish = [](QDialog& composer) { press(composer, "cmdFinish"); };
constexpr auto cancel = [](QDialog& composer) { press(composer, "cmdCancel"); };
constexpr auto closeBox = [](QDialog& composer) { composer.close(); };

std::string read(QWidget& window, const QString& label) {
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
  }
  std::string path() { return plain(folder_.filePath("firm.db")); }

  /// Runs the command while `act` is done in the composer, which does not come up without one.
  /// Gives what the person was told.
  std::vector<std::string> run(const char* command, const Visitor::Act& act = nullptr) {
    Visitor visitor(act ? act : closeBox);
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

  /// A task for which the command makes sense: with an email or a call that waits, or without.
  Id chooseTaskFor(std::string_view command) {
    auto* table = window_->findChild<QTableView*>("tasks");
    auto& tasks = static_cast<TaskTableModel&>(*table->model());
    const notifyType channel = command == "callClient" ? nt_Phone : nt_Email;
    const bool waits = channel == nt_Phone || command == "editEmail";
    for (int row = 0; row < tasks.rowCount(); ++row) {
      const host::TaskLine& line = tasks.lineAt(tasks.index(row, 0));
      if (bool(line.pendingChannels & channel) != waits) continue;
      table->selectRow(row);
      return line.task.id;
    }
    ADD_FAILURE() << "no such task";
    return noId;
  }

  /// At another connection, as another desk would.
  void execute(const std::string& sql) { host::openSqlite(path())->connection().exec(sql); }
  int rows() {
    return host::openSqlite(path())
        ->connection()
        .execAndGet("SELECT count(*) FROM ClientNotification")
        .getInt();
  }

  static constexpr const char* commands[] = {"composeEmail", "scheduleEmail", "editEmail"};
  static constexpr DateTime today = DateTime::of(2026, 4, 15);
  QTemporaryDir folder_;
  std::unique_ptr<MainWindow> window_;
};

TEST_F(MainWindowTest, ComposersLeaveNothingBehindHoweverTheyAreLeft) {
  open();
  const std::pair<const char*, Visitor::Act> exits[] = {
      {"composeEmail", closeBox}, {"scheduleEmail", cancel},
      {"notifyNow", cancel},      {"notifyAutomatically", closeBox},
      {"blankFax", closeBox},     {"blankLetter", cancel},
      {"scheduleYear", closeBox}, {"scheduleYear", cancel},
      {"editEmail", closeBox},    {"editEmail", cancel}};
  for (const auto& [command, leave] : exits) {
    chooseTaskFor(command);
    const int before = rows();
    EXPECT_THAT(run(command, leave), testing::IsEmpty());
    EXPECT_EQ(rows(), before) << command;
  }
}

TEST_F(MainWindowTest, ABlankLetterIsSeenAsItIsPrintedAndFiledWhenItIsClosed) {
  open();
  chooseTaskFor("blankLetter");
  const int before = rows();
  QString seen;
  QTimer reader;
  reader.callOnTimeout([&] {
    auto* preview = qobject_cast<PreviewWindow*>(QApplication::activeModalWidget());
    if (!preview) return;
    seen = preview->findChild<PdfPages*>()->document()->getAllText(0).text();
    preview->close();
  });
  reader.start(5);
  EXPECT_THAT(run("blankLetter",
                  [](QDialog& composer) {
                    EXPECT_FALSE(read(composer, "staticNoteClient").empty());
                    QTest::keyClicks(composer.findChild<QTextEdit*>(), "Good day");
                    QTest::keyClick(composer.findChild<QTextEdit*>(), Qt::Key_Return,
                                    Qt::ControlModifier);
                  }),
              testing::IsEmpty());
  EXPECT_THAT(plain(seen), HasSubstr("Good day"));
  EXPECT_EQ(rows(), before);
  QDirIterator filed(shown(path() + ".documents"), {"Letter - *.mvw"}, QDir::Files,
                     QDirIterator::Subdirectories);
  ASSERT_TRUE(filed.hasNext());
  EXPECT_THAT(plain(window_->statusBar()->currentMessage()), HasSubstr("Filed as "));
  QFile file(filed.next());
  EXPECT_TRUE(file.open(QIODevice::ReadOnly) && file.readAll().contains("Good day"));
}

TEST_F(MainWindowTest, TheWizardTellsOfEachChannelAndEscapeLeavesIt) {
  open();
  execute("UPDATE ClientNotification SET NotificationDate='2026-05-04' WHERE ScheduleIDNum=" +
          std::to_string(chooseTaskFor("editEmail")));
  host::setAsksBeforeCancelling(*window_->desk(), false);
  QLocale::setDefault(QLocale::French);
  for (const std::string address : {"1 Elm", ""}) {
    execute("UPDATE Companies SET FaxNumber='', Address='" + address +
            "'; UPDATE Contacts SET BusinessPhone_Fax='', HomePhone_Fax='', HomeAddress='" +
            address + "', BusinessAddress=''");
    const auto expectNotes = [&](QDialog& wizard, const char* email) {
      const char* letter = address.empty() ? "No address on file" : "Not set up";
      const char* notes[] = {email, "No fax number on file", letter, "Not set up"};
      for (int i = 0; i < 4; ++i)
        EXPECT_EQ(read(wizard, QString("staticNote(%1)").arg(i)), notes[i]);
    };
    const auto messages = run("notifyAutomatically", [&](QDialog& wizard) {
      expectNotes(wizard, "Goes out on Monday, May 4, 2026");
      if (address.empty()) wizard.findChild<QCheckBox*>("chkAutoNotify(0)")->click();
      if (address.empty()) expectNotes(wizard, "Not set up");
      QTest::keyClick(&wizard, Qt::Key_Escape);
      EXPECT_FALSE(wizard.isVisible());
    });
    EXPECT_THAT(messages, testing::IsEmpty());
  }
  QLocale::setDefault(QLocale::c());
}

TEST_F(MainWindowTest, ACallIsNotedAsItWent) {
  open();
  const Id task = chooseTaskFor("callClient");
  for (const char* button : {"noAnswer", "callMade"}) {
    const auto call = host::findWaitingCall(*window_->desk(), task);
    ASSERT_TRUE(call) << button;
    EXPECT_THAT(run("callClient",
                    [&](QDialog& dialog) {
                      QTest::keyClicks(dialog.findChild<QLineEdit*>("note"), "on Monday");
                      QTest::keyClick(dialog.findChild<QLineEdit*>("note"), Qt::Key_Return);
                      EXPECT_TRUE(dialog.isVisible()) << "Enter tells nothing";
                      QTest::keyClick(&dialog, Qt::Key_Escape);
                      EXPECT_TRUE(dialog.isVisible());
                      press(dialog, button);
                    }),
                testing::ElementsAre(HasSubstr("lose your note")));
    const auto noted = *host::findNotification(*window_->desk(), call->id);
    EXPECT_EQ(noted.sent, button == std::string("callMade"));
    EXPECT_THAT(noted.memo, HasSubstr(noted.sent ? "called; on Monday" : "no answer; on Monday"));
  }
  EXPECT_FALSE(host::findWaitingCall(*window_->desk(), task));
}

TEST_F(MainWindowTest, AYearIsScheduledInWholeTasksUntilThePersonCancels) {
  open();
  execute("DELETE FROM ClientNotification");
  execute("UPDATE Schedule SET notifyType=0, totalNum=101, Year=2026, Closed=0, ClientNum=" +
          toText(host::findTask(*window_->desk(), chooseTaskFor("scheduleYear"))->clientNum));
  trigger("refresh");
  chooseTaskFor("scheduleYear");
  const auto count = [&](const char* from) {
    const std::string sql = std::string("SELECT count(*) FROM ") + from;
    return host::openSqlite(path())->connection().execAndGet(sql).getInt();
  };
  const int tasks = count("Schedule");
  for (const bool cancels : {true, false}) {
    QTimer watch;
    watch.callOnTimeout([&] {
      auto* progress = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
      if (cancels && progress && progress->value() >= 2)
        progress->findChild<QPushButton*>()->click();
    });
    watch.start(0);
    EXPECT_THAT(run("scheduleYear",
                    [](QDialog& panel) {
                      press(panel, "cmdSelectAllAuto");
                      press(panel, "cmdNext");
                      press(panel, "cmdFinish");
                    }),
                testing::IsEmpty());
    const int armed = count("Schedule WHERE notifyType=1");
    EXPECT_EQ(rows(), armed);
    EXPECT_GE(armed, 2);
    EXPECT_EQ(armed == tasks, !cancels) << armed << " of " << tasks;
    EXPECT_EQ(count("ClientScheduleAutoNotifications WHERE GSTNotifyType=1 AND LawNotifyType=1"),
              1);
  }
}

TEST_F(MainWindowTest, OptionsAreTheUsersOwn) {
  using Option = bool (*)(host::Desk&);
  open();
  for (const auto& [name, isOn] :
       {std::pair<const char*, Option>{"confirm", host::confirmsScheduling},
        {"askToCancel", host::asksBeforeCancelling}}) {
    const bool before = isOn(*window_->desk());
    run("options", [&, name = name](QDialog& dialog) {
      EXPECT_EQ(dialog.findChild<QCheckBox*>(name)->isChecked(), before);
      dialog.findChild<QCheckBox*>(name)->click();
      dialog.accept();
    });
    EXPECT_NE(isOn(*window_->desk()), before) << name;
  }
}

TEST_F(MainWindowTest, FaultsUnderAnOpenComposerEndInMessages) {
  open();
  auto& connection = static_cast<host::SqliteDatabase&>(window_->desk()->database()).connection();
  connection.setBusyTimeout(20);
  const std::pair<const char*, Visitor::Act> exits[] = {
      {"Finish", finish}, {"Cancel", cancel}, {"close box", closeBox}};
  const auto other = host::openSqlite(path());
  for (const char* command : commands) {
    for (const auto& [name, leave] : exits) {
      SCOPED_TRACE(std::string(command) + ", " + name);
      chooseTaskFor(command);
      const auto messages = run(command, [&, &leave = leave](QDialog& composer) {
        other->connection().exec("BEGIN IMMEDIATE");
        leave(composer);
        if (composer.isVisible()) composer.close();
      });
      other->connection().exec("ROLLBACK");
      // Leaving an email that is only edited writes nothing.
      const bool writes = command != commands[2] || std::string(name) == "Finish";
      if (writes && name != std::string("close box")) {
        EXPECT_THAT(messages, testing::Contains(HasSubstr("lock")));
      }
    }
  }
}

TEST_F(MainWindowTest, AnEmailThatSomeoneDeletedIsMissedAtFinish) {
  open();
  for (const char* command : {"editEmail", "scheduleEmail"}) {
    chooseTaskFor(command);
    const auto messages = run(command, [&](QDialog& composer) {
      execute("DELETE FROM ClientNotification WHERE ScheduleIDNum>=0");
      press(composer, "cmdFinish");
      composer.close();
    });
    EXPECT_THAT(messages, testing::ElementsAre(HasSubstr("Do you want to close it"),
                                               HasSubstr("What you wrote is lost.")));
  }
}

TEST_F(MainWindowTest, WhatSomeoneElseDidSinceTheListWasReadIsLeftAlone) {
  open();
  const Id task = chooseTaskFor("scheduleEmail");
  execute("UPDATE ClientNotification SET ScheduleIDNum=" + std::to_string(task) +
          " WHERE NotificationType=1 AND NotificationSent=0");
  EXPECT_THAT(run("scheduleEmail"), testing::ElementsAre("The email is scheduled already."));
  execute("UPDATE ClientNotification SET NotificationSent=1, NotificationSentStatus=2");
  EXPECT_THAT(enabled(), testing::ElementsAre(true, false, true)) << "as the list has it";
  EXPECT_THAT(run("editEmail"), testing::IsEmpty());
  EXPECT_THAT(enabled(), testing::ElementsAre(true, true, false)) << "the list is read again";
}

TEST_F(MainWindowTest, WhatAnotherDeskWorksOnIsNotComposed) {
  open();
  const auto other = host::openSqlite(path());
  const auto claims = host::claimsOf(*other);
  const auto busy = testing::ElementsAre(HasSubstr("Another desk is at work on it."));
  auto task = claims->take(host::WorkItem::task, chooseTaskFor("scheduleEmail"));
  for (const char* command : {"composeEmail", "scheduleEmail", "notifyNow", "notifyAutomatically"})
    EXPECT_THAT(run(command), busy);
  task = claims->take(host::WorkItem::task, chooseTaskFor("editEmail"));
  EXPECT_THAT(run("editEmail"), busy);
  task.reset();
  std::vector<std::unique_ptr<host::Claim>> emails;
  const Id edited = chooseTaskFor("editEmail");
  for (const auto& row : host::readNotificationsOf(*window_->desk(), edited).rows)
    emails.push_back(claims->take(host::WorkItem::notification, row.id));
  EXPECT_THAT(run("editEmail"), busy);
  task = claims->take(host::WorkItem::task, chooseTaskFor("callClient"));
  EXPECT_THAT(run("callClient"), busy);
  const std::jthread colleague([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    execute("UPDATE ClientNotification SET NotificationSent=1, NotificationSentStatus=2");
    task.reset();
  });
  EXPECT_THAT(run("callClient"), testing::ElementsAre("No call of this task waits any more."));
}

TEST_F(MainWindowTest, ARowThatCannotBeReadIsNamedAndNothingIsComposedBesideIt) {
  open();
  const std::string email =
      " WHERE NotificationType=1 AND ScheduleIDNum=" + std::to_string(chooseTaskFor("editEmail"));
  for (const auto& [date, words] : {std::pair("soon", "1 row cannot be read: ClientNotification "),
                                    std::pair("2026-05-04", "")}) {
    execute("UPDATE ClientNotification SET NotificationDate='" + std::string(date) + "'" + email);
    trigger("refresh");
    EXPECT_THAT(read(*window_, "unreadable"), testing::StartsWith(words));
    if (*words) {
      EXPECT_THAT(run("scheduleEmail"), testing::ElementsAre(HasSubstr("\"soon\" is no date")));
    }
    EXPECT_THAT(enabled(), testing::ElementsAre(true, *words != 0, *words == 0));
  }
}

TEST_F(MainWindowTest, CommandsCanBeRunWhereTheyMakeSense) {
  open("");
  EXPECT_THAT(enabled(), testing::Each(false));
  for (const char* each : {"refresh", "notifyNow", "blankFax"})
    EXPECT_FALSE(action(each).isEnabled()) << each;
  EXPECT_TRUE(action("openDatabase").isEnabled());
  open();
  chooseTaskFor("scheduleEmail");
  EXPECT_THAT(enabled(), testing::ElementsAre(true, true, false));
  chooseTaskFor("editEmail");
  EXPECT_THAT(enabled(), testing::ElementsAre(true, false, true));
  for (const char* each : {"notifyNow", "notifyAutomatically", "blankFax", "blankLetter"}) {
    EXPECT_TRUE(action(each).isEnabled()) << each;
    EXPECT_TRUE(window_->findChild<QTableView*>("tasks")->actions().contains(&action(each)));
  }
  trigger("quit");
  QApplication::processEvents();
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(MainWindowTest, ALostDatabaseEndsInMessages) {
  open();
  chooseTaskFor("scheduleEmail");
  const auto messages = run("scheduleEmail", [&](QDialog& composer) {
    for (const char* end : {"", "-wal", "-shm"}) QFile::remove(shown(path() + end));
    press(composer, "cmdFinish");
    if (composer.isVisible()) composer.close();
  });
  EXPECT_THAT(messages, testing::Contains(HasSubstr("no longer in its place")));
}

TEST_F(MainWindowTest, NothingElseRunsBesideAComposer) {
  open();
  chooseTaskFor("composeEmail");
  const host::Desk* desk = window_->desk();
  EXPECT_THAT(
      run("composeEmail",
          [&](QDialog& composer) {
            EXPECT_THAT(read(composer, "staticNoteClient"), HasSubstr(", due on "));
            for (const char* each : {"composeEmail", "refresh", "options", "openDatabase", "quit"})
              trigger(each);
            window_->close();
            EXPECT_TRUE(window_->isVisible());
            EXPECT_EQ(QApplication::activeModalWidget(), &composer);
            composer.close();
          }),
      testing::IsEmpty());
  EXPECT_EQ(window_->desk(), desk);
  EXPECT_TRUE(window_->close());
}

}  // namespace
}  // namespace autonotify::desktop
