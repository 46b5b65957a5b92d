
#include "component_host.h"

namespace autonotify::test {
namespace {

using Class = clsFrmSentNotifyBulk;

struct Flag {
  bool (Class::*get)();
  void (Class::*put)(bool);
  /// Of a kind of task its column, of a channel its bit.
  std::string stored;
};
#define FLAG(name, stored) \
  { &Class::get_schedule##name, &Class::put_schedule##name, stored }
#define FAMILY(name) FLAG(name, #name "NotifyType")
const Flag families[] = {FAMILY(GST),           FAMILY(PST),
                         FAMILY(PayrollRemitt), FAMILY(YearEnd),
                         FAMILY(CorpTax),       FAMILY(WSIB),
                         FAMILY(EHT),           FAMILY(Law),
                         FAMILY(Other),         FLAG(EmployeePayroll, "PayrollNotifyType"),
                         FAMILY(Custom),        FAMILY(FederalPayroll),
                         FAMILY(Projects),      FAMILY(Bookkeeping)};
const Flag channels[] = {FLAG(Email, "1"), FLAG(Fax, "2"), FLAG(Letter, "4"), FLAG(Phone, "8")};

class BulkClassTest : public ComponentTest {
 protected:
  /// The columns that hold anything, with it.
  std::string saved() {
    bulk->saveNotificationsTypes();
    std::string text;
    for (const Flag& family : families) {
      const Value bits =
          valueOf("ClientScheduleAutoNotifications", family.stored, "CompanyIDNum=3");
      if (toText(bits) != "0") text += family.stored + toText(bits);
    }
    return text;
  }
  enumAutoNotifyClientType type = enumAutoNotifyCompany;
  std::unique_ptr<Class> bulk = library.createBulkScheduler();
};

TEST_F(BulkClassTest, KeepsEachFlagInItsColumn) {
  for (const auto& flags : {std::span<const Flag>(families), std::span<const Flag>(channels)}) {
    for (const Flag& flag : flags) {
      bulk->Initialize(type, 3);
      EXPECT_TRUE(bulk->get_scheduleEmail());
      bulk->put_scheduleEmail(false);
      EXPECT_FALSE(((*bulk).*flag.get)());
      ((*bulk).*flag.put)(true);
      EXPECT_TRUE(((*bulk).*flag.get)());
      const bool isFamily = flags.size() > 4;
      isFamily ? bulk->put_scheduleFax(true) : bulk->put_scheduleLaw(true);
      EXPECT_EQ(saved(), isFamily ? flag.stored + "2" : "LawNotifyType" + flag.stored);
    }
  }
}

TEST_F(BulkClassTest, ShowsItsWindowAsOftenAsTheHostLikes) {
  bool skipStep1 = false;
  for (const char* button : {"cmdCancel", "cmdFinish"}) {
    bulk->Initialize(type, 3);
    EXPECT_FALSE(bulk->get_cancelFlag());
    bulk->put_scheduleOther(true);
    screen.expectWindow("frmSendNotificationBulk", [&](WindowInUse& window) {
      EXPECT_EQ(window.read("chkAutoNotify(9)"), "yes");
      window.click("chkAutoNotify(9)");
      window.click("chkAutoNotify(0)");
      window.click("cmdNext");
      window.click("chkNotifyType(3)");
      window.click(button);
    });
    if (button == std::string("cmdFinish"))
      screen.expectProgress("Creating automatic notifications, Please wait ...");
    bulk->showForm(skipStep1);
    EXPECT_EQ(bulk->get_cancelFlag(), std::string(button) == "cmdCancel");
    EXPECT_TRUE(bulk->get_scheduleGST() && bulk->get_schedulePhone() && !bulk->get_scheduleOther());
  }
  EXPECT_FALSE(skipStep1);
  bulk->put_cancelFlag(true);
  EXPECT_TRUE(bulk->get_cancelFlag());
  bulk.reset();
  screen.finish();
}

}  // namespace
}  // namespace autonotify::test
