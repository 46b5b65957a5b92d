#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "control/contract/recordsets.h"
#include "store/rows.h"
#include "support/TestHost.h"

namespace autonotify::test {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// The user of the test host.
inline constexpr Id currentUser = 7;

/// A host whose list of open windows is set by the test.
class OpenForms : public FormHost {
 public:
  std::vector<Form*> openForms() override { return open; }
  void pumpMessages() override {}
  std::vector<Form*> open;
};

/// A test on an empty database. Rows are added and read past the counting.
class StoreTest : public testing::Test {
 protected:
  StoreTest() {
    host_.attach();
    references().platform.formHost = &forms_;
  }

  HostCalls& calls() { return host_.calls; }
  ScriptedErrorClass& errors() { return host_.errors; }
  OpenForms& forms() { return forms_; }
  host::ClassRegistry& registry() { return host_.registry; }
  host::LocaleSettings& localeSettings() { return host_.plainLocale.settings(); }
  DateTime today() { return host_.clock.today(); }

  /// What the component sees of the database until openDatabase().
  void closeDatabase() { references().databaseReference = &closed_; }
  void openDatabase() { references().databaseReference = &host_.database; }

  Id addTestRow(const char* table, const char* keyColumn, const RowFields& fields) {
    return addRowTo(*host_.plainDatabase, table, keyColumn, fields);
  }
  Value valueOf(const std::string& table, const std::string& column, const std::string& where) {
    return readRowOf(*host_.plainDatabase, table, column, where);
  }
  int rowCount(const std::string& table, const std::string& where) {
    const std::string rows = host_.dump("SELECT 1 FROM " + table + " WHERE " + where);
    return static_cast<int>(rows.size() / std::string("1|\n").size());
  }
  Id addCompany(const std::string& name) {
    return addTestRow("Companies", "CompanyID", {{"CompanyName", name}});
  }
  Id addNotification(Id scheduleId, int channel, DateTime date, bool sent = false) {
    return addTestRow("ClientNotification", "ClientNotificationID",
                      {{"ScheduleIDNum", std::to_string(scheduleId)},
                       {"NotificationType", std::to_string(channel)},
                       {"NotificationDate", toText(date)},
                       {"NotificationSent", sent ? "True" : "False"}});
  }

  /// The recorded calls of the operation, without its name.
  std::vector<std::string> logged(const std::string& operation) {
    std::vector<std::string> found;
    for (const std::string& line : calls().log()) {
      if (line.starts_with(operation + " ")) found.push_back(line.substr(operation.size() + 1));
    }
    return found;
  }
  /// The recorded statements that read the table.
  std::vector<std::string> statementsOn(const std::string& table) {
    std::vector<std::string> found;
    for (const std::string& sql : logged("openRecordset")) {
      if (sql.find("rom " + table + " ") != std::string::npos ||
          sql.find("ROM " + table + " ") != std::string::npos) {
        found.push_back(sql);
      }
    }
    return found;
  }
  /// Which host call, counted from 1, was the `nth` that starts with `start`.
  int callNumber(const std::string& start, int nth) {
    const auto& log = calls().log();
    for (std::size_t i = 0; i < log.size(); ++i) {
      if (log[i].starts_with(start) && --nth == 0) return static_cast<int>(i) + 1;
    }
    ADD_FAILURE() << "no such call: " << start;
    return 0;
  }

 private:
  class ClosedDatabase : public CountedDatabase {
   public:
    using CountedDatabase::CountedDatabase;
    bool isDatabaseOpen() override { return false; }
  };

  TestHost host_;
  ClosedDatabase closed_{*host_.plainDatabase, host_.calls};
  OpenForms forms_;
};

}  // namespace autonotify::test
