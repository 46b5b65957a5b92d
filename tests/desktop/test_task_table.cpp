#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QTemporaryDir>

#include "DialogErrorClass.h"
#include "DialogMsgbox.h"
#include "demo_firm.h"
#include "host/clients/record_rows.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/services/HeadlessFormHost.h"
#include "models/TaskTableModel.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

/// A desk at a small demo firm.
class TaskTable : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<QTemporaryDir>();
    makeDemoFirm(path(), 30, 40, today);
  }
  static void TearDownTestSuite() { folder_.reset(); }

  TaskTable() : desk_({path(), today, {}, {}, {}, {}}, {errors_, messages_, forms_}) {
    model_.setDesk(&desk_);
  }

  static std::string path() { return plain(folder_->filePath("firm.db")); }

  std::vector<Id> fetchAll() {
    while (model_.canFetchMore({})) model_.fetchMore({});
    std::vector<Id> ids;
    for (int row = 0; row < model_.rowCount(); ++row)
      ids.push_back(model_.lineAt(model_.index(row, 0)).task.id);
    return ids;
  }
  std::vector<Id> idsOf(const std::string& sql) {
    std::vector<Id> ids;
    host::forEachRow(desk_.database(), sql,
                     [&](const host::Row& row) { ids.push_back(row.id("ScheduleID")); });
    return ids;
  }
  QString text(int row, int column) {
    return model_.data(model_.index(row, column), Qt::DisplayRole).toString();
  }

  static constexpr DateTime today = DateTime::of(2026, 4, 15);
  static std::unique_ptr<QTemporaryDir> folder_;
  DialogErrorClass errors_;
  DialogMsgbox messages_;
  host::HeadlessFormHost forms_;
  host::Desk desk_;
  TaskTableModel model_;
};

std::unique_ptr<QTemporaryDir> TaskTable::folder_;

TEST_F(TaskTable, ReadsPageByPageWhatOneStatementGives) {
  EXPECT_EQ(model_.rowCount(), 100) << "no more than is seen";
  const std::string open = "SELECT Schedule.ScheduleID FROM Schedule WHERE Schedule.Closed=False ";
  const std::vector<Id> byDate = idsOf(open + "ORDER BY Schedule.DueDate, Schedule.ScheduleID;");
  EXPECT_EQ(fetchAll(), byDate);
  model_.sort(TaskTableModel::dueDate, Qt::DescendingOrder);
  EXPECT_EQ(fetchAll(), std::vector<Id>(byDate.rbegin(), byDate.rend()));
  model_.sort(TaskTableModel::task, Qt::AscendingOrder);
  EXPECT_EQ(fetchAll(), idsOf(open + "ORDER BY Schedule.scheduleName, Schedule.ScheduleID;"));
  model_.sort(TaskTableModel::client, Qt::AscendingOrder);
  EXPECT_THAT(fetchAll(), testing::UnorderedElementsAreArray(byDate));
  for (int row = 1; row < model_.rowCount(); ++row) {
    // As bytes, which is how the engine orders what is not plain English.
    EXPECT_LE(plain(text(row - 1, TaskTableModel::client).toLower()).substr(0, 1),
              plain(text(row, TaskTableModel::client).toLower()).substr(0, 1));
  }
}

TEST_F(TaskTable, FiltersByClientAndTaskWithoutJokers) {
  const auto all = fetchAll().size();
  const QString part = text(3, TaskTableModel::client).left(4);
  for (const QString& filter :
       {part.toUpper(), QString("%"), QString("_"), QString("' OR 1=1 --"), QString("#")}) {
    model_.setFilter(filter);
    EXPECT_LT(fetchAll().size(), all) << plain(filter);
    for (int row = 0; row < model_.rowCount(); ++row) {
      EXPECT_TRUE((text(row, TaskTableModel::client) + text(row, TaskTableModel::task))
                      .contains(filter, Qt::CaseInsensitive));
    }
  }
  model_.setFilter(part.toUpper());
  EXPECT_GT(model_.rowCount(), 0);
  model_.setFilter("");
  EXPECT_EQ(fetchAll().size(), all);
}

