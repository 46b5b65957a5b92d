#include "component_host.h"
#include "host/services/HostFileUtility.h"
#include "host/services/HostGeneralUtilities.h"
#include "host/services/HostValidationUtilities.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

/// What happened to the utilities, in order: "+Name" made, "-Name" released, "Name=n" given the
/// n-th errorClass known.
struct UtilityLog {
  std::vector<std::string> lines;
  std::vector<errorClass*> known;

  void given(const char* name, errorClass* value) {
    const auto at = std::find(known.begin(), known.end(), value);
    lines.push_back(std::string(name) + "=" + std::to_string(at - known.begin()));
  }
};

template <class Base>
class LoggedUtility : public Base {
 public:
  explicit LoggedUtility(UtilityLog& log) : log_(log) {
    log_.lines.push_back(std::string("+") + Base::className);
  }
  ~LoggedUtility() override { log_.lines.push_back(std::string("-") + Base::className); }

 protected:
  UtilityLog& log_;
};

template <class Base>
class LoggedErrorTaker : public LoggedUtility<Base> {
 public:
  using LoggedUtility<Base>::LoggedUtility;
  void put_errorClass(errorClass* value) override {
    this->log_.given(Base::className, value);
    Base::put_errorClass(value);
  }
};

class Properties : public testing::Test {
 protected:
  Properties() {
    utilities.known = {&services.errors, &otherErrors};
    reg<LoggedUtility<host::HostFileUtility>>();
    reg<LoggedErrorTaker<host::HostGeneralUtilities>>();
    reg<LoggedErrorTaker<host::HostValidationUtilities>>();
  }
  template <class Utility>
  void reg() {
    services.registry.registerClass(Utility::className,
                                    [this] { return std::make_unique<Utility>(utilities); });
  }
  std::vector<std::string> takeLog() { return std::exchange(utilities.lines, {}); }

  UtilityLog utilities;
  TestHost services;
  ScriptedErrorClass otherErrors;
  host::ComponentLibrary library{COMPONENT_FILE, services.platform()};
};

TEST_F(Properties, UtilitiesComeAndGoWithEachControl) {
  auto first = library.createControl();
  EXPECT_THAT(takeLog(), ElementsAre("+FileUtility", "+GeneralUtilities", "+ValidationUtilities"));
  first->put_errorClass(&services.errors);
  EXPECT_THAT(takeLog(), ElementsAre("GeneralUtilities=0", "ValidationUtilities=0"));

  auto second = library.createControl();
  EXPECT_THAT(takeLog(), ElementsAre("+FileUtility", "+GeneralUtilities", "+ValidationUtilities",
                                     "-FileUtility", "-GeneralUtilities", "-ValidationUtilities"));
  second->put_errorClass(&otherErrors);
  second->put_errorClass(&services.errors);
  EXPECT_THAT(takeLog(), ElementsAre()) << "the first errorClass stays, and is not handed on again";

  second.reset();
  EXPECT_THAT(takeLog(), ElementsAre("-FileUtility", "-GeneralUtilities", "-ValidationUtilities"));
  first->put_DatabaseReference(&services.database);
  services.errors.answer({error_choice::leave});
  const Id entry = Rows(*services.plainDatabase).addRow("Schedule", {{"Year", 2026}});
  EXPECT_FALSE(first->cls_getNotificationStatus(entry, nt_Email));
  EXPECT_EQ(services.errors.recorded().at(0).number, error_number::objectNotSet);
  auto third = library.createControl();
  EXPECT_FALSE(first->cls_getNotificationStatus(entry, nt_Email)) << "and nobody is asked again";
  EXPECT_EQ(services.errors.dialogs(), 1);
}

TEST_F(Properties, ControlThatCannotBeMadeLeavesTheUtilitiesAsTheyWere) {
  auto control = library.createControl();
  takeLog();
  services.registry.registerClass(
      ValidationUtilities::className,
      []() -> std::unique_ptr<HostObject> { throw PlatformError(429, "no such class"); });
  EXPECT_THROW(library.createControl(), PlatformError);
  EXPECT_THAT(takeLog(), testing::UnorderedElementsAre("+FileUtility", "+GeneralUtilities",
                                                       "-FileUtility", "-GeneralUtilities"));
}

TEST_F(Properties, FirstAssignmentWinsButForTheClientList) {
  auto control = library.createControl();
  TestHost other;
  EXPECT_EQ(control->get_DatabaseReference(), nullptr);
  for (TestHost* host : {&services, &other}) lendServices(*host, *control);
  EXPECT_EQ(control->get_DatabaseReference(), &services.database);

  Rows rows(*services.plainDatabase);
  const Id entry = rows.addSchedule(101, 1, DateTime::of(2026, 4, 30),
                                    {{"ClientNum", rows.addClient("Maple Ltd", "Jo").clientNum}});
  other.calls.record(true);
  const Id row = control->cls_addNewLetterNotificationFromScheduleIDNum(entry);
  EXPECT_EQ(services.notificationCount(), 1);
  EXPECT_GT(services.errors.entered(), 0);
  EXPECT_EQ(services.errors.entered(), services.errors.left());
  EXPECT_EQ(other.errors.entered(), 0);
  EXPECT_EQ(toInteger(rows.valueOf("ClientNotification", "CompanyIDNum",
                                   "ClientNotificationID=" + std::to_string(row))),
            noId)
      << "the second client list does not know the company";
  EXPECT_THAT(other.calls.log(), testing::Contains(testing::StartsWith("isCompanyClient")));
  EXPECT_THAT(other.calls.log(), testing::Not(testing::Contains("getFirmCode")));
}

TEST_F(Properties, CancelFlagBelongsToTheObject) {
  auto control = library.createControl();
  auto other = library.createControl();
  EXPECT_FALSE(control->get_cancelFlag());
  control->put_cancelFlag(true);
  EXPECT_TRUE(control->get_cancelFlag());
  EXPECT_FALSE(other->get_cancelFlag());
}

class RefusingUtilities : public host::HostGeneralUtilities {
 public:
  void put_errorClass(errorClass*) override { throw PlatformError(1000, "not now"); }
};

TEST_F(Properties, AssignmentReportsNoFailure) {
  services.registry.registerClass<RefusingUtilities>();
  auto control = library.createControl();
  takeLog();
  control->put_errorClass(&services.errors);
  EXPECT_THAT(takeLog(), ElementsAre("ValidationUtilities=0")) << "the other one gets it";
  EXPECT_EQ(services.errors.dialogs(), 0);
  EXPECT_TRUE(control->cls_IsEmailSelected(1));
}

}  // namespace
}  // namespace autonotify::test
