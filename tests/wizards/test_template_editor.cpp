#include "editor/frmTaskAutoNotification.h"
#include "platform/rich_text.h"
#include "support/HostTest.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

constexpr const char* windowName = "frmTaskAutoNotification";
const std::string tag = "Morvane.exe-frmTaskAutoNotification-";

/// The kinds of two families, and the fallback kind of a third without a row of its own; three
/// notifications of the first kind, of which the last is sent.
void fillEditorOffice(TableRows rows) {
  const auto add = [&](Id total, Id number, int place, const std::string& name) {
    rows.addRow("ScheduleTypes",
                {{"TotalNum", total},
                 {"ScheduleNum", number},
                 {"ScheduleTypeNum", place},
                 {"ScheduleTypeName", name},
                 {"NotificationComment", name + " is due, as every one of our clients knows."}});
  };
  add(103, 1, 2, "GST");
  add(101, 10, 9, "General");
  add(103, -1, 1, "Sales Tax");
  add(104, -1, 3, "Year End");
  add(104, 1, 4, "Review");
  add(103, 2, 8, "QST");
  const TestClient client = rows.addClient("Birch Ltd.", "Ann Lee");
  const Id entry =
      rows.addSchedule(103, 1, DateTime::of(2026, 4, 30), {{"ClientNum", client.clientNum}});
  rows.addTask(entry, "GST Return");
  for (const bool isSent : {false, false, true})
    rows.addNotification(entry, 4, DateTime::of(2026, 4, 23), isSent);
}

std::string firstLine(const std::string& text) {
  return text.substr(0, text.find_first_of("\r\n"));
}

TreeView& treeOf(WindowInUse& window) {
  return *dynamic_cast<TreeView*>(window.form().find("tvwTasks"));
}

int placeOf(WindowInUse& window, const char* control, const std::string& entry) {
  const std::vector<std::string> entries = window.entries(control);
  return static_cast<int>(std::ranges::find(entries, entry) - entries.begin());
}

/// The kind on show, the selected node, the text, and a star where it is not saved.
std::string look(WindowInUse& window) {
  const TreeView::Node* node = treeOf(window).selectedNode();
  return window.read("lblTaskName") + " [" + (node ? node->text : "") + "] " +
         firstLine(window.read("RichTextBox")) + (window.sees("lblChanged") ? " *" : "");
}

void choose(WindowInUse& window, const char* control, const std::string& entry) {
  const int place = placeOf(window, control, entry);
  if (place < std::ssize(window.entries(control))) window.choose(control, place);
}

/// A person cannot act below the progress; the program can be entered there all the same.
void useBelow(WindowInUse& window, const std::string& control) {
  EXPECT_THROW(window.click(control), std::logic_error) << "it lies below";
  Person program(window.form());
  control == "tvwTasks" ? program.choose(treeOf(window), placeOf(window, "tvwTasks", "QST"))
                        : program.click(*window.form().find(control));
}

/// One act of a person: a word and what it is about.
void act(TestHost& host, WindowInUse& window, const std::string& told) {
  const std::string word = told.substr(0, told.find(' '));
  const std::string rest = told.substr(std::min(told.size(), word.size() + 1));
  if (word == "write") window.type("RichTextBox", rest);
  if (word == "press") window.click("cmdNotifyComment(" + rest + ")");
  if (word == "node") choose(window, "tvwTasks", rest);
  if (word == "field") choose(window, "FieldList", rest);
  if (word == "arrow")
    Person(window.form()).moveTo(treeOf(window), placeOf(window, "tvwTasks", rest));
  if (word == "twice") Person(window.form()).doubleClick(treeOf(window));
  EXPECT_TRUE(word != "reads" || window.read(split(rest, '=')[0]) == split(rest, '=')[1]) << told;
  EXPECT_TRUE(word != "tag" || std::ranges::count(host.errors.tags(), tag + rest) > 0) << told;
  if (word == "close") window.click("cmdClose");
  if (word == "test") {
    host.screen.expectWindow("frmTestComment", [rest](WindowInUse& shown) {
      EXPECT_EQ(shown.read("rtbClientNotes"), rest);
      shown.click("cmdOk");
    });
    window.click("cmdNotifyComment(1)");
  }
  if (word == "try") {
    host.screen.expectWindow("frmTestComment", [](WindowInUse& shown) { shown.click("cmdOk"); });
    window.click("cmdNotifyComment(1)");
    host.screen.expectNoMoreWindows();
  }
  if (word == "shut") host.database.isClosed = true;
  if (word == "meanwhile")
    host.screen.duringPump(1, [&host, &window, rest] {
      EXPECT_EQ(host.screen.pointer(), Pointer::busy);
      for (const std::string& control : split(rest, ',')) useBelow(window, control);
    });
  if (word == "sql") host.plainDatabase->connection().exec(rest);
  if (word == "progress")
    host.screen.expectProgress("Resetting notification comments, Please wait ...",
                               [at = std::stoi(rest)](int value) mutable {
                                 return value == at && std::exchange(at, 0) != 0;
                               });
  if (word == "alone")
    host.registry.registerClass(ProgressDialog::className,
                                [] { return std::unique_ptr<HostObject>(); });
  for (const char choice : word == "settle" ? rest : "") host.errors.answer({choice - '0'});
}

