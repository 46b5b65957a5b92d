#include <QtWidgets>

#include "MainWindowTest.h"
#include "SortHeader.h"
#include "day/DayModel.h"
#include "day/DayPage.h"
#include "day/ElidedLabel.h"
#include "day/Navigation.h"
#include "host/desk/work/due_list.h"
#include "platform/rich_text.h"

namespace autonotify::desktop {
namespace {

using testing::HasSubstr;
using Place = Navigation::Place;

class DayPageTest : public MainWindowTest {
 protected:
  void openDay() {
    open();
    window_->goTo(Place::today);
    settle();
  }
  void settle() {
    for (int round = 0; round < 5; ++round) QApplication::processEvents();
  }
  DayPage& page() { return *window_->findChild<DayPage*>(); }
  QTreeView& view() { return *window_->findChild<QTreeView*>("day"); }
  std::vector<QModelIndex> lines() {
    std::vector<QModelIndex> found;
    for (int group = 0; group < view().model()->rowCount(); ++group) {
      const QModelIndex parent = view().model()->index(group, 0);
      for (int row = 0; row < view().model()->rowCount(parent); ++row)
        found.push_back(view().model()->index(row, 0, parent));
    }
    return found;
  }
  std::vector<std::string> column(int column) {
    std::vector<std::string> texts;
    for (const QModelIndex& line : lines())
      texts.push_back(plain(line.siblingAtColumn(column).data().toString()));
    return texts;
  }
  /// Makes one waiting notification of the channel, due on the day, the current row.
  Id choose(notifyType channel, const std::string& date = "2026-04-15") {
    const std::string type = std::to_string(channel);
    execute("UPDATE ClientNotification SET NotificationDate='" + date +
            "', Field1='a@birch.example', Field2=CASE WHEN NotificationType=1 THEN '' ELSE '555' "
            "END, Field4='555' WHERE ClientNotificationID="
            "(SELECT min(ClientNotificationID) FROM ClientNotification WHERE NotificationSent=0 "
            "AND NotificationType=" +
            type + ")");
    trigger("refresh");
    settle();
    for (const QModelIndex& line : lines()) {
      view().setCurrentIndex(line);
      if (page().chosen()->row.channel == channel &&
          page().chosen()->row.fields[0] == "a@birch.example")
        return page().chosen()->row.id;
    }
    ADD_FAILURE() << "no row by channel " << channel;
    return noId;
  }
  /// Of what is due; what else there is this week is in a group of its own.
  void expectWorklistsToBeCounted() {
    for (const Place place : {Place::letters, Place::faxes, Place::calls}) {
      window_->goTo(place);
      int due = 0;
      for (const QModelIndex& line : lines()) due += line.parent().row() < 2 ? 1 : 0;
      EXPECT_EQ(badge(place).section(", ", 1), QLocale().toString(due));
      const QString summary = shown(read(*window_, "daySummary")).section("\u00b7  ", 1);
      EXPECT_EQ(summary.section(" ", 0, 0).toInt() + summary.section(" ", 2, 2).toInt(), due);
    }
  }
  /// Of the list of notifications, when it has been read.
  QString titleOfList() {
    QString title;
    QTimer reader;
    reader.callOnTimeout([&] {
      auto* list = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      auto* rows = list ? list->findChild<QTableView*>("AutoNotifyFlexGrid") : nullptr;
      if (!rows || !rows->isVisible() || rows->model()->rowCount() == 0) return;
      reader.stop();
      title = list->findChild<QLabel*>("lblTitle")->text();
      list->close();
    });
    reader.start(5);
    run("notifications", [](QDialog&) {});
    return title;
  }
  bool isSent(Id id) { return host::findNotification(*window_->desk(), id)->sent; }
};

TEST_F(DayPageTest, TheFirstPageIsTheDayAndItsCountsAreThoseOfTheLists) {
  window_ = std::make_unique<MainWindow>(host::DeskOptions{.database = path(), .today = today});
  window_->show();
  settle();
  EXPECT_TRUE(view().isVisible());
  const host::WorkingDay& day = page().day();
  const std::size_t all = day.overdue.count + day.today.count + day.thisWeek.count;
  EXPECT_EQ(lines().size(), all);
  ASSERT_GT(all, 0U);
  EXPECT_EQ(badge(Place::today), QString("Today, %1").arg(all));
  EXPECT_GT(badge(Place::templates).section(", ", 1).toInt(), 0);
  EXPECT_THAT(read(*window_, "user"), HasSubstr("  \u00b7  Harbour & Pine LLP"));
  expectWorklistsToBeCounted();
}

TEST_F(DayPageTest, CountsAreThoseOfWhatOpensAlsoWhereRowsAreOdd) {
  openDay();
  for (const char* change :
       {"NotificationDate='soon'", "NotificationDate=NULL",
        "NotificationDate='2026-04-15 10:30:00'", "NotificationDate='2026-04-14 00:00:00'",
        "CompanyIDNum=-1, ContactIDNum=-1", "DocketIDNum=-2", "NotificationSentStatus=3"}) {
    execute("UPDATE ClientNotification SET " + std::string(change) +
            " WHERE ClientNotificationID=(SELECT min(ClientNotificationID) FROM "
            "ClientNotification WHERE NotificationSent=0 AND NotificationDate<='2026-04-15')");
    trigger("refresh");
    settle();
    expectWorklistsToBeCounted();
    window_->goTo(Place::today);
    const QString title = titleOfList();
    EXPECT_TRUE(title.contains("(" + badge(Place::list).section(", ", 1) + " entries)"))
        << change << ": " << plain(title + ", " + badge(Place::list));
  }
}

TEST_F(DayPageTest, WhatIsNotShownIsToldAndCanBeBrought) {
  openDay();
  execute(
      "WITH RECURSIVE more(n) AS (SELECT 1 UNION ALL SELECT n+1 FROM more WHERE n<1500) INSERT "
      "INTO ClientNotification (NotificationType, NotificationDate, NotificationSent, "
      "NotificationSentStatus) SELECT CASE n%5 WHEN 0 THEN 4 ELSE 1 END, '2026-04-01', 0, 1 FROM "
      "more");
  trigger("refresh");
  settle();
  auto& more = *window_->findChild<QPushButton*>("showMore");
  const std::size_t all = page().day().overdue.count;
  EXPECT_EQ(read(*window_, "rowsLeftOut").substr(0, 4), std::to_string(all - 1000) + " ");
  window_->goTo(Place::letters);
  EXPECT_FALSE(more.isVisible());
  expectWorklistsToBeCounted();
  window_->goTo(Place::today);
  EXPECT_TRUE(more.isVisible());
  more.click();
  EXPECT_FALSE(more.isVisible());
  EXPECT_EQ(view().model()->rowCount(view().model()->index(0, 0)), static_cast<int>(all));
}

TEST_F(DayPageTest, AnEmailIsSentByItsButtonAndLeavesThePage) {
  openDay();
  const Id email = choose(nt_Email);
  const std::size_t before = lines().size();
  const Visitor visitor(closeBox);
  QTest::keyClick(&view(), Qt::Key_Space);
  settle();
  EXPECT_THAT(visitor.messages, testing::IsEmpty());
  EXPECT_TRUE(isSent(email));
  EXPECT_THAT(plain(window_->statusBar()->currentMessage()), HasSubstr("(a@birch.example)"));
  EXPECT_EQ(QDir(shown(path() + ".outbox")).entryList({"*.eml"}).size(), 1);
  EXPECT_EQ(lines().size(), before - 1);
  EXPECT_TRUE(page().chosen()) << "the row that follows is chosen";
}

TEST_F(DayPageTest, WhatAPersonDeliversIsMarkedWhenThePersonSaysSo) {
  openDay();
  for (const notifyType channel : {nt_Letter, nt_Fax, nt_Phone}) {
    for (const bool isDone : {false, true}) {
      const Id row = choose(channel);
      QTimer person;
      person.callOnTimeout([&] {
        QWidget* top = QApplication::activeModalWidget();
        auto* box = qobject_cast<QMessageBox*>(top);
        auto* dialog = qobject_cast<QDialog*>(top);
        if (box) return box->button(isDone ? QMessageBox::Yes : QMessageBox::No)->click();
        if (dialog && channel == nt_Phone) return press(*dialog, isDone ? "callMade" : "noAnswer");
        if (dialog) dialog->close();
      });
      person.start(5);
      trigger("actOnRow");
      person.stop();
      settle();
      EXPECT_EQ(isSent(row), isDone) << channel;
    }
  }
}

TEST_F(DayPageTest, WhatAColleagueHasDoneMeanwhileIsNotDoneTwice) {
  openDay();
  for (const notifyType channel : {nt_Email, nt_Letter, nt_Phone}) {
    const Id row = choose(channel);
    const auto other = host::openSqlite(path());
    const auto claims = host::claimsOf(*other);
    auto claim = claims->take(host::WorkItem::notification, row);
    EXPECT_THAT(run("actOnRow"), testing::ElementsAre(HasSubstr("Another desk"))) << channel;
    claim.reset();
    choose(channel);
    execute(
        "UPDATE ClientNotification SET NotificationSent=1, NotificationSentStatus=2 WHERE "
        "ClientNotificationID=" +
        std::to_string(row));
    EXPECT_EQ(run("actOnRow").size(), 1U) << channel;
  }
  EXPECT_TRUE(QDir(shown(path() + ".outbox")).entryList({"*.eml"}).isEmpty());
}

TEST_F(DayPageTest, ItIsWorkedByKeysAndFoundWhileTyping) {
  openDay();
  const auto clients = column(0);
  auto& find = *window_->findChild<QLineEdit*>("filter");
  trigger("find");
  QTest::keyClicks(&find, shown(clients.front()).left(6).toUpper());
  QTest::keyClick(&find, Qt::Key_Down);
  EXPECT_THAT(column(0), testing::Each(HasSubstr(clients.front().substr(0, 6))));
  EXPECT_LT(lines().size(), clients.size());
  EXPECT_TRUE(page().chosen());
  QTest::keyClick(&find, Qt::Key_Escape);
  QTest::qWait(300);
  EXPECT_EQ(lines().size(), clients.size());
  for (int section = 0; section < view().model()->columnCount(); ++section) {
    for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
      view().sortByColumn(section, order);
      EXPECT_EQ(lines().size(), clients.size());
      EXPECT_EQ(view().model()->index(0, 0).data().toString(), "Overdue") << section;
    }
  }
  view().sortByColumn(DayModel::client, Qt::AscendingOrder);
  auto sorted = column(0);
  const auto ofGroup = [&](int group) {
    return view().model()->rowCount(view().model()->index(group, 0));
  };
  const auto less = [](const std::string& a, const std::string& b) {
    return QString::localeAwareCompare(shown(a).toLower(), shown(b).toLower()) < 0;
  };
  EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.begin() + ofGroup(0), less));
  auto* chart = window_->findChild<QWidget*>("weeksChart");
  EXPECT_THAT(plain(chart->accessibleName()), testing::StartsWith("Weeks ahead, "));
  QTest::keyClick(chart, Qt::Key_Right);
  EXPECT_THAT(plain(chart->accessibleDescription()),
              testing::EndsWith(std::to_string(host::totalOf(page().day().weeks[1].counts))));
  QTest::keyClick(chart, Qt::Key_Return);
  EXPECT_EQ(read(*window_, "dayTitle"),
            "Week of " + plain(QLocale().toString(QDate(2026, 4, 20), "MMMM d")));
  EXPECT_EQ(lines().size(), host::totalOf(page().day().weeks[1].counts));
  QTest::keyClick(chart, Qt::Key_Escape);
  EXPECT_EQ(lines().size(), clients.size());
  for (int place = 1; place <= Navigation::places; ++place) {
    if (place == 3 || place == 8) continue;
    trigger(plain(QString("go%1").arg(place)).c_str());
    EXPECT_EQ(window_->findChild<Navigation*>()->currentItem()->text(),
              Navigation::textOf(static_cast<Place>(place - 1)));
  }
}

