#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/Value.h"
#include "support/host_calls.h"
#include "support/scripted_error_class.h"

namespace autonotify::test {

/// Writes down the procedures of the store and the channels that run, each with the statements that
/// it opens and what it writes; one called by another that does neither is left out. The person
/// goes on past every failure.
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
    for (; written_ < names_.size(); ++written_) {
      text_ += std::string(2 * written_, ' ') + names_[written_] + "\n";
    }
  }

  HostCalls& calls_;
  std::vector<std::string> names_;
  std::size_t written_ = 0;
  std::size_t seen_ = 0;
  std::string text_;
};

}  // namespace autonotify::test