/// Opens the window as told ("kind 1", "entry 103 2"), acts and closes it; gives what was seen.
std::string useEditor(TestHost& host, const std::string& opening, const std::string& acts) {
  std::string seen;
  host.screen.expectWindow(windowName, [&](WindowInUse& window) {
    for (const std::string& each : split(acts, ';')) act(host, window, each);
    seen = look(window);
    if (window.form().isVisible()) window.closeBox();
    if (window.form().isVisible()) window.form().hide();
  });
  const std::vector<std::string> how = split(opening, ' ');
  frmTaskAutoNotification editor;
  how[0] == "kind"
      ? editor.Initialize(std::stoi(how[1]))
      : editor.InitializeWithTotalNumAndScheduleNum(std::stoi(how[1]), std::stoi(how[2]));
  editor.unload();
  return seen;
}

/// name, opening, acts, what is said, seen at the end, stored as the first kind's text, texts of
/// the notifications, progress
using Use = std::vector<std::string>;

class EditorUses : public HostTest, public testing::WithParamInterface<Use> {
 protected:
  std::string textOf(const std::string& table, const char* column, const std::string& where) {
    const Value held = valueOf(table, column, where);
    return held.isNull() ? "" : firstLine(plainTextOf(toText(held)));
  }
};

TEST_P(EditorUses, SaveWhatIsToldAndAskBeforeTheRestGoes) {
  const Use& use = GetParam();
  fillEditorOffice(*this);
  for (const std::string& told : split(use[3], ';'))
    hear(told.substr(0, told.find(' ')), told.substr(told.find(' ') + 1));
  EXPECT_EQ(useEditor(*this, use[1], use[2]), use[4]);
  EXPECT_EQ(textOf("ScheduleTypes", "NotificationComment", "ScheduleTypeID=1"), use[5]);
  std::string memos;
  for (const char* row : {"1", "2", "3"})
    memos += textOf("ClientNotification", "Memo", std::string("ClientNotificationID=") + row) + ",";
  EXPECT_EQ(memos, use[6]);
  EXPECT_EQ(screen.progressSeen(), use[7]);
  EXPECT_EQ(screen.pointer(), Pointer::standard);
  EXPECT_EQ(rowCount("ScheduleTypes"), 6);
}

std::vector<Use> uses(const char* table) {
  return rowsOf("editor_uses.txt", table, 8);
}
INSTANTIATE_TEST_SUITE_P(Editor, EditorUses, testing::ValuesIn(uses("uses")),
                         [](const auto& use) { return use.param[0]; });

TEST_F(EditorUses, OffersTheKindsByFamilyAndTheFields) {
  fillEditorOffice(*this);
  plainDatabase->connection().exec("INSERT INTO ScheduleTypes (TotalNum) VALUES (99999999999)");
  screen.expectWindow(windowName, [this](WindowInUse& window) {
    EXPECT_THAT(logged("openRecordset"),
                testing::Contains(testing::EndsWith("TypeID=1;")).Times(2));
    EXPECT_EQ(window.form().caption(), "Edit Notification Templates");
    EXPECT_THAT(window.entries("tvwTasks"),
                testing::ElementsAre("Sales Tax", "GST", "QST", "Year End", "Review", "Other Kinds",
                                     "General"));
    EXPECT_THAT(window.entries("FieldList"),
                testing::IsSupersetOf({"[Task Info]", "Task Name", "Company Notes"}));
    window.click("cmdClose");
    EXPECT_FALSE(window.form().isLoaded());
  });
  calls.record(true);
  frmTaskAutoNotification().Initialize(1);
}

std::vector<WalkedOperation> walked() {
  std::vector<WalkedOperation> operations;
  for (const Use& use : uses("walks")) {
    const auto run = [use](TestHost& host) {
      host.screen.answerAll(true);
      return useEditor(host, use[1], use[2]);
    };
    operations.push_back({use[0], run, use[3]});
  }
  return operations;
}

class EditorFaults : public testing::TestWithParam<WalkedOperation> {};
TEST_P(EditorFaults, LeaveNothingHalfDone) {
  EXPECT_GT(walkFaults(GetParam(), {fillEditorOffice}), 4);
}
INSTANTIATE_TEST_SUITE_P(Editor, EditorFaults, testing::ValuesIn(walked()),
                         [](const auto& operation) { return operation.param.name; });

TEST(EditorStatements, StandAsHostsKnowThem) {
  expectStatements(walked(), fillEditorOffice, AUTONOTIFY_TEST_FOLDER "editor_statements.txt");
}

}  // namespace
}  // namespace autonotify::test