TEST_F(DayPageTest, HeadingsAreReachedAndPressedByKeys) {
  openDay();
  QApplication::setActiveWindow(&*window_);
  const std::pair<Place, const char*> tables[] = {{Place::today, "day"},
                                                  {Place::tasks, "tasks"},
                                                  {Place::clients, "clients"},
                                                  {Place::clients, "told"}};
  for (const auto& [place, name] : tables) {
    SCOPED_TRACE(name);
    window_->goTo(place);
    settle();
    auto& table = *window_->findChild<QAbstractItemView*>(name);
    auto& header = *table.findChild<SortHeader*>();
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), &header);
    QTest::keyClick(&header, Qt::Key_Right);
    const int column = header.current();
    const auto texts = [&] {
      std::vector<QString> found;
      const QModelIndex group =
          qobject_cast<QTreeView*>(&table) ? table.model()->index(0, 0) : QModelIndex();
      const int rows = table.model()->rowCount(group);
      found.reserve(static_cast<std::size_t>(rows));
      for (int row = 0; row < rows; ++row)
        found.push_back(table.model()->index(row, column, group).data().toString());
      return found;
    };
    QTest::keyClick(&header, Qt::Key_Space);
    const auto ascending = texts();
    EXPECT_TRUE(header.accessibleName().endsWith(", in ascending order"));
    QTest::keyClick(&header, Qt::Key_Return);
    EXPECT_NE(texts(), ascending);
    EXPECT_EQ(header.sortIndicatorSection(), column);
  }
}

