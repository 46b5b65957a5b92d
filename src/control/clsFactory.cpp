#include <algorithm>
#include <array>
#include <atomic>
#include <vector>

#include "contract/references.h"
#include "control/component_objects.h"
#include "platform/text.h"

namespace autonotify {
namespace {

std::atomic<int> uses{0};

struct CreatableClass {
  const char* name;
  std::unique_ptr<ComponentObject> (*make)();
};
constexpr std::array<CreatableClass, 4> creatableClasses{{
    {classAutoNotifyCtrl, makeAutoNotifyCtrl},
    {classAutoNotification, makeAutoNotification},
    {classFrmSentNotifyBulk, makeFrmSentNotifyBulk},
    {classNotificationTools, makeNotificationTools},
}};

const CreatableClass* findClass(std::string_view name) {
  const auto isNamed = [&](const CreatableClass& row) { return equalIgnoreCase(row.name, name); };
  const auto* const found = std::ranges::find_if(creatableClasses, isNamed);
  return found == creatableClasses.end() ? nullptr : &*found;
}

class clsFactory final : public ClassObject {
 public:
  void setPlatform(const PlatformServices& platform) override { references().platform = platform; }

  std::unique_ptr<ComponentObject> createInstance(std::string_view className) override {
    const CreatableClass* creatable = findClass(className);
    if (!creatable) return nullptr;
    requirePlatform();
    return creatable->make();
  }

  void lockServer(bool lock) override {
    if (lock) {
      locks_.push_back(std::make_unique<LibraryUse>());
    } else if (!locks_.empty()) {
      locks_.pop_back();
    }
  }

 private:
  /// Each accessor throws when its part is missing.
  static void requirePlatform() {
    classRegistry();
    platformClock();
    formHost();
  }

  std::vector<std::unique_ptr<LibraryUse>> locks_;
};

clsFactory factory;

}  // namespace

LibraryUse::LibraryUse() noexcept {
  ++uses;
}

LibraryUse::~LibraryUse() {
  --uses;
}

bool LibraryUse::isIdle() noexcept {
  return uses == 0;
}

}  // namespace autonotify

using namespace autonotify;

#define AUTONOTIFY_EXPORT extern "C" __attribute__((visibility("default")))

AUTONOTIFY_EXPORT int DllRegisterServer() {
  return componentOk;
}

AUTONOTIFY_EXPORT int DllUnregisterServer() {
  return componentOk;
}

AUTONOTIFY_EXPORT int DllGetClassObject(const char* className, const char* interfaceName,
                                        void** object) {
  if (!object) return componentBadPointer;
  *object = nullptr;
  if (!className || !interfaceName) return componentBadPointer;
  if (!findClass(className)) return componentNoClass;
  if (std::string_view(interfaceName) != classObjectInterface) return componentNoInterface;
  *object = static_cast<ClassObject*>(&factory);
  return componentOk;
}

AUTONOTIFY_EXPORT int DllCanUnloadNow() {
  return LibraryUse::isIdle() ? componentOk : componentFalse;
}
