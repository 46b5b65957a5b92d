#include "list/frmAutoNotifyList.h"
#include "platform/controls/Person.h"
#include "support/HostTest.h"

// Without a renderer alone: thousands of windows, and which message a person's act meets is
// counted.

namespace autonotify::test {
namespace {

#ifdef AUTONOTIFY_SANITIZE
constexpr int pumpStride = 6;
#else
constexpr int pumpStride = 1;
#endif

constexpr int listed = 20;
/// The pumps of an opening: the window paints itself, the columns are built, the load begins, and
/// then a row comes in at each.
constexpr int loadBegins = 7;
constexpr int lastRow = loadBegins + listed;

enum class End { loaded, cancelled, gone };

struct WindowAct {
  /// Without one it is the close box.
  const char* control;
  End end;
  /// Besides what is due; null for what was asked for before.
  const char* asksFor;
};
constexpr WindowAct windowActs[] = {
    {"imgTopBarButton(3)", End::loaded, ""},
    {"imgTopBarButton(4)", End::loaded, " and where the employee assigned is Jo"},
    {"cmdRefreshTaskGrid", End::loaded, nullptr},
    {"cmdCancelPopulatingList", End::cancelled, nullptr},
    {"cmdClose", End::gone, nullptr},
    {"", End::gone, nullptr}};

class ListMoments : public HostTest {
 protected:
  ListMoments() {
    addRow("AccountantEmployeeInfo", {{"ContactID", 7}, {"DisplayName", "Jo"}});
    for (int row = 0; row < listed; ++row) addNotification(noId, nt_Email, today());
  }

  /// Where the window and the control are there for a person.
  void perform(const WindowAct& act) {
    Form* list = findForm("frmAutoNotifyList");
    Control* control = list ? list->find(act.control) : nullptr;
    if (!list || (control && !control->isReachable())) return;
    done.push_back(&act);
    if (!control) Person(*list).closeBox();
    if (control) Person(*list).click(*control);
  }
  void plan(int pump, std::vector<const WindowAct*> acts) {
    screen.duringPump(pump, [this, acts] {
      for (const WindowAct* act : acts) perform(*act);
    });
  }
  /// What the window shows once it is open; "gone" where it is not there any more.
  std::string openList() {
    std::string shown = "gone";
    screen.expectWindow("frmAutoNotifyList", [&](WindowInUse& window) {
      auto& grid = dynamic_cast<frmAutoNotifyList&>(window.form()).AutoNotifyFlexGrid;
      shown = window.read("lblDisplay") + " " + std::to_string(grid.get_Rows());
      window.click("cmdClose");
    });
    frmAutoNotifyList list;
    list.Initialize();
    EXPECT_FALSE(list.isLoaded());
    EXPECT_EQ(screen.pointer(), Pointer::standard);
    screen.forgetPumps();
    return shown;
  }
  /// The last act counts; before the load has begun the ones that end the window alone.
  std::string wanted(int pump) {
    const char* asked = "";
    End end = End::loaded;
    for (const WindowAct* act : std::exchange(done, {})) {
      if (pump < loadBegins && act->end != End::gone) continue;
      end = act->end;
      if (act->asksFor) asked = act->asksFor;
    }
    if (end == End::gone) return "gone";
    if (end == End::cancelled) return "List Population Cancelled 0";
    return "All notifications not sent for the client notification dates on and before Wednesday, "
           "April 15, 2026" +
           (asked + (" " + std::to_string(listed)));
  }

  /// What went through.
  std::vector<const WindowAct*> done;
};

TEST_F(ListMoments, TakeAnyAct) {
  for (const WindowAct& act : windowActs) {
    for (int pump = 1; pump <= lastRow; ++pump) {
      plan(pump, {&act});
      const std::string shown = openList();
      EXPECT_EQ(shown, wanted(pump)) << act.control << " at " << pump;
    }
  }
}

TEST_F(ListMoments, TakeAnyTwoActsAtOnceAndOneBehindTheOther) {
  for (const WindowAct& first : windowActs) {
    for (const WindowAct& second : windowActs) {
      for (int pump = loadBegins; pump <= lastRow && !HasFailure(); pump += pumpStride) {
        SCOPED_TRACE(first.control + (", " + std::to_string(pump) + ": ") + second.control);
        plan(pump, {&first, &second});
        std::string shown = openList();
        EXPECT_EQ(shown, wanted(pump));
        plan(pump, {&first});
        plan(pump + 1, {&second});
        shown = openList();
        // A load that shall begin anew before its first row takes that one without a Cancel.
        if (pump > loadBegins) {
          EXPECT_EQ(std::ssize(done), first.end == End::loaded ? 2 : 1);
        }
        EXPECT_EQ(shown, wanted(pump));
      }
    }
  }
}

/// Its rows are neither sorted nor sent while they come in.
TEST_F(ListMoments, KeepTheGridOutOfReachDuringALoad) {
  for (int pump = loadBegins; pump <= lastRow; ++pump) {
    screen.duringPump(pump, [] {
      auto& list = dynamic_cast<frmAutoNotifyList&>(*findForm("frmAutoNotifyList"));
      Grid& grid = list.AutoNotifyFlexGrid;
      EXPECT_THROW(Person(list).clickHeading(grid, 9), std::logic_error);
      EXPECT_THROW(Person(list).clickCell(grid, 0, 18), std::logic_error);
    });
    openList();
  }
}

}  // namespace
}  // namespace autonotify::test