TEST_F(DayPageTest, NamesKeepRoomInANarrowWindow) {
  openDay();
  for (const int width : {1200, 640, 1200}) {
    window_->resize(width, 400);
    settle();
    EXPECT_EQ(window_->width(), width);
    EXPECT_GT(view().columnWidth(DayModel::client), 80) << width;
    EXPECT_EQ(view().isColumnHidden(DayModel::due), width == 640);
    EXPECT_EQ(view().isColumnHidden(DayModel::act), false);
  }
}

TEST(ElidedLabel, EndsInDotsWhereItHasNoRoom) {
  ElidedLabel label(nullptr), cut(nullptr);
  label.setText("somebody.with.a.name@somewhere.example");
  for (QLabel* each : {&label, &cut}) each->resize(100, 20);
  cut.setText(label.fontMetrics().elidedText(label.text(), Qt::ElideRight, 100));
  EXPECT_TRUE(cut.text().endsWith(QChar(0x2026)));
  EXPECT_EQ(label.grab().toImage(), cut.grab().toImage());
}

TEST_F(DayPageTest, AClientsPageHasAllThatItWasToldAndWillBe) {
  openDay();
  choose(nt_Email);
  const std::string client = page().chosen()->client;
  const Id company = page().chosen()->row.companyId;
  const Id contact = page().chosen()->row.contactId;
  EXPECT_EQ(read(*window_, "cardName"), client);
  window_->findChild<QPushButton*>("cardHistory")->click();
  EXPECT_EQ(read(*window_, "clientTitle"), client);
  const std::string condition = company > 0 ? "CompanyIDNum=" + std::to_string(company)
                                            : "ContactIDNum=" + std::to_string(contact);
  EXPECT_EQ(window_->findChild<QTableView*>("told")->model()->rowCount(),
            host::openSqlite(path())
                ->connection()
                .execAndGet("SELECT count(*) FROM ClientNotification WHERE " + condition)
                .getInt());
}