TEST_F(TaskTable, IsAModelAsViewsExpectIt) {
  const QAbstractItemModelTester tester(&model_,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  fetchAll();
}

TEST_F(TaskTable, TellsTheStateOfEachTask) {
  std::map<std::string, int> states;
  fetchAll();
  for (int row = 0; row < model_.rowCount(); ++row) {
    const host::TaskLine& line = model_.lineAt(model_.index(row, 0));
    const QString state = text(row, TaskTableModel::state);
    ++states[plain(state)];
    EXPECT_EQ(state == "due", line.pendingChannels != 0 && line.notificationDate <= today);
    EXPECT_EQ(state == "scheduled", line.pendingChannels != 0 && line.notificationDate > today);
    EXPECT_EQ(text(row, TaskTableModel::notificationDate).isEmpty(), line.pendingChannels == 0);
  }
  for (const char* state : {"", "scheduled", "due", "sent"}) EXPECT_GT(states[state], 0) << state;
  EXPECT_EQ(states.size(), 4u);
  const std::map<QString, int> urgency{{"due", 0}, {"scheduled", 1}, {"sent", 2}, {"", 3}};
  const auto key = [&](int row, int column) {
    const QString value = text(row, column);
    if (column == TaskTableModel::state) return QString::number(urgency.at(value));
    return value.isEmpty() ? QString("none") : value;
  };
  const auto all = fetchAll();
  for (const int column : {TaskTableModel::state, TaskTableModel::notificationDate}) {
    model_.sort(column, Qt::AscendingOrder);
    const auto ascending = fetchAll();
    EXPECT_THAT(ascending, testing::UnorderedElementsAreArray(all));
    for (int row = 1; row < model_.rowCount(); ++row)
      EXPECT_LE(key(row - 1, column), key(row, column)) << row;
    model_.sort(column, Qt::DescendingOrder);
    EXPECT_EQ(fetchAll(), std::vector<Id>(ascending.rbegin(), ascending.rend()));
  }
  model_.setDueOnly(true);
  EXPECT_EQ(fetchAll().size(), static_cast<std::size_t>(states["due"]));
  for (int row = 0; row < model_.rowCount(); ++row)
    EXPECT_EQ(text(row, TaskTableModel::state), "due");
}

TEST_F(TaskTable, PassesOverWhatCannotBeReadAndNamesIt) {
  const std::vector<Id> all = fetchAll();
  ASSERT_GT(all.size(), 250u);
  auto& connection = static_cast<host::SqliteDatabase&>(desk_.database()).connection();
  connection.exec("BEGIN");
  // A whole page at the top, and one of a page further down.
  std::vector<Id> sound(all.begin() + 100, all.end());
  sound.erase(sound.begin() + 50);
  for (std::size_t i = 0; i <= 150; i += i < 99 ? 1 : 51)
    connection.exec("UPDATE Schedule SET ClientNum=2147483648 WHERE ScheduleID=" +
                    std::to_string(all[i]));
  model_.setFilter("");
  EXPECT_EQ(model_.rowCount(), 99) << "the first that can be seen";
  EXPECT_EQ(fetchAll(), sound);
  EXPECT_EQ(model_.unreadable().size(), 101u);
  EXPECT_EQ(model_.unreadable().begin()->row(), "Schedule " + std::to_string(all[0]));
  connection.exec("ROLLBACK");
  model_.reload();
  EXPECT_EQ(fetchAll(), all);
  EXPECT_TRUE(model_.unreadable().empty());
}

TEST_F(TaskTable, SaysWhenTheDatabaseIsGone) {
  QString said;
  QObject::connect(&model_, &TaskTableModel::failed, [&](const QString& words) { said = words; });
  static_cast<host::RecordsetDatabase&>(desk_.database()).close();
  model_.reload();
  EXPECT_EQ(model_.rowCount(), 0);
  EXPECT_FALSE(said.isEmpty());
}

}  // namespace
}  // namespace autonotify::desktop
