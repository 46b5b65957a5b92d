#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <functional>

#include "bench/Replay.h"
#include "bench/raw_rows.h"
#include "contract/references.h"
#include "list/clsAutoNotifyFlexGrid.h"
#include "list/frmAutoNotifyList.h"

// The window of notifications loads all that a firm has.

namespace autonotify::bench {
namespace {

/// Gives milliseconds.
using TellTime = double (*)();

double ofTheWall() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::milli>(now).count();
}
/// A busy machine disturbs it least; asking costs a third of a microsecond.
double ofTheProcessor() {
  return static_cast<double>(std::clock()) * 1e3 / CLOCKS_PER_SEC;
}

double bytesInUse() {
  const struct mallinfo2 memory = mallinfo2();
  return static_cast<double>(memory.uordblks + memory.hblkhd);
}

/// No message ever waits: a step looks at the clock. It notes the longest time without one.
class WatchedPump : public host::HeadlessFormHost {
 public:
  explicit WatchedPump(TellTime time) : time_(time) {}

  /// Once, in the step with this number from now on.
  void actAt(int step, std::function<void()> act) {
    left_ = step;
    act_ = std::move(act);
  }
  void begin() {
    last_ = time_();
    longest_ = 0;
  }
  double longestPause() const { return longest_; }

  void pumpMessages() override {
    const double now = time_();
    longest_ = std::max(longest_, now - last_);
    last_ = now;
    if (--left_ == 0) act_();
  }

 private:
  TellTime time_;
  double last_ = 0;
  double longest_ = 0;
  int left_ = 0;
  std::function<void()> act_;
};

enum class Columns { byDefault, all };

/// The window with a controller that asks for all notifications.
class OpenList {
 public:
  OpenList(Firm& firm, WatchedPump& pump, Columns columns) : firm_(firm), pump_(pump) {
    firm.attach();
    references().platform.formHost = &pump;
    window_ = std::make_unique<frmAutoNotifyList>();
    controller_ = std::make_shared<clsAutoNotifyFlexGrid>(*window_);
    controller_->put_flexGrid(&window_->AutoNotifyFlexGrid);
    controller_->searchNotificationSent = false;
    if (columns == Columns::all) showAll(*controller_->columns());
  }
  ~OpenList() {
    controller_->leaveWindow();
    window_->unload();
  }
  OpenList(const OpenList&) = delete;
  OpenList& operator=(const OpenList&) = delete;

  void load() {
    pump_.begin();
    controller_->requestPopulateInfo();
    pump_.pumpMessages();
    firm_.requireNoErrors();
  }
  int rows() const { return window_->AutoNotifyFlexGrid.get_Rows(); }
  void cancel() { controller_->cancelAndClearCurrentPopulating(); }

 private:
  static void showAll(GridColumnList& columns) {
    for (Id column = list_column::clientId; column <= list_column::lastData; ++column) {
      columns.selectEntry(column);
      columns.setItem(column_item::visible, true);
    }
  }

  Firm& firm_;
  WatchedPump& pump_;
  std::unique_ptr<frmAutoNotifyList> window_;
  std::shared_ptr<clsAutoNotifyFlexGrid> controller_;
};

void load(benchmark::State& state, Firm& firm, Columns columns, TellTime time = ofTheWall) {
  WatchedPump pump(time);
  OpenList list(firm, pump, columns);
  double longestPause = 0;
  const double before = bytesInUse();
  for (auto _ : state) {
    list.load();
    longestPause = std::max(longestPause, pump.longestPause());
  }
  state.counters["rows"] = list.rows();
  state.counters["bytes_a_row"] = (bytesInUse() - before) / list.rows();
  state.counters["longest_pause_ms"] = longestPause;
}

/// From the press of Cancel, in the middle of a load, until the window answers.
void cancel(benchmark::State& state, Firm& firm) {
  WatchedPump pump(ofTheWall);
  OpenList list(firm, pump, Columns::all);
  for (auto _ : state) {
    double pressed = 0;
    pump.actAt(50'000, [&] {
      pressed = ofTheWall();
      list.cancel();
    });
    list.load();
    state.SetIterationTime((ofTheWall() - pressed) / 1e3);
    if (list.rows() != 0) throw std::logic_error("The load went on after it was cancelled");
  }
}

// The floor: the same columns in one scan, and each name by its key.

constexpr const char* keyColumns =
    "ClientNotificationID, CompanyIDNum, ContactIDNum, ScheduleIDNum, TaskIDNum, ApptIDNum, "
    "DocketIDNum, OperatingProcedureIDNum, NotificationType, NotificationDate, NotificationSent, "
    "NotificationSentStatus, SentTime";
constexpr const char* moreColumns = ", DateCreated, CreatedByUserIDNum, SentByUserIDNum";

/// False when there is no row with this key.
bool readByKey(sqlite3_stmt* statement, int key) {
  sqlite3_bind_int(statement, 1, key);
  const bool found = sqlite3_step(statement) == SQLITE_ROW;
  for (int i = 0; found && i < sqlite3_column_count(statement); ++i) readRaw(statement, i);
  sqlite3_reset(statement);
  return found;
}

void scan(benchmark::State& state, Firm& firm, Columns columns) {
  const bool isAll = columns == Columns::all;
  const std::string read = keyColumns + std::string(isAll ? moreColumns : "");
  const std::string named = isAll ? "SELECT scheduleName, EmployeeAssigned" : "SELECT scheduleName";
  const RawStatement rows =
      prepareRaw(firm.connection(),
                 "SELECT " + read + " FROM ClientNotification ORDER BY ClientNotificationID");
  const RawStatement name =
      prepareRaw(firm.connection(), named + " FROM Schedule WHERE ScheduleID=?");
  const RawStatement formerName = prepareRaw(
      firm.connection(), "SELECT scheduleName FROM archiveSchedule WHERE oldScheduleID=?");
  const int count = sqlite3_column_count(rows.get());
  WatchedPump pump(ofTheWall);
  for (auto _ : state) {
    while (sqlite3_step(rows.get()) == SQLITE_ROW) {
      for (int i = 0; i < count; ++i) readRaw(rows.get(), i);
      const int entry = sqlite3_column_int(rows.get(), 3);
      if (!readByKey(name.get(), entry)) readByKey(formerName.get(), entry);
      pump.pumpMessages();
    }
    sqlite3_reset(rows.get());
  }
}

}  // namespace

void registerListLoad(Firms& firms) {
  const auto add = [](const std::string& name, const Measured& run) {
    return addBenchmark(name, run)->Unit(benchmark::kMillisecond);
  };
  for (const auto& [name, columns] :
       {std::pair{"list_default", Columns::byDefault}, {"list_all", Columns::all}}) {
    const auto ours = [&firms, columns = columns](auto& s) {
      load(s, firms.ofManyNotifications(), columns);
    };
    add(std::string(name) + "/ours", ours);
    add(std::string(name) + "/floor",
        [&firms, columns = columns](auto& s) { scan(s, firms.ofManyNotifications(), columns); });
  }
  add("list_million/ours", [&](auto& s) {
    load(s, firms.ofManyYears(), Columns::byDefault, ofTheProcessor);
  })->Iterations(1);
  add("list_cancel/ours", [&](auto& s) { cancel(s, firms.ofManyNotifications()); })
      ->UseManualTime()
      ->Iterations(3);
}

}  // namespace autonotify::bench
