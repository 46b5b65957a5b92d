#include "merge/merge_host.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

constexpr const char* letter =
    "Dear «Contact Display Name», «Company Name» of «Contact Business City» is due on "
    "«(Task Due Date, mmmm d, yyyy)» («Business Number», «Software Name», «Time Duration»).";

struct Client {
  Id company;
  Id contact;
  Id task;
};

/// The same keys on every fresh host.
constexpr Client client{1, 1, 1};

void addClient(TestHost& host) {
  addRowTo(host, "Companies", "CompanyID", {{"CompanyName", "Elm Ltd."}, {"City", "Guelph"}});
  addRowTo(host, "ClientData", "ClientDataID", {{"CompanyIDNum", "1"}});
  addRowTo(host, "Contacts", "ContactID",
           {{"DisplayName", "Anna Lee"}, {"InheritCompanyInfo", "True"}});
  addRowTo(host, "Schedule", "ScheduleID", {{"DueDate", "2026-04-30"}, {"ClientNum", "1"}});
  addRowTo(host, "Tasks", "TaskID", {{"ScheduleIDNum", "1"}, {"Subject", "GST"}});
  addRowTo(host, "Appointments", "AppointmentID", {{"TimeFrom", "9:00"}, {"TimeTo", "9:45"}});
}

void setUp(clsInsertFieldsInRTB& merge) {
  merge.ListType = 8;
  merge.companyID = client.company;
  merge.contactID = client.contact;
  merge.taskID = client.task;
  merge.appointmentID = 1;
  merge.TemplateText = letter;
  merge.initializeDataRecordsetsForSingleDocMerge();
}

TEST(MergeFaults, AMergeSurvivesEachFailedCall) {
  const FaultWalkReport report = walkFaults({
      .prepare = addClient,
      .run =
          [](TestHost&) {
            clsInsertFieldsInRTB merge;
            setUp(merge);
            return merge.parseRTBComment();
          },
      // The set-up is left, so that the list is empty and every field vanishes.
      .defaultResult = "Dear ,  of  is due on  (, , ).",
      .written = [](TestHost&) { return std::string{}; },
      .makeHost =
          [] {
            auto host = std::make_unique<TestHost>();
            host->attach();
            return host;
          },
  });
  EXPECT_GT(report.hostCalls, 50);
}

class MergeFault : public MergeHost {
 protected:
  MergeFault() {
    addClient(host);
    setUp(*merge);
  }

  /// Merges with the read of one column failing once, which is answered with `choice`.
  std::string mergedWithFailedRead(const std::string& column, int choice) {
    beginRecord();
    merge->parseRTBComment();
    const auto& log = host.calls.log();
    const auto read = std::find(log.begin(), log.end(), "getFieldValue " + column);
    const int call = static_cast<int>(read - log.begin()) + 1;
    host.calls.reset();
    host.calls.failAt(call);
    host.errors.answer({choice});
    return merge->parseRTBComment();
  }
};

TEST_F(MergeFault, AFailedReadCostsOneFieldAtMost) {
  const std::string whole =
      "Dear Anna Lee, Elm Ltd. of Guelph is due on April 30, 2026 ( , , 45 min).";
  ASSERT_EQ(merge->parseRTBComment(), whole);
  for (const int choice : {error_choice::next, error_choice::leave})
    EXPECT_EQ(mergedWithFailedRead("CompanyName", choice),
              "Dear Anna Lee,  of Guelph is due on April 30, 2026 ( , , 45 min).");
  for (const int choice : {error_choice::quit, 9})
    EXPECT_EQ(mergedWithFailedRead("CompanyName", choice), whole);
  EXPECT_EQ(mergedWithFailedRead("InheritCompanyInfo", error_choice::next),
            "Dear Anna Lee, Elm Ltd. of  is due on April 30, 2026 ( , , 45 min).");
}

TEST_F(MergeFault, AFailureIsNotRememberedWithTheTemplate) {
  merge->TemplateText = std::string("A fresh one: ") + letter;
  const auto merged = [&](int failedCall, int choice) {
    host.calls.reset();
    if (failedCall > 0) {
      host.calls.failAt(failedCall);
      host.errors.answer({choice});
    }
    return merge->parseRTBComment();
  };
  EXPECT_EQ(merged(1, error_choice::leave), "");
  merged(1, error_choice::next);
  EXPECT_EQ(merged(0, 0),
            "A fresh one: Dear Anna Lee, Elm Ltd. of Guelph is due on April 30, 2026 ( , , 45 "
            "min).");
}

}  // namespace
}  // namespace autonotify::test
