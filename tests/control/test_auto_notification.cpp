#include "component_host.h"
#include "host/services/HostItemLinksClass.h"

namespace autonotify::test {
namespace {

using Interface = clsAutoNotification;

struct Link {
  ItemLink position;
  Id (Interface::*get)();
  void (Interface::*put)(Id);
};
#define LINK(name)                                                 \
  Link {                                                           \
    ItemLink::name, &Interface::get_##name, &Interface::put_##name \
  }
const Link links[] = {LINK(ApptIDNum),
                      LINK(TaskIDNum),
                      LINK(DocketIDNum),
                      LINK(ToDoIDNum),
                      LINK(ScheduleIDNum),
                      LINK(ScheduleTypeIDNum),
                      LINK(OperatingProcedureIDNum),
                      LINK(ProjectIDNum),
                      LINK(projectStepIDNum),
                      LINK(PersonalTaxStatusIDNum),
                      LINK(MissingInfoIDNum),
                      LINK(CommunicationLogIDNum),
                      LINK(DocumentIDNum)};
#undef LINK
static_assert(std::size(links) == itemLinkCount);

/// Links that tell what is asked of them, and fail on request.
class LoggedLinks : public host::HostItemLinksClass {
 public:
  struct Log {
    errorClass* errors = nullptr;
    DatabaseReference* database = nullptr;
    int puts = 0;
    int terminations = 0;
    int failures = 0;
    std::string lastPlace;
  };
  LoggedLinks(Log& log, const ScriptedErrorClass& errors) : log_(log), errors_(errors) {}
  ~LoggedLinks() override { log_.lastPlace = errors_.depth() > 0 ? errors_.tags().back() : ""; }
  void put_errorClass(errorClass* value) override { log_.errors = value; }
  void put_DatabaseReference(DatabaseReference* value) override { log_.database = value; }
  void put_link(ItemLink link, Id value) override {
    ++log_.puts;
    failAsTold();
    HostItemLinksClass::put_link(link, value);
  }
  void Terminate() override {
    ++log_.terminations;
    failAsTold();
  }

 private:
  void failAsTold() {
    if (log_.failures-- > 0) throw PlatformError(1000, "no");
  }
  Log& log_;
  const ScriptedErrorClass& errors_;
};

class Notification : public testing::Test {
 protected:
  Notification() {
    host.registry.registerClass(ItemLinksClass::className,
                                [this] { return std::make_unique<LoggedLinks>(log, host.errors); });
    notification = host.library.createNotification();
  }
  Id get(const Link& link) { return (notification.get()->*link.get)(); }
  void put(const Link& link, Id value) { (notification.get()->*link.put)(value); }

  LoggedLinks::Log log;
  ComponentHost host;
  std::unique_ptr<clsAutoNotification> notification;
};

TEST_F(Notification, EachLinkIsItsOwnAndOnlyAChangeIsDirty) {
  EXPECT_EQ(log.errors, &host.errors);
  EXPECT_EQ(log.database, &host.database);
  EXPECT_FALSE(notification->get_IsDirty());
  ItemLinksClass* object = notification->get_ItemLinksClass();
  ASSERT_TRUE(object);
  Id value = 100;
  for (const Link& link : links) {
    notification->put_IsDirty(false);
    put(link, noId);
    EXPECT_FALSE(notification->get_IsDirty());
    put(link, ++value);
    EXPECT_TRUE(notification->get_IsDirty());
    notification->put_IsDirty(false);
    put(link, value);
    EXPECT_FALSE(notification->get_IsDirty());
  }
  EXPECT_EQ(log.puts, itemLinkCount);
  value = 100;
  for (const Link& link : links) {
    EXPECT_EQ(get(link), ++value);
    EXPECT_EQ(object->get_link(link.position), value);
  }
  notification->put_isSavedFlag(true);
  notification->put_IsDirty(true);
  notification->resetAllValues();
  EXPECT_FALSE(notification->get_isSavedFlag());
  EXPECT_FALSE(notification->get_IsDirty());
  for (const Link& link : links) EXPECT_EQ(get(link), noId);
}

TEST_F(Notification, TerminatesItsLinksOnce) {
  put(links[0], 5);
  notification->Terminate();
  EXPECT_EQ(log.lastPlace, "Morvane.exe-clsAutoNotification-Terminate");
  EXPECT_EQ(notification->get_ItemLinksClass(), nullptr);
  notification->put_IsDirty(false);
  put(links[0], 6);
  EXPECT_EQ(get(links[0]), noId);
  EXPECT_FALSE(notification->get_IsDirty());
  notification.reset();
  EXPECT_EQ(log.terminations, 1);
  host.library.createNotification().reset();
  EXPECT_EQ(log.terminations, 2);
}

TEST_F(Notification, PersonWhoLeavesTheEndKeepsTheLinks) {
  put(links[0], 5);
  log.failures = 1;
  host.errors.answer({error_choice::leave});
  notification->Terminate();
  EXPECT_EQ(get(links[0]), 5);
  notification.reset();
  EXPECT_EQ(log.terminations, 2);
}

TEST_F(Notification, FailureOfALinkIsSettledAtTheDialog) {
  log.failures = 2;
  host.errors.answer({error_choice::quit, error_choice::leave});
  put(links[3], 5);
  EXPECT_EQ(log.puts, 2);
  EXPECT_EQ(get(links[3]), noId);
  EXPECT_FALSE(notification->get_IsDirty());
  EXPECT_EQ(host.errors.dialogs(), 2);
  EXPECT_EQ(host.errors.entered(), host.errors.left());
}

}  // namespace
}  // namespace autonotify::test
