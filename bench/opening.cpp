#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>

#include "bench/Replay.h"
#include "bench/raw_rows.h"
#include "contract/references.h"
#include "editor/frmTaskAutoNotification.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_list_kinds.h"
#include "store/modNotificationLinks.h"
#include "wizards/frmSendNotificationWizardEmail.h"
#include "wizards/frmSendNotificationWizardLetter.h"

// A composer on a row that waits, and the editor of templates on a kind: the window is made,
// filled, shown for no time and unloaded. And the records that a merge reads.

namespace autonotify::bench {
namespace {

/// A person who looks at no window for long.
class PassingFormHost : public host::HeadlessFormHost {
 public:
  void showModal(Form& form, HostObject*) override { form.hide(); }
};

struct Execution {
  RawStatement statement;
  int steps;
};

/// Notes what the engine is asked for in the life of this: each statement with its values, and how
/// often it is stepped. All of it stands in a transaction, in which nothing is remembered.
class StatementTrace {
 public:
  explicit StatementTrace(sqlite3* connection) : connection_(connection) {
    sqlite3_exec(connection, "BEGIN", nullptr, nullptr, nullptr);
    sqlite3_trace_v2(connection, SQLITE_TRACE_STMT | SQLITE_TRACE_ROW | SQLITE_TRACE_PROFILE, note,
                     this);
  }
  ~StatementTrace() {
    sqlite3_trace_v2(connection_, 0, nullptr, nullptr);
    sqlite3_exec(connection_, "COMMIT", nullptr, nullptr, nullptr);
  }
  StatementTrace(const StatementTrace&) = delete;
  StatementTrace& operator=(const StatementTrace&) = delete;

  std::vector<Execution> prepare() const {
    std::vector<Execution> executions;
    for (const auto& [sql, steps] : noted_)
      executions.push_back({prepareRaw(connection_, sql), std::max(steps, 1)});
    return executions;
  }

 private:
  struct Noted {
    std::string sql;
    int steps = 0;
  };

  static int note(unsigned event, void* self, void* statement, void*) {
    static_cast<StatementTrace*>(self)->note(event, static_cast<sqlite3_stmt*>(statement));
    return 0;
  }
  void note(unsigned event, sqlite3_stmt* statement) {
    if (event == SQLITE_TRACE_STMT) {
      running_[statement] = noted_.size();
      char* const sql = sqlite3_expanded_sql(statement);
      noted_.push_back({sql});
      sqlite3_free(sql);
    } else if (event == SQLITE_TRACE_ROW || !sqlite3_stmt_busy(statement)) {
      // A row, or the step behind the last one; a statement that is given up ends without it.
      ++noted_[running_.at(statement)].steps;
    }
  }

  sqlite3* connection_;
  std::vector<Noted> noted_;
  std::map<sqlite3_stmt*, std::size_t> running_;
};

template <class Composer>
void openComposer(Id row) {
  Composer window;
  window.InitializeEditAutoNotify(remittanceNotification, row, Tasks, noId);
  window.unload();
}

void openEditor(Id kind) {
  frmTaskAutoNotification window;
  window.Initialize(kind);
  window.unload();
}

/// All that comes ahead of a letter's merge, and the end of it.
void openRecords(Id entry) {
  clsInsertFieldsInRTB merge;
  merge.put_MergeFieldListUse(field_list_use::merging);
  merge.ListType = field_list_type::task;
  merge.companyID = getCompanyIDFromScheduleID(entry);
  merge.contactID = clients().getDefaultContactID(merge.companyID);
  merge.put_scheduleID(entry);
  merge.initializeDataRecordsetsForSingleDocMerge();
}

/// Few, so that what the floor prepares for them all stays near the processor.
template <notifyType channel>
std::vector<Id> waitingRows(Firm& firm) {
  return firm.ids(
      "SELECT ClientNotificationID FROM ClientNotification WHERE NotificationSent=FALSE AND "
      "ScheduleIDNum>=0 AND NotificationType=" +
      std::to_string(channel) + " ORDER BY ClientNotificationID LIMIT 10");
}

std::vector<Id> firstEntries(Firm& firm) {
  const std::vector<Id>& all = firm.entries();
  return {all.begin(), all.begin() + 10};
}

std::vector<Id> kinds(Firm& firm) {
  return firm.ids("SELECT ScheduleTypeID FROM ScheduleTypes WHERE ScheduleNum>=0 LIMIT 10");
}

struct Opening {
  const char* name;
  Firm& (Firms::*firm)();
  /// What it is opened on.
  std::vector<Id> (*rows)(Firm& firm);
  void (*open)(Id row);
};
constexpr Opening openings[] = {
    {"email", &Firms::inMemory, waitingRows<nt_Email>,
     openComposer<frmSendNotificationWizardEmail>},
    {"letter", &Firms::inMemory, waitingRows<nt_Letter>,
     openComposer<frmSendNotificationWizardLetter>},
    {"records", &Firms::inMemory, firstEntries, openRecords},
    {"editor", &Firms::ofManyKinds, kinds, openEditor},
};

/// Calls `measured` with one of the items after the other, round and round.
template <class Item, class Measured>
void measureEach(benchmark::State& state, const std::vector<Item>& items, Measured&& measured) {
  for (const Item& item : items) measured(item);
  std::size_t next = 0;
  for (auto _ : state) {
    measured(items[next]);
    next = next + 1 == items.size() ? 0 : next + 1;
  }
}

Firm& attachedFirm(Firms& firms, const Opening& opening) {
  static PassingFormHost forms;
  Firm& firm = (firms.*opening.firm)();
  firm.attach();
  references().platform.formHost = &forms;
  return firm;
}

void openEach(benchmark::State& state, Firms& firms, const Opening& opening) {
  Firm& firm = attachedFirm(firms, opening);
  measureEach(state, opening.rows(firm), opening.open);
  firm.requireNoErrors();
}

/// The statements of an opening, once what is prepared for the first one is there.
std::vector<Execution> executionsOf(Firm& firm, const Opening& opening, Id row) {
  opening.open(row);
  const StatementTrace trace(firm.connection());
  opening.open(row);
  return trace.prepare();
}

void replay(const std::vector<Execution>& opening) {
  for (const auto& [statement, steps] : opening) {
    for (int i = 0; i < steps; ++i) sqlite3_step(statement.get());
    sqlite3_reset(statement.get());
  }
}

void replayEach(benchmark::State& state, Firms& firms, const Opening& opening) {
  Firm& firm = attachedFirm(firms, opening);
  std::vector<std::vector<Execution>> executions;
  for (const Id row : opening.rows(firm)) executions.push_back(executionsOf(firm, opening, row));
  measureEach(state, executions, replay);
  firm.requireNoErrors();
}

}  // namespace

void registerOpening(Firms& firms) {
  for (const Opening& opening : openings) {
    const std::string row = std::string("open_") + opening.name;
    addBenchmark(row + "/ours", [&](auto& state) { openEach(state, firms, opening); });
    addBenchmark(row + "/floor", [&](auto& state) { replayEach(state, firms, opening); });
  }
}

}  // namespace autonotify::bench
