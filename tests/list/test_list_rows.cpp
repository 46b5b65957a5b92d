#include "LoadedList.h"
#include "list/frmAutoNotifyList.h"
#include "platform/controls/Label.h"
#include "support/fault_walk.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

const std::string rowsFile = "list_cells.txt";
using Texts = std::string;

/// A list whose sends are counted.
struct SendingList : LoadedList {
  explicit SendingList(TestHost& onHost) : LoadedList(onHost) {
    list->hiddenCtrlBox = &label;
    list->showMVPreview = false;
  }
  void load() { list->requestPopulateInfo(); }
  /// The text of a cell, of a tick "yes" or "no"; nothing where there is none.
  std::string shown(int row, Id column) const {
    if (row >= grid.get_Rows() || column >= grid.get_Cols()) return {};
    if (column != list_column::sent) return grid.get_CellText(row, column);
    return grid.get_cellChecked(row, column) ? "yes" : "no";
  }
  void sentNotification() override { ++sends; }

  Label label{form, "lblHiddenCtrl"};
  int sends = 0;
};

class ListRows : public HostTest, public SendingList {
 protected:
  explicit ListRows(const char* office = "office") : SendingList(static_cast<TestHost&>(*this)) {
    addAllTold(*this, rowsFile, office);
  }

  void execute(const std::string& sql) { plainDatabase->connection().exec(sql); }
  /// The ids of the rows, of one digit each, that have a text there.
  std::string idsWithText(Id column = list_column::notification) {
    std::string ids;
    for (int row = 0; row < grid.get_Rows(); ++row)
      if (!shown(row, column).empty()) ids += grid.get_CellText(row, list_column::notification);
    return ids;
  }
};

TEST_F(ListRows, CellsShowAndSortByTheirNotification) {
  execute(
      "UPDATE ClientNotification SET ScheduleIDNum=NULL, TaskIDNum=NULL, ApptIDNum=NULL, "
      "CompanyIDNum=NULL, ContactIDNum=NULL, OperatingProcedureIDNum=NULL WHERE DocketIDNum=1");
  bool done = false;
  for (const bool isVisible : {true, false}) {
    for (Id id = list_column::clientId; id <= list_column::lastData; ++id)
      list->columnVisible(id, isVisible, done);
    load();
    for (const auto& each : rowsOf(rowsFile, "cells", 8)) {
      SCOPED_TRACE("column " + each[0] + (isVisible ? "" : ", hidden"));
      const Id column = std::stoi(each[0]);
      const bool isFilled = isVisible || cellAs<bool>(each[1]);
      for (int row = 0; row < 5; ++row)
        EXPECT_EQ(shown(row, column), isFilled ? each[2 + row] : "");
      grid.sort({column, sort_order::ascending}, {});
      EXPECT_EQ(isFilled && !each[7].empty() ? idsWithText(column) : each[7], each[7]);
      grid.sort({list_column::notification, sort_order::ascending}, {});
    }
  }
}

TEST_F(ListRows, TestsAreAskedOfRowsWithAClient) {
  for (const auto& [accountant, partner, employee, found] :
       casesOf<Texts, Texts, Texts, Texts>(rowsFile, "tests")) {
    list->searchAccountantName = accountant != "-";
    list->searchAccountantNameText = accountant;
    list->searchPartnerName = partner != "-";
    list->searchPartnerNameText = partner;
    list->searchEmployeeAssignedName = employee != "-";
    list->searchEmployeeAssignedNameText = employee;
    load();
    EXPECT_EQ(idsWithText(), found) << accountant << ", " << partner << ", " << employee;
  }
  execute("UPDATE ClientNotification SET NotificationType=1");
  list->refreshRowInfo(2, -1);
  EXPECT_EQ(shown(0, list_column::notificationType), "Email") << "its employee was found before";
}

