#include <dlfcn.h>
#include <stdio.h>

#include "component_host.h"
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

}  // namespace
}  // namespace autonotify::test
