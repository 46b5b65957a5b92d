#include <dlfcn.h>
#include <stdio.h>

#include "component_host.h"
#include "host/services/HostFileUtility.h"
#include "host/services/HostGeneralUtilities.h"
#include "host/services/HostValidationUtilities.h"
#include "support/error_number.h"
#include "support/text_table.h"

namespace autonotify::test {
namespace {

std::string outputOf(const std::string& command) {
  std::string output;
  FILE* pipe = popen(command.c_str(), "r");
  for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe)) output += static_cast<char>(c);
  EXPECT_EQ(pclose(pipe), 0) << command;
  return output;
}

bool isLoaded() {
  return readFile("/proc/self/maps").find(host::ComponentLibrary::fileName) != std::string::npos;
}

TEST(Component, ExportsTheFourEntryPointsAlone) {
  auto names = split(outputOf("nm -D --defined-only --format=posix " COMPONENT_FILE), '\n');
  for (std::string& line : names) line.resize(line.find(' '));
  // The measuring of coverage and the sanitizers export symbols of their own.
  std::erase_if(names, [](const std::string& name) {
    return name.starts_with("__") || name.starts_with("mangle_path");
  });
  EXPECT_THAT(names, testing::UnorderedElementsAre("DllRegisterServer", "DllUnregisterServer",
                                                   "DllGetClassObject", "DllCanUnloadNow"));
}

TEST(Component, EntryPointsRefuseWhatTheyDoNotKnow) {
  void* library = dlopen(COMPONENT_FILE, RTLD_NOW | RTLD_LOCAL);
  ASSERT_TRUE(library) << dlerror();
  const auto getClassObject =
      reinterpret_cast<decltype(&DllGetClassObject)>(dlsym(library, "DllGetClassObject"));
  const std::tuple<const char*, const char*, int> cases[] = {
      {classAutoNotifyCtrl, classObjectInterface, componentOk},
      {"HVAUTONOTIFYCTRL6.CLSAUTONOTIFICATION", classObjectInterface, componentOk},
      {"hvAutoNotifyCtrl6.clsUnknown", classObjectInterface, componentNoClass},
      {"", classObjectInterface, componentNoClass},
      {classAutoNotifyCtrl, "hvAutoNotifyCtrl6.ClassObject/0", componentNoInterface},
      {nullptr, classObjectInterface, componentBadPointer},
      {classAutoNotifyCtrl, nullptr, componentBadPointer}};
  for (const auto& [className, interfaceName, result] : cases) {
    int marker = 0;
    void* object = &marker;
    EXPECT_EQ(getClassObject(className, interfaceName, &object), result);
    EXPECT_EQ(object != nullptr, result == componentOk);
  }
  EXPECT_EQ(getClassObject(classAutoNotifyCtrl, classObjectInterface, nullptr),
            componentBadPointer);
  for (const char* name : {"DllRegisterServer", "DllUnregisterServer", "DllCanUnloadNow"})
    EXPECT_EQ(reinterpret_cast<int (*)()>(dlsym(library, name))(), componentOk) << name;
  dlclose(library);
  EXPECT_FALSE(isLoaded());
}

TEST(Component, StaysInUseWhileAnObjectOrALockIsLeft) {
  TestHost services;
  host::ComponentLibrary library(COMPONENT_FILE, services.platform());
  std::vector<std::unique_ptr<ComponentObject>> objects;
  const auto lock = [&](bool on) { library.classObject().lockServer(on); };
  const std::pair<std::function<void()>, bool> steps[] = {
      {[] {}, true},
      {[&] { objects.push_back(library.createControl()); }, false},
      {[&] { objects.push_back(library.createTools()); }, false},
      {[&] { objects.erase(objects.begin()); }, false},
      {[&] { objects.clear(); }, true},
      {[&] { lock(false); }, true},
      {[&] { lock(true), lock(true), lock(false); }, false},
      {[&] { lock(false); }, true},
  };
  for (const auto& [act, canUnload] : steps) {
    act();
    EXPECT_EQ(library.canUnload(), canUnload);
  }
}

TEST(Component, CreatesNothingUnknownNorWithoutAPlatform) {
  TestHost services;
  const auto numberOf = [](ClassObject& object) {
    return errorOf([&] { object.createInstance(classAutoNotifyCtrl); });
  };
  const PlatformServices whole = services.platform();
  const PlatformServices parts[] = {{},
                                    {nullptr, whole.clock, whole.formHost},
                                    {whole.classRegistry, nullptr, whole.formHost},
                                    {whole.classRegistry, whole.clock, nullptr}};
  for (const PlatformServices& part : parts) {
    host::ComponentLibrary library(COMPONENT_FILE, part);
    EXPECT_EQ(library.classObject().createInstance("hvAutoNotifyCtrl6.clsOther"), nullptr);
    EXPECT_EQ(numberOf(library.classObject()), error_number::objectNotSet);
    EXPECT_TRUE(library.canUnload());
  }
  class EmptyRegistry : public HostClassRegistry {
    std::unique_ptr<HostObject> create(std::string_view name) override {
      throw PlatformError(error_number::cannotCreateObject, "unknown", std::string(name));
    }
  } empty;
  host::ComponentLibrary library(COMPONENT_FILE, {&empty, whole.clock, whole.formHost});
  EXPECT_EQ(numberOf(library.classObject()), error_number::cannotCreateObject);
  EXPECT_TRUE(library.canUnload());
}

TEST(Component, IsSharedUntilTheLastLoaderAndObjectAreGone) {
  TestHost services;
  auto first = std::make_unique<host::ComponentLibrary>(COMPONENT_FILE, services.platform());
  std::unique_ptr<clsAutoNotifyCtrl> control;
  {
    host::ComponentLibrary second(COMPONENT_FILE, services.platform());
    control = first->createControl();
    EXPECT_FALSE(second.canUnload());
  }
  first.reset();
  EXPECT_TRUE(control->cls_IsPhoneSelected(9)) << "an object outlives its loader";
  control.reset();
  // Two closings: the one that was left out, and the one of this look.
  void* library = dlopen(COMPONENT_FILE, RTLD_NOW | RTLD_NOLOAD);
  ASSERT_TRUE(library);
  dlclose(library);
  dlclose(library);
  EXPECT_FALSE(isLoaded());
}

TEST(Component, LoaderTakesAFileOrItsFolderAndTellsWhatItTried) {
  TemporaryFolder folder;
  const std::filesystem::path file = folder / host::ComponentLibrary::fileName;
  writeFile(file, "no library");
  EXPECT_EQ(host::ComponentLibrary::locate(file), file);
  EXPECT_EQ(host::ComponentLibrary::locate(folder.path()), file);
  TestHost services;
  EXPECT_THROW(host::ComponentLibrary(file, services.platform()), host::ComponentError);
  std::filesystem::remove(file);
  const auto faultOf = [](auto&& call) -> std::string {
    try {
      call();
    } catch (const host::ComponentError& error) {
      return error.what();
    }
    return "no fault";
  };
  EXPECT_THAT(faultOf([&] { host::ComponentLibrary::locate(file); }),
              testing::HasSubstr(file.string()));
  EXPECT_THAT(faultOf([&] { host::ComponentLibrary("libm.so.6", services.platform()); }),
              testing::HasSubstr("DllGetClassObject"))
      << "another library is not the component";
}

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