TEST_F(ListRows, RowIsReadAgainWhereItStands) {
  list->searchAccountantName = true;
  list->searchAccountantNameText = "Bob Low";
  load();
  const auto told = [&](Id id, Id column, const std::string& name) {
    execute("UPDATE Schedule SET scheduleName='" + name + "'");
    list->refreshRowInfo(id, column);
    return shown(0, list_column::name) + "|" + shown(0, list_column::notificationType);
  };
  execute("UPDATE ClientNotification SET NotificationType=2");
  EXPECT_EQ(told(1, list_column::name, "HST"), "HST|Email");
  EXPECT_EQ(told(1, -1, "PST"), "PST|Fax");
  execute("DELETE FROM ClientNotification WHERE ClientNotificationID=2");
  execute("UPDATE Companies SET AccountantName='Someone'");
  addTold(*this, {"ClientNotification", "ContactIDNum=1"});
  for (const Id each : {1, 2, 6}) EXPECT_EQ(told(each, -1, "GST"), "PST|Fax") << each;
  execute("UPDATE ClientNotification SET NotificationDate='soon', NotificationSentStatus=1");
  errors.answer({error_choice::next, error_choice::leave});
  for (int read = 0; read < 2; ++read) list->refreshRowInfo(4, -1);
  EXPECT_EQ(shown(3, list_column::notifyOn) + shown(3, list_column::sentStatus), "Pending Send")
      << "a date that cannot be read leaves the rest of its row";
  closeDatabase();
  list->refreshRowInfo(3, -1);
  EXPECT_EQ(idsWithText() + shown(2, list_column::notificationType), "12345Letter");
  EXPECT_TRUE(grid.get_Redraw());
}

const auto listActs =
    casesOf<bool, std::int16_t, Texts, int, Id, Texts, Texts, Texts>(rowsFile, "acts");

class ListActs : public ListRows,
                 public testing::WithParamInterface<decltype(listActs)::value_type> {
 protected:
  ListActs() : ListRows("actions") {}

  void act(int row, Id column) {
    if (column < 0) return list->sendAll();
    if (column > list_column::lastData) return list->CellButtonClick(row, column);
    if (column == list_column::sent) grid.put_cellChecked(row, column, shown(row, column) == "no");
    list->AfterEdit(row, column, isTakenBack);
  }
  /// A composer with what is clicked in it, or a document.
  void expect(const std::string& window) {
    if (window.starts_with("dr"))
      return screen.expectReport(window, [](ReportInUse& shown) { shown.close(); });
    screen.expectWindow("frmSendNotificationWizard" + split(window, ' ')[0],
                        [window](WindowInUse& used) { used.click(split(window, ' ')[1]); });
  }
  /// The row in the database and in the list, and what else an act shows.
  std::string stateOf(int row) {
    std::string state = notification(
        row + 1, "NotificationSent, NotificationSentStatus, SentByUserIDNum, SentTime");
    state = replaceAll(replaceAll(state, "NULL", ""), "\n", " ");
    return state + shown(row, list_column::sent) + " " + std::to_string(sends) +
           (isTakenBack ? "" : " kept") + (label.visible() ? "" : " hidden");
  }
  bool isTakenBack = true;
};

TEST_P(ListActs, DoWhatTheRowAllows) {
  const auto& [preview, level, before, row, column, windows, message, state] = GetParam();
  list->showMVPreview = preview;
  plainLocale.settings().accessLevel = level;
  for (const std::string& window : split(windows, ';')) expect(window);
  const std::string text = message.empty() ? "" : message.substr(message.find(' ') + 1);
  mailProgram.sends = text != mailProgram.lastError;
  if (!text.empty()) screen.expectMessage(text, std::stoi(message));
  const bool isBusy = before == "during the load";
  if (isBusy) acts.emplace(2, [&, row = row, column = column] { act(row, column); });
  if (before.starts_with("UPDATE")) execute(before);
  load();
  if (before.starts_with("DELETE")) execute(before);
  database.isClosed = before == "closed";
  if (!isBusy) act(row, column);
  EXPECT_EQ(stateOf(row), state);
}

INSTANTIATE_TEST_SUITE_P(Rows, ListActs, testing::ValuesIn(listActs));

