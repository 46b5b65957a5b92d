#include <QAbstractItemView>
#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QProgressBar>

#include "MainWindowTest.h"
#include "host/desk/claims.h"

namespace autonotify::desktop {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int sentColumn = 18;
constexpr int sentStatus = 19;
constexpr int sentDate = 20;
constexpr int sendNow = 29;
constexpr int cancelSend = 30;
constexpr int viewInfo = 31;

QTableView& tableOf(QDialog& list) {
  return *list.findChild<QTableView*>("AutoNotifyFlexGrid");
}

void click(QDialog& list, int row, int column) {
  QTableView& table = tableOf(list);
  const QModelIndex cell = table.model()->index(row, column);
  table.scrollTo(cell);
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(cell).center());
}

bool isLoaded(QDialog& list) {
  return tableOf(list).isVisible() && tableOf(list).model()->rowCount() > 0;
}
bool isLoading(QDialog& list) {
  const auto& bar = *list.findChild<QProgressBar*>();
  return bar.isVisible() && bar.value() > bar.minimum() && bar.value() < bar.maximum();
}

/// A way in which a person has a row of the list sent or changed.
struct Way {
  const char* name;
  std::function<void(QDialog& list)> act;
  bool showsComposer;
};
const Way tick{"tick", [](QDialog& list) { click(list, 0, sentColumn); }, false};
const Way cancelling{"cancel", [](QDialog& list) { click(list, 0, cancelSend); }, false};
const Way look{"look", [](QDialog& list) { click(list, 0, viewInfo); }, true};
const Way refreshing{"refresh", [](QDialog& list) { press(list, "cmdRefreshTaskGrid"); }, false};
const Way sends[] = {
    tick,
    {"button", [](QDialog& list) { click(list, 0, sendNow); }, false},
    {"all", [](QDialog& list) { press(list, "cmdSendAll"); }, false},
    {"composer", [](QDialog& list) { click(list, 0, sendNow); }, true},
};

/// A firm with one email that is due, and a colleague at another desk.
class ListWindow : public MainWindowTest {
 protected:
  ListWindow() {
    execute("DELETE FROM ClientNotification WHERE NotificationType<>1 OR NotificationSent=1");
    execute(
        "DELETE FROM ClientNotification WHERE ClientNotificationID<>(SELECT "
        "max(ClientNotificationID) FROM ClientNotification)");
    execute("UPDATE ClientNotification SET NotificationDate='2026-04-15', Field1='office@birch'");
    row_ = number("SELECT ClientNotificationID FROM ClientNotification");
    task_ = number("SELECT ScheduleIDNum FROM ClientNotification");
    open();
  }

  int number(const std::string& sql) {
    return host::openSqlite(path())->connection().execAndGet(sql).getInt();
  }
  void settle(int sent, int status) {
    execute("UPDATE ClientNotification SET NotificationSent=" + std::to_string(sent) +
            ", NotificationSentStatus=" + std::to_string(status));
  }
  QString outbox() { return shown(path() + ".outbox"); }
  int sent() { return static_cast<int>(QDir(outbox()).entryList({"*.eml"}, QDir::Files).size()); }
  std::string state() {
    return std::to_string(number("SELECT NotificationSent FROM ClientNotification")) + " " +
           std::to_string(number("SELECT NotificationSentStatus FROM ClientNotification"));
  }
  /// Opens the list, acts in it once it is ready, and closes it; gives what the person was told.
  std::vector<std::string> useList(const Visitor::Act& act,
                                   bool (*isReady)(QDialog& list) = isLoaded) {
    QTimer clock;
    clock.callOnTimeout([&] {
      auto* list = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (!list || !list->findChild<QTableView*>("AutoNotifyFlexGrid") || !isReady(*list)) return;
      clock.stop();
      act(*list);
      if (list->isVisible()) press(*list, "cmdClose");
    });
    clock.start(5);
    return run("notifications", [](QDialog&) {});
  }
  /// As the program's window tells it, behind its next paint.
  std::string due() {
    for (int round = 0; round < 3; ++round) QApplication::processEvents();
    return plain(badge(Navigation::Place::list));
  }
  static bool isTicked(QDialog& list) {
    return tableOf(list).model()->index(0, sentColumn).data(Qt::CheckStateRole).toBool();
  }
  void choosePreview(bool isShown) {
    execute("UPDATE UserGeneralSettings SET ShowMVPreview=" + std::to_string(isShown));
  }

  int row_ = 0;
  int task_ = 0;
};

TEST_F(ListWindow, ARowThatAnotherDeskWorksOnIsLeftAlone) {
  const auto other = host::openSqlite(path());
  const auto claims = host::claimsOf(*other);
  const std::pair<Way, std::unique_ptr<host::Claim>> held[] = {
      {tick, claims->take(host::WorkItem::task, task_)},
      {cancelling, claims->take(host::WorkItem::notification, row_)},
      {look, claims->take(host::WorkItem::notification, row_)}};
  for (const auto& [way, claim] : held) {
    const auto told = useList([&, &act = way.act](QDialog& list) {
      act(list);
      EXPECT_FALSE(isTicked(list));
    });
    EXPECT_THAT(told, ElementsAre(HasSubstr("Another desk is at work on the notification to ")));
    EXPECT_EQ(state(), "0 1") << way.name;
  }
  EXPECT_EQ(sent(), 0);
}