TEST_F(DayPageTest, AContactThatIsNoClientHasAHistoryToo) {
  openDay();
  const Id row = choose(nt_Email);
  execute(
      "DELETE FROM Clients; INSERT INTO Contacts (ContactID, DisplayName) VALUES (9999, 'Ida "
      "Elm'); UPDATE ClientNotification SET CompanyIDNum=-1, ContactIDNum=9999 WHERE "
      "ClientNotificationID=" +
      std::to_string(row));
  trigger("refresh");
  settle();
  window_->findChild<QPushButton*>("cardHistory")->click();
  EXPECT_EQ(read(*window_, "clientTitle"), "Ida Elm");
  auto& told = *window_->findChild<QTableView*>("told");
  EXPECT_EQ(told.model()->rowCount(), 1);
  const auto sent = *host::findNotification(*window_->desk(), row);
  for (const auto& [key, text] :
       {std::pair(Qt::Key_A, addressOf(sent)), std::pair(Qt::Key_X, plainTextOf(sent.memo))}) {
    QApplication::setActiveWindow(&*window_);
    told.setFocus();
    QTimer::singleShot(0, [key = key] {
      if (QWidget* menu = QApplication::activePopupWidget()) QTest::keyClick(menu, key);
    });
    QTest::keyClick(&told, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(plain(QGuiApplication::clipboard()->text()), text);
    EXPECT_NE(text, "");
  }
}

TEST_F(DayPageTest, EnterOnAClientShowsItsTasks) {
  openDay();
  window_->goTo(Navigation::Place::clients);
  auto& clients = *window_->findChild<QTableView*>("clients");
  clients.selectRow(0);
  const QString name = clients.model()->index(0, 0).data().toString();
  QTest::keyClick(&clients, Qt::Key_Return);
  const QAbstractItemModel& tasks = *window_->findChild<QTableView*>("tasks")->model();
  EXPECT_GT(tasks.rowCount(), 0);
  for (int row = 0; row < tasks.rowCount(); ++row)
    EXPECT_EQ(tasks.index(row, TaskTableModel::client).data().toString(), name);
}

}  // namespace
}  // namespace autonotify::desktop