TEST_F(ListActs, EmailWithoutComposerGoesInTheOrderOfTheContract) {
  load();
  calls.record(true);
  act(0, list_column::sendNow);
  std::string told;
  for (const std::string& call : calls.log())
    if (!testing::Matches(testing::ContainsRegex("^(get|is|textOr|hasRec)"))(call))
      told += call.substr(0, call.find(" FROM")) + ";";
  EXPECT_THAT(told, testing::StartsWith(
                        "pumpMessages;pumpMessages;openRecordset 1,1 SELECT ClientNotification.*;"
                        "findRecord ClientNotificationID=1;errorClass;MsgboxClass;locale;database;"
                        "folder;to;cc;bcc;subject;body;send;closeRecordset;pumpMessages;"
                        "pumpMessages;openRecordset 1,3 SELECT ClientNotification.*;"));
  EXPECT_THAT(mailProgram.calls,
              testing::IsSupersetOf({"to=office@birch", "cc=file@firm",
                                     "bcc=", "subject=Your return", "body=It is due.\r\n"}));
}

TEST_F(ListActs, SendOutlivesTheListThatIsClosedMeanwhileAndNoneFollowsIt) {
  load();
  const std::weak_ptr<clsAutoNotifyFlexGrid> sending = list;
  screen.duringPump(1, [&] {
    leave();
    EXPECT_FALSE(sending.expired());
  });
  act(0, noId);
  EXPECT_TRUE(sending.expired() && rowCount("ClientNotification WHERE NotificationSent=1") == 1);
}

TEST_F(ListActs, NothingElseBeginsWhileARowIsAtWork) {
  execute("UPDATE ClientNotification SET NotificationType=1, NotificationSent=0");
  for (const bool isShown : {true, false}) {
    execute("UPDATE ClientNotification SET NotificationSent=1 WHERE ClientNotificationID=2");
    list->columnVisible(list_column::sent, isShown, isTakenBack);
    load();
    screen.duringPump(1, [&] {
      bool isRefused = false;
      list->BeforeEdit(4, list_column::sent, isRefused);
      EXPECT_TRUE(isRefused);
      for (const Id column : {list_column::sendNow, list_column::cancelSend, noId}) act(4, column);
      grid.sort({list_column::notification, sort_order::descending}, {});
    });
    mailProgram.calls.clear();
    act(0, list_column::sendNow);
    EXPECT_EQ(rowCount("ClientNotification WHERE NotificationSent=1"), 2);
    EXPECT_EQ(rowCount("ClientNotification WHERE NotificationSentStatus=2"), 1);
    act(0, noId);
    EXPECT_EQ(rowCount("ClientNotification WHERE NotificationSentStatus=2"), 4) << "one was sent";
    EXPECT_EQ(std::ranges::count(mailProgram.calls, "send="), 4) << "the sorted row twice";
    execute("UPDATE ClientNotification SET NotificationSent=0, NotificationSentStatus=1");
  }
}

/// A host with a list of the emails on it that is loaded.
struct ListHost : AttachedHost, SendingList {
  explicit ListHost(FillRows fill)
      : AttachedHost(fill), SendingList(static_cast<TestHost&>(*this)) {
    list->searchNotificationType = true;
    list->searchNotificationTypeNum = nt_Email;
    load();
  }
  /// The next window, in which the person clicks these and then leaves.
  void useWindow(const char* window, std::vector<const char*> controls) {
    screen.expectWindow(window, [controls](WindowInUse& used) {
      for (const char* each : controls)
        if (used.form().isVisible() && used.canUse(each)) used.click(each);
      if (used.form().isVisible()) used.closeBox();
    });
  }
  /// The next dialog of the grid's own, which the person does not cancel.
  void useDialog(GridDialog::Kind kind) {
    screen.expectGridDialog(kind, [](Grid&, auto&) { return false; });
  }
  /// What is listed, but for the tick of the first row.
  std::string state() const {
    std::string told = shown(0, list_column::sentStatus) + " " + rows();
    for (int column = 0; column < grid.get_Cols(); ++column)
      if (grid.showsColumn(column)) told += std::to_string(grid.get_ColWidth(column)) + " ";
    return told;
  }
};

