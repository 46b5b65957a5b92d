#include "component_host.h"
#include "host/services/HostFileUtility.h"
#include "host/services/HostGeneralUtilities.h"
#include "host/services/HostValidationUtilities.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes in order: "+Name" made, "-Name" released, "Name" given the errorClass.
template <class Base>
class Logged : public Base {
 public:
  Logged(std::vector<std::string>& log, const errorClass& expected)
      : log_(log), expected_(expected) {
    log_.push_back(std::string("+") + Base::className);
  }
  ~Logged() override { log_.push_back(std::string("-") + Base::className); }

 protected:
  std::vector<std::string>& log_;
  const errorClass& expected_;
};

template <class Base>
struct LoggedWithErrors final : Logged<Base> {
  using Logged<Base>::Logged;
  void put_errorClass(errorClass* value) override {
    EXPECT_EQ(value, &this->expected_);
    this->log_.push_back(Base::className);
  }
};

class Properties : public testing::Test, public TestHost {
 protected:
  Properties() {
    reg<Logged<host::HostFileUtility>>();
    reg<LoggedWithErrors<host::HostGeneralUtilities>>();
    reg<LoggedWithErrors<host::HostValidationUtilities>>();
  }
  template <class Utility>
  void reg() {
    registry.registerClass(Utility::className,
                           [this] { return std::make_unique<Utility>(log_, errors); });
  }
  std::vector<std::string> takeLog() { return std::exchange(log_, {}); }

  host::ComponentLibrary library{COMPONENT_FILE, platform()};

 private:
  std::vector<std::string> log_;
};

TEST_F(Properties, UtilitiesComeAndGoWithEachControl) {
  auto first = library.createControl();
  EXPECT_THAT(takeLog(), ElementsAre("+FileUtility", "+GeneralUtilities", "+ValidationUtilities"));
  first->put_errorClass(&errors);
  EXPECT_THAT(takeLog(), ElementsAre("GeneralUtilities", "ValidationUtilities"));

  auto second = library.createControl();
  EXPECT_THAT(takeLog(), ElementsAre("+FileUtility", "+GeneralUtilities", "+ValidationUtilities",
                                     "-FileUtility", "-GeneralUtilities", "-ValidationUtilities"));
  ScriptedErrorClass otherErrors;
  second->put_errorClass(&otherErrors);
  second->put_errorClass(&errors);
  EXPECT_THAT(takeLog(), IsEmpty()) << "the first errorClass stays, and is not handed on again";

  second.reset();
  EXPECT_THAT(takeLog(), ElementsAre("-FileUtility", "-GeneralUtilities", "-ValidationUtilities"));
  first->put_DatabaseReference(&database);
  errors.answer({error_choice::leave});
  const Id entry = TableRows(*plainDatabase).addRow("Schedule", {{"Year", 2026}});
  EXPECT_FALSE(first->cls_getNotificationStatus(entry, nt_Email));
  EXPECT_EQ(errors.recorded().at(0).number, error_number::objectNotSet);
  auto third = library.createControl();
  EXPECT_FALSE(first->cls_getNotificationStatus(entry, nt_Email)) << "and nobody is asked again";
  EXPECT_EQ(errors.dialogs(), 1);
}

TEST_F(Properties, ControlThatCannotBeMadeLeavesTheUtilitiesAsTheyWere) {
  auto control = library.createControl();
  takeLog();
  registry.registerClass(ValidationUtilities::className, []() -> std::unique_ptr<HostObject> {
    throw PlatformError(429, "no such class");
  });
  EXPECT_THROW(library.createControl(), PlatformError);
  EXPECT_THAT(takeLog(), testing::UnorderedElementsAre("+FileUtility", "+GeneralUtilities",
                                                       "-FileUtility", "-GeneralUtilities"));
}

TEST_F(Properties, FirstAssignmentWinsButForTheClientList) {
  auto control = library.createControl();
  TestHost other;
  EXPECT_EQ(control->get_DatabaseReference(), nullptr);
  for (TestHost* host : {static_cast<TestHost*>(this), &other}) lendServices(*host, *control);
  EXPECT_EQ(control->get_DatabaseReference(), &database);

  TableRows rows(*plainDatabase);
  const Id entry = rows.addSchedule(101, 1, DateTime::of(2026, 4, 30),
                                    {{"ClientNum", rows.addClient("Maple Ltd", "Jo").clientNum}});
  other.calls.record(true);
  const Id row = control->cls_addNewLetterNotificationFromScheduleIDNum(entry);
  EXPECT_EQ(notificationCount(), 1);
  EXPECT_GT(errors.entered(), 0);
  EXPECT_EQ(other.errors.entered(), 0);
  EXPECT_EQ(notification(row, "CompanyIDNum"), "-1|\n")
      << "the second client list does not know the company";
  EXPECT_THAT(other.calls.log(), testing::Contains("isCompanyClient 1"));
  EXPECT_THAT(other.calls.log(), testing::Not(testing::Contains("getFirmCode")));
  control->put_cancelFlag(true);
  EXPECT_FALSE(library.createControl()->get_cancelFlag()) << "the flag is each object's own";
  EXPECT_TRUE(control->get_cancelFlag());
}

class RefusingUtilities : public host::HostGeneralUtilities {
 public:
  void put_errorClass(errorClass*) override { throw PlatformError(1000, "not now"); }
};

TEST_F(Properties, AssignmentReportsNoFailure) {
  registry.registerClass<RefusingUtilities>();
  auto control = library.createControl();
  takeLog();
  control->put_errorClass(&errors);
  EXPECT_THAT(takeLog(), ElementsAre("ValidationUtilities")) << "the other one gets it";
  EXPECT_EQ(errors.dialogs(), 0);
  EXPECT_TRUE(control->cls_IsEmailSelected(1));
}

}  // namespace
}  // namespace autonotify::test
