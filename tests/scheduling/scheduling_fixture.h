#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/services/HostValidationUtilities.h"
#include "scheduling/rows.h"
#include "support/TestHost.h"

namespace autonotify::test {

/// A test on an empty database. At its end no expected question may be left unasked.
class SchedulingTest : public testing::Test {
 protected:
  SchedulingTest() { host_.attach(); }
  ~SchedulingTest() override { EXPECT_EQ(errors().answersLeft(), 0u); }

  TestHost& host() { return host_; }
  ScriptedErrorClass& errors() { return host_.errors; }
  void setFirmCode(const std::string& code) { host_.plainLocale.settings().firmCode = code; }
  void closeDatabase() { host_.plainDatabase->close(); }

  /// From now on every day counts as a weekend day.
  void closeEveryDay() {
    class NoOpenDay : public host::HostValidationUtilities {
      bool isWeekend(DateTime) override { return true; }
    };
    references().validationUtilities = std::make_unique<NoOpenDay>();
  }

  /// The columns that `operation` writes one by one, each as "name=text".
  template <class Operation>
  std::vector<std::string> columnsWrittenBy(Operation&& operation) {
    return callsOf("updateFieldValue ", operation);
  }

  /// The recorded calls that start with `start`, without it.
  template <class Operation>
  std::vector<std::string> callsOf(const std::string& start, Operation&& operation) {
    host_.calls.reset();
    host_.calls.record(true);
    operation();
    std::vector<std::string> found;
    for (const std::string& line : host_.calls.log()) {
      if (line.starts_with(start)) found.push_back(line.substr(start.size()));
    }
    return found;
  }

  int rowCount(const std::string& table, const std::string& where) {
    return std::stoi(host_.dump("SELECT COUNT(*) FROM " + table + " WHERE " + where));
  }
  static DateTime dateOf(Id notificationID) {
    return toDateTime(valueOf("ClientNotification", "NotificationDate",
                              "ClientNotificationID=" + std::to_string(notificationID)));
  }

 private:
  TestHost host_;
};

}  // namespace autonotify::test
