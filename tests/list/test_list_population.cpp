#include "LoadedList.h"
#include "support/fault_walk.h"
#include "support/golden_file.h"

namespace autonotify::test {
namespace {

using List = clsAutoNotifyFlexGrid;

/// Every act of a walk, under sanitizers, which slow it down, one in so many.
#ifdef AUTONOTIFY_SANITIZE
constexpr int stride = 5;
#else
constexpr int stride = 1;
#endif

constexpr int rows = 20;

/// The ids up to this one, as the rows of a list tell them.
std::string idsUpTo(int last, int step = 1) {
  std::string ids;
  for (int id = 1; id <= last; id += step) ids += std::to_string(id) + " ";
  return ids;
}
const std::string allIds = idsUpTo(rows);

/// Fails the queries for rows, so many times, and knows how many recordsets are open.
struct FailingRows : CountedDatabase {
  using CountedDatabase::CountedDatabase;
  bool moveNext(RecordsetHandle handle) override {
    if (beforeMove) beforeMove();
    return CountedDatabase::moveNext(handle);
  }
  RecordsetHandle openRecordset(Text sql, CursorMode cursor, LockMode lock, int r1, Text r2, int r3,
                                bool r4) override {
    if (sql.starts_with("SELECT ClientNotification.* ") && failures-- > 0)
      throw PlatformError(1, "The query failed");
    ++open;
    return CountedDatabase::openRecordset(sql, cursor, lock, r1, r2, r3, r4);
  }
  void closeRecordset(RecordsetHandle handle) override {
    --open;
    CountedDatabase::closeRecordset(handle);
  }
  int failures = 0;
  int open = 0;
  std::function<void()> beforeMove;
};

/// Knows whether a batch of look-ups is under way.
struct BatchedClients : CountedClients {
  using CountedClients::CountedClients;
  void setClientLookupBatch(bool on) override {
    isBatch = on;
    CountedClients::setClientLookupBatch(on);
  }
  bool isBatch = false;
};

void askForChannel(List& list, Id channel) {
  list.searchNotificationType = true;
  list.searchNotificationTypeNum = channel;
  list.requestPopulateInfo();
}

/// What a person asks for while rows come in.
struct Act {
  const char* name;
  void (*run)(LoadedList& window);
};
constexpr Act acts[] = {
    {"cancel", [](LoadedList& window) { window.list->cancelAndClearCurrentPopulating(); }},
    {"refresh", [](LoadedList& window) { window.list->requestPopulateInfo(); }},
    {"preset", [](LoadedList& window) { askForChannel(*window.list, nt_Email); }},
    {"reset", [](LoadedList& window) { window.list->resetTaskListToDefault(); }},
    {"close", [](LoadedList& window) { window.list->cancelCurrentPopulatingAndCloseParentForm(); }},
    {"close box", [](LoadedList& window) {
       window.list->cancelCurrentPopulatingAndCloseParentForm();
       if (window.list) window.closeGridParentForm();
     }}};

class ListLoadTest : public HostTest {
 protected:
  ListLoadTest() {
    for (int i = 0; i < rows; ++i)
      addRow("ClientNotification", {{"NotificationType", i < rows - 2 ? i % 2 + 1 : 8}});
    references().databaseReference = &failing;
    references().clientDropDown = &batched;
  }
  /// Two acts, each at one of the steps of progress; the last that began is the one that counts.
  /// After a query that fails the first step is the building of the columns.
  void act(bool fails, const Act& first, int step, const Act* second = nullptr, int later = 0) {
    LoadedList window(*this);
    failing.failures = fails;
    if (fails) errors.answer({error_choice::next});
    const std::weak_ptr<List> list = window.list;
    std::string last = "refresh";
    bool isLoading = true;
    const auto plan = [&](const Act& each, int at) {
      window.acts.emplace(at, [&, at] {
        isLoading =
            screen.pointer() == Pointer::busy && window.grid.get_Cols() > 0 && at > int{fails};
        // Where no load runs there is nothing to cancel but what was to follow.
        last = &each != &acts[0] || isLoading ? each.name : "refresh";
        each.run(window);
      });
    };
    plan(first, step);
    if (second) plan(*second, later);
    window.list->requestPopulateInfo();
    const bool isClosed = last.starts_with("close");
    EXPECT_EQ(failing.open, 0);
    EXPECT_EQ(screen.pointer(), Pointer::standard);
    // What a query that fails leaves open, a window that goes ends.
    EXPECT_TRUE((fails && isClosed) || window.grid.get_Redraw());
    EXPECT_TRUE((fails && isClosed) || !batched.isBatch);
    EXPECT_EQ(window.grid.get_Cols(), list_column::count);
    EXPECT_EQ(list.expired(), isClosed);
    EXPECT_TRUE(second || (!isClosed && last != "cancel") ||
                window.steps <= std::max(step, 2 + fails));
    EXPECT_TRUE(!isClosed || !isLoading || window.rows().empty());
    if (isClosed) return;
    const std::string all = window.list->searchNotificationType ? idsUpTo(rows - 2, 2) : allIds;
    EXPECT_EQ(window.rows(), last == "cancel" ? "" : all);
    if (second) return;
    window.list->requestPopulateInfo();
    EXPECT_EQ(window.rows(), all);
  }
  HostCalls server;
  CountedDatabase served{*plainDatabase, server};
  FailingRows failing{served, calls};
  BatchedClients batched{plainClients, calls};
};

TEST_F(ListLoadTest, GoesStepByStep) {
  LoadedList window(*this);
  window.list->searchEmployeeAssignedName = true;
  window.list->searchEmployeeAssignedNameText = "O'Hara";
  std::string text;
  for (const Id channel : {nt_Letter, nt_Phone}) {
    calls.reset();
    calls.record(true);
    window.events = {{0, "\n"}};
    askForChannel(*window.list, channel);
    auto event = window.events.begin();
    for (std::size_t i = 0; i <= calls.log().size(); ++i) {
      for (; event != window.events.end() && event->first == i; ++event) text += event->second;
      for (const char* told : {"openRecordset", "closeRecordset", "setClientLookup", "setPointer"})
        if (i < calls.log().size() && calls.log()[i].starts_with(told))
          text += calls.log()[i] + "\n";
    }
  }
  expectGolden(AUTONOTIFY_TEST_FOLDER "list_load.txt", text);
  failing.isClosed = true;
  window.events.clear();
  window.list->requestPopulateInfo();
  EXPECT_EQ(window.events.size(), 3u);
  EXPECT_EQ(screen.pointer(), Pointer::standard);
}

TEST_F(ListLoadTest, FollowsWhatWasAskedForLastAtAnyStep) {
  const auto follow = [&](bool fails, const Act& first, int step) {
    SCOPED_TRACE(first.name + (" at " + std::to_string(step)) + (fails ? ", fails" : ""));
    act(fails, first, step);
    for (const Act& second : acts) {
      for (int later = step; later <= step + 2 && !HasFailure(); ++later) {
        SCOPED_TRACE(second.name + (" at " + std::to_string(later)));
        act(fails, first, step, &second, later);
      }
    }
  };
  for (const bool fails : {false, true})
    for (const Act& first : acts)
      for (int step = 1; step <= rows + 1 && !HasFailure(); step += stride)
        follow(fails, first, step);
}

TEST_F(ListLoadTest, QueryThatFailsBringsTheDefaultsBackOnce) {
  for (const int failures : {1, 2}) {
    LoadedList window(*this);
    bool done = false;
    for (const int again : {1, 2}) {
      window.list->columnVisible(list_column::created, true, done);
      failing.failures = failures;
      for (int i = 0; i < failures; ++i) errors.answer({error_choice::next});
      window.list->requestPopulateInfo();
      const bool isLoaded = failures == 1;
      EXPECT_EQ(window.rows(), isLoaded ? allIds : "") << again;
      EXPECT_EQ(window.grid.get_Redraw(), isLoaded);
      EXPECT_NE(batched.isBatch, isLoaded);
      EXPECT_EQ(window.list->displayText(), "");
      EXPECT_FALSE(window.grid.get_colVisible(list_column::created));
      EXPECT_EQ(window.events.end()[-3].second.substr(2), "numberOfEntries 0\n");
    }
  }
}

TEST_F(ListLoadTest, LoadThatWasLeftCanBeAskedForAgain) {
  LoadedList window(*this);
  failing.failures = 1;
  errors.answer({error_choice::leave});
  window.list->requestPopulateInfo();
  EXPECT_EQ(window.rows(), "");
  window.list->requestPopulateInfo();
  EXPECT_EQ(window.rows(), allIds);
}

/// Whatever the person answers, the rows that have come by then stay.
TEST_F(ListLoadTest, ServerThatGoesAwayDuringALoadCanComeBack) {
  for (const int choice : {error_choice::leave, error_choice::next}) {
    for (int moves : {1, 2, 7, rows}) {
      SCOPED_TRACE("choice " + std::to_string(choice) + " at " + std::to_string(moves));
      server.reset();
      LoadedList window(*this);
      const std::string read = idsUpTo(moves);
      failing.beforeMove = [&] {
        if (--moves == 0) server.failAll();
      };
      errors.answerRest(choice, rows);
      window.list->requestPopulateInfo();
      EXPECT_GT(server.failures(), 0);
      EXPECT_EQ(window.rows(), read);
      EXPECT_EQ(window.grid.get_Redraw(), choice == error_choice::next);
      server.reset();
      errors.answerRest(choice, 0);
      window.list->requestPopulateInfo();
      EXPECT_EQ(window.rows(), allIds);
      EXPECT_TRUE(window.grid.get_Redraw());
      EXPECT_EQ(screen.pointer(), Pointer::standard);
      EXPECT_FALSE(batched.isBatch);
    }
  }
}

TEST_F(ListLoadTest, WindowThatHasGoneNeedsNoRows) {
  LoadedList window(*this);
  window.acts.emplace(1, [&] { acts[5].run(window); });
  window.list->resetTaskListToDefault();
  EXPECT_EQ(window.rows(), "");
}

void fillOne(TableRows rows) {
  rows.addRow("ClientNotification", {{"NotificationType", nt_Fax}});
}

/// A person who leaves the reading of the settings has no columns, until the list is reset.
TEST(ListFaults, AreSettledAtTheErrorDialog) {
  const auto walk = [](const char* name, const char* byDefault, void (*act)(List&)) {
    const auto run = [act](TestHost& host) {
      LoadedList window(host);
      act(*window.list);
      return window.rows();
    };
    const auto written = [](TestHost& host) {
      return host.dump("SELECT * FROM UserGridSettings2");
    };
    EXPECT_GE(walkFaults({name, run, byDefault}, {fillOne, written}), 40) << name;
  };
  walk("request", "", [](List& list) {
    list.searchEmployeeAssignedName = true;
    list.searchEmployeeAssignedNameText = "Ann";
    list.requestPopulateInfo();
  });
  walk("reset", "1 ", [](List& list) { list.resetTaskListToDefault(); });
  walk("put", "", [](List& list) { list.putFlexGridInformation(); });
}

}  // namespace
}  // namespace autonotify::test
