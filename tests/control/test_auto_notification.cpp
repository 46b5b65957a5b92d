#include "component_host.h"
#include "host/services/HostItemLinksClass.h"

namespace autonotify::test {
namespace {

struct Link {
  ItemLink position;
  Id (clsAutoNotification::*get)();
  void (clsAutoNotification::*put)(Id);
};
#define LINK(name) \
  { ItemLink::name, &clsAutoNotification::get_##name, &clsAutoNotification::put_##name }
const Link links[] = {LINK(ApptIDNum),        LINK(TaskIDNum),
                      LINK(DocketIDNum),      LINK(ToDoIDNum),
                      LINK(ScheduleIDNum),    LINK(ScheduleTypeIDNum),
                      LINK(ProjectIDNum),     LINK(OperatingProcedureIDNum),
                      LINK(projectStepIDNum), LINK(PersonalTaxStatusIDNum),
                      LINK(MissingInfoIDNum), LINK(CommunicationLogIDNum),
                      LINK(DocumentIDNum)};
static_assert(std::size(links) == itemLinkCount);

/// What links are asked, and how often they fail from now on.
struct LinkLog {
  errorClass* errors = nullptr;
  DatabaseReference* database = nullptr;
  int puts = 0, terminations = 0, failures = 0;
  /// Where the links went: the tag of the procedure, empty outside of all.
  std::string lastPlace;
};

class LoggedLinks : public host::HostItemLinksClass {
 public:
  LoggedLinks(LinkLog& log, const ScriptedErrorClass& errors) : log_(log), errors_(errors) {}
  ~LoggedLinks() override { log_.lastPlace = errors_.depth() > 0 ? errors_.tags().back() : ""; }
  void put_errorClass(errorClass* value) override { log_.errors = value; }
  void put_DatabaseReference(DatabaseReference* value) override { log_.database = value; }
  void put_link(ItemLink link, Id value) override {
    count(log_.puts);
    HostItemLinksClass::put_link(link, value);
  }
  void Terminate() override { count(log_.terminations); }

 private:
  void count(int& calls) {
    ++calls;
    if (log_.failures-- > 0) throw PlatformError(1000, "no");
  }
  LinkLog& log_;
  const ScriptedErrorClass& errors_;
};

class Notification : public ComponentTest {
 protected:
  Notification() {
    registry.registerClass(ItemLinksClass::className,
                           [this] { return std::make_unique<LoggedLinks>(log, errors); });
    notification = library.createNotification();
  }
  Id get(const Link& link) { return (notification.get()->*link.get)(); }
  /// True when the change has made the object dirty.
  bool put(const Link& link, Id value) {
    notification->put_IsDirty(false);
    (notification.get()->*link.put)(value);
    return notification->get_IsDirty();
  }

  LinkLog log;
  std::unique_ptr<clsAutoNotification> notification;
};

TEST_F(Notification, EachLinkIsItsOwnAndOnlyAChangeIsDirty) {
  EXPECT_EQ(log.errors, &errors);
  EXPECT_EQ(log.database, &database);
  ItemLinksClass* object = notification->get_ItemLinksClass();
  ASSERT_TRUE(object);
  Id value = 100;
  for (const Link& link : links) {
    EXPECT_FALSE(put(link, noId));
    EXPECT_TRUE(put(link, ++value));
    EXPECT_FALSE(put(link, value));
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
  EXPECT_FALSE(notification->get_isSavedFlag() || notification->get_IsDirty());
  for (const Link& link : links) EXPECT_EQ(get(link), noId);
}

TEST_F(Notification, TerminatesItsLinksOnce) {
  put(links[0], 5);
  notification->Terminate();
  EXPECT_EQ(log.lastPlace, "Morvane.exe-clsAutoNotification-Terminate");
  EXPECT_EQ(notification->get_ItemLinksClass(), nullptr);
  EXPECT_FALSE(put(links[0], 6));
  EXPECT_EQ(get(links[0]), noId);
  notification.reset();
  EXPECT_EQ(log.terminations, 1);
  library.createNotification().reset();
  EXPECT_EQ(log.terminations, 2);
}

TEST_F(Notification, FailureOfALinkIsSettledAtTheDialog) {
  log.failures = 2;
  errors.answer({error_choice::quit, error_choice::leave});
  EXPECT_FALSE(put(links[3], 5));
  EXPECT_EQ(log.puts, 2);
  EXPECT_EQ(get(links[3]), noId);
  put(links[3], 5);
  log.failures = 1;
  errors.answer({error_choice::leave});
  notification->Terminate();
  EXPECT_EQ(get(links[3]), 5) << "a person who leaves the end keeps the links";
  notification.reset();
  EXPECT_EQ(log.terminations, 2);
}

}  // namespace
}  // namespace autonotify::test