struct WalkedAct {
  const char* name;
  void (*act)(ListHost& used);
  /// How many host calls it makes at least, and how many emails it may send at most.
  int calls = 4;
  int sends = 0;
  /// Whether the tick stays where the person leaves at once.
  bool isTicked = false;

  friend void PrintTo(const WalkedAct& walked, std::ostream* out) { *out << walked.name; }
};
constexpr WalkedAct walkedActs[] = {
    {"read",
     [](ListHost& used) {
       used.list->CellButtonClick(0, list_column::name);
       used.list->refreshRowInfo(1, -1);
     },
     40},
    {"send", [](ListHost& used) { used.list->CellButtonClick(0, list_column::sendNow); }, 40, 1},
    {"compose",
     [](ListHost& used) {
       used.list->showMVPreview = true;
       used.useWindow("frmSendNotificationWizardEmail", {"cmdFinish"});
       used.list->CellButtonClick(0, list_column::sendNow);
     },
     40, 1},
    {"cancel", [](ListHost& used) { used.list->CellButtonClick(0, list_column::cancelSend); }, 40},
    {"look",
     [](ListHost& used) {
       used.useWindow("frmSendNotificationWizardEmail", {"cmdFinish"});
       used.list->CellButtonClick(0, list_column::viewInfo);
     },
     40},
    {"tick",
     [](ListHost& used) {
       bool isTakenBack = false;
       used.grid.put_cellChecked(0, list_column::sent, true);
       used.list->AfterEdit(0, list_column::sent, isTakenBack);
     },
     40, 1, true},
    {"sendAll", [](ListHost& used) { used.list->sendAll(); }, 80, 2},
    {"chooser",
     [](ListHost& used) {
       used.useWindow("frmAutoNotifyChangeListColumns", {"chkField(13)", "cmdOk"});
       used.list->showChangeColumns();
     },
     40},
    {"gridOptions",
     [](ListHost& used) {
       used.useDialog(GridDialog::Kind::settings);
       used.list->showGridOptions();
     },
     40},
    {"printPreview",
     [](ListHost& used) {
       used.useDialog(GridDialog::Kind::printPreview);
       used.list->showGridPrintPreviewForm();
     },
     1},
    {"sendOptions",
     [](ListHost& used) {
       used.useWindow("frmSendAutoNotifyListOptions", {"chkMorvanePreview", "cmdOK"});
       used.list->showSendAutoNotifyListOptions();
     }},
    {"open",
     [](ListHost& used) {
       used.useWindow("frmAutoNotifyList", {"cmdClose"});
       frmAutoNotifyList list;
       list.Initialize();
       list.unload();
       EXPECT_FALSE(list.isLoaded());
     },
     80},
};

class ListActFaults : public testing::TestWithParam<WalkedAct> {};

TEST_P(ListActFaults, AreSettledAtTheErrorDialog) {
  const WalkedAct& walked = GetParam();
  const FillRows fill = [](TableRows rows) {
    addAllTold(rows, rowsFile, "actions");
    addTold(rows, {"ClientNotification", "NotificationType=1", "Field1=cara@birch"});
  };
  const auto run = [&](TestHost& host) {
    auto& used = dynamic_cast<ListHost&>(host);
    used.screen.answerAll(true);
    walked.act(used);
    EXPECT_LE(std::ranges::count(host.mailProgram.calls, "send="), walked.sends) << "sent twice";
    return used.shown(0, list_column::sent) + used.state();
  };
  const auto written = [](TestHost& host) {
    return host.dumpWritten() + host.dump("SELECT * FROM UserGridSettings2");
  };
  const auto makeHost = [](FillRows filled) { return std::make_unique<ListHost>(filled); };
  const std::string before = (walked.isTicked ? "yes" : "no") + ListHost(fill).state();
  EXPECT_GE(walkFaults({walked.name, run, before}, {fill, written, makeHost}), walked.calls);
}

INSTANTIATE_TEST_SUITE_P(Acts, ListActFaults, testing::ValuesIn(walkedActs),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace autonotify::test
