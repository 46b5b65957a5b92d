#include "store_acts.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

// The procedures of the store and the channels on one office.

void fillOffice(TableRows rows) {
  addAllTold(rows, "store_office.txt", "office");
}

/// The calls of a table, each named by its arguments.
std::vector<WalkedOperation> operationsOf(const std::string& table) {
  static const Acts acts = storeActs();
  std::vector<WalkedOperation> all;
  for (const auto& row : rowsOf("operation_calls.txt", table, 2))
    all.push_back({replaceAll(row[1], "|", ", "), [&run = acts.at(row[0]), texts = split(row[1])](
                                                      TestHost&) { return run(texts); }});
  return all;
}

/// Writes down the procedures of the store and the channels that run, each with what it opens and
/// writes; one called by another that does neither is left out. The person goes on past failures.
class CallRecorder : public ScriptedErrorClass {
 public:
  explicit CallRecorder(HostCalls& calls) : calls_(calls) {
    calls_.record(true);
    answerRest(error_choice::next, 100);
  }
  void enterProcedure(std::string_view tag) override {
    writeCalls();
    ScriptedErrorClass::enterProcedure(tag);
    names_.push_back(std::string(tag.substr(tag.find('-') + 1)));
    if (depth() == 1) writeNames();
  }
  void leaveProcedure() override {
    writeCalls();
    names_.pop_back();
    written_ = std::min(written_, names_.size());
    ScriptedErrorClass::leaveProcedure();
  }
  void recordError(const PlatformError& error) override {
    writeCalls();
    write("error " + toText(error.number()));
    ScriptedErrorClass::recordError(error);
  }
  const std::string& text() const { return text_; }

 private:
  static bool startsWithOneOf(const std::string& text, std::initializer_list<const char*> starts) {
    return std::ranges::any_of(starts, [&](const char* start) { return text.starts_with(start); });
  }
  void writeCalls() {
    for (; seen_ < calls_.log().size(); ++seen_) {
      const std::string& line = calls_.log()[seen_];
      if (startsWithOneOf(line, {"openRecordset", "setFieldValue", "updateFieldValue",
                                 "saveNewRecord", "deleteRecord", "gotoBookmark"}))
        write(line);
    }
  }
  void write(const std::string& line) {
    if (!startsWithOneOf(names_.back(),
                         {"modAppt", "modChannel", "modNotificationLinks", "modNotifyClients"}))
      return;
    writeNames();
    text_ += std::string(2 * names_.size(), ' ') + line + "\n";
  }
  void writeNames() {
    for (; written_ < names_.size(); ++written_)
      text_ += std::string(2 * written_, ' ') + names_[written_] + "\n";
  }

  HostCalls& calls_;
  std::vector<std::string> names_;
  std::size_t written_ = 0, seen_ = 0;
  std::string text_;
};

/// The operation's procedure with its arguments, what it called, and its results.
std::string calledBy(const WalkedOperation& operation) {
  AttachedHost host(fillOffice);
  CallRecorder recorder(host.calls);
  references().errors = &recorder;
  const std::string result = operation.run(host);
  std::string text = recorder.text();
  text.insert(text.find('\n'), "(" + operation.name + ")");
  const std::string held = resultWhenLeft(operation.run, fillOffice, host.calls.count());
  return text + "= " + result + (held == result ? "" : ", left at last: " + held);
}

TEST(StoreOperations, CallTheHostAsItKnowsThem) {
  std::string text;
  for (const char* table : {"adds", "refused", "walked"}) {
    for (const WalkedOperation& operation : operationsOf(table)) {
      const std::string closed = resultWhenClosed(operation.run, fillOffice);
      text += replaceAll(calledBy(operation) + ", closed: " + closed + "\n\n", "\r\n", "\\n");
    }
  }
  expectGolden(AUTONOTIFY_TEST_FOLDER "operations.txt", text);
}

/// The operations in parts, each a test of its own, so that they may run side by side.
constexpr int parts = 8;
class StoreFaults : public testing::TestWithParam<int> {};

std::string written(TestHost& host) {
  return host.dumpWritten() + host.dump("SELECT notifyType, ClientNotifiedFlag FROM Appointments") +
         host.dump("SELECT notifyType, ClientNotifiedFlag FROM Dockets");
}

TEST_P(StoreFaults, LeaveNothingHalfDone) {
  const std::vector<WalkedOperation> all = operationsOf("walked");
  for (std::size_t i = GetParam(); i < all.size(); i += parts) {
    SCOPED_TRACE("(" + all[i].name + ") of the " + std::to_string(i) + "th");
    walkFaults({.run = all[i].run, .defaultResult = resultWhenClosed(all[i].run, fillOffice)},
               {fillOffice, written});
  }
}

INSTANTIATE_TEST_SUITE_P(Parts, StoreFaults, testing::Range(0, parts));

}  // namespace
}  // namespace autonotify::test