TEST_F(ListWindow, ARowThatWasSettledSinceTheListWasReadIsShownAsItStands) {
  std::vector<Way> ways(std::begin(sends), std::end(sends));
  ways.push_back(cancelling);
  for (const Way& way : ways) {
    choosePreview(way.showsComposer);
    for (const int status : {2, 3}) {
      settle(0, 1);
      const auto told = useList([&](QDialog& list) {
        settle(1, status);
        way.act(list);
        EXPECT_TRUE(isTicked(list));
      });
      EXPECT_EQ(state(), "1 " + std::to_string(status)) << way.name;
      EXPECT_EQ(told.empty(), way.name == std::string("all")) << way.name;
      EXPECT_THAT(told, Each(HasSubstr(status == 2 ? " was sent." : " is cancelled.")));
    }
  }
  EXPECT_EQ(sent(), 0);
  settle(0, 1);
  EXPECT_THAT(useList([&](QDialog& list) {
                execute("DELETE FROM ClientNotification");
                look.act(list);
              }),
              ElementsAre(HasSubstr("any more")));
}

TEST_F(ListWindow, NoOtherDeskGetsARowUntilItIsSentAndMarked) {
  const auto other = host::openSqlite(path());
  const auto claims = host::claimsOf(*other);
  const auto isFree = [&] {
    return claims->tryTake(host::WorkItem::notification, row_) != nullptr;
  };
  for (const Way& way : sends) {
    SCOPED_TRACE(way.name);
    choosePreview(way.showsComposer);
    settle(0, 1);
    QDir(outbox()).removeRecursively();
    bool wasHeld = false;
    QTimer colleague;
    colleague.callOnTimeout([&] {
      wasHeld = wasHeld || !isFree();
      auto* composer = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (auto* button = composer->findChild<QPushButton*>("cmdFinish")) button->click();
      EXPECT_TRUE(!isFree() || (sent() == 1 && state() == "1 2")) << state();
    });
    const auto told = useList([&](QDialog& list) {
      colleague.start(0);
      way.act(list);
      colleague.stop();
      EXPECT_TRUE(isTicked(list));
    });
    EXPECT_TRUE(wasHeld && isFree());
    EXPECT_THAT(told, IsEmpty());
    EXPECT_EQ(state(), "1 2");
    EXPECT_EQ(sent(), 1);
  }
}

TEST_F(ListWindow, TheRoadLeadsFromTheTickOfTheWizardToSentInTheRow) {
  execute("DELETE FROM ClientNotification");
  choosePreview(true);
  trigger("refresh");
  chooseTaskFor("scheduleEmail");
  std::string client;
  const auto arm = [&](QDialog& wizard) {
    actAbove(wizard, [&](QDialog& composer) {
      client = read(composer, "staticNoteClient");
      auto* date = composer.findChild<QLineEdit*>("txtNotificationField");
      date->selectAll();
      QTest::keyClicks(date, "Apr 14 2026");
      finish(composer);
    });
    wizard.findChild<QCheckBox*>("chkAutoNotify(0)")->click();
  };
  EXPECT_THAT(run("notifyAutomatically", arm, true), ElementsAre(HasSubstr("has passed")));
  EXPECT_EQ(due(), "Notifications list, 1");
  const auto told = useList([&](QDialog& list) {
    actAbove(list, [&](QDialog& composer) {
      EXPECT_EQ(read(composer, "staticNoteClient"), client);
      finish(composer);
    });
    const int day = tableOf(list).fontMetrics().horizontalAdvance("May 30, 2026");
    EXPECT_LT(tableOf(list).columnWidth(sentDate), day) << "no room for nothing";
    click(list, 0, sendNow);
    EXPECT_EQ(tableOf(list).model()->index(0, sentStatus).data().toString(), "Sent");
    EXPECT_GT(tableOf(list).columnWidth(sentDate), day);
  });
  EXPECT_THAT(told, IsEmpty());
  EXPECT_EQ(sent(), 1);
  EXPECT_EQ(due(), "Notifications list, 0");
}

TEST_F(ListWindow, CanBeLeftInTheMiddleOfItsLoad) {
  execute(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) INSERT INTO "
      "ClientNotification (NotificationType, NotificationDate, NotificationSent, "
      "NotificationSentStatus) SELECT 1, '2026-04-15', 0, 1 FROM n");
  const Visitor::Act ways[] = {closeBox, [](QDialog& list) { press(list, "cmdClose"); },
                               [&](QDialog&) { EXPECT_FALSE(window_->close()); },
                               [&](QDialog&) { window_->closeWindows(); }};
  for (const auto& leave : ways) {
    EXPECT_THAT(useList(leave, isLoading), IsEmpty());
    EXPECT_TRUE(window_->isEnabled());
  }
  EXPECT_TRUE(window_->close());
}

TEST_F(ListWindow, GoesOnLivingWhenItsDatabaseIsBack) {
  std::vector<Way> ways(std::begin(sends), std::end(sends));
  ways.insert(ways.end(), {cancelling, look, refreshing});
  for (const Way& way : ways) {
    choosePreview(way.showsComposer);
    EXPECT_THAT(useList([&](QDialog& list) {
                  execute("ALTER TABLE ClientNotification RENAME TO Away");
                  way.act(list);
                  execute("ALTER TABLE Away RENAME TO ClientNotification");
                  refreshing.act(list);
                  QApplication::processEvents();
                  EXPECT_TRUE(isLoaded(list)) << way.name;
                }),
                ElementsAre(HasSubstr("ClientNotification")));
  }
}

}  // namespace
}  // namespace autonotify::desktop
