#pragma once

#include <memory>
#include <string_view>

#include "contract/PlatformServices.h"

// The border of the component hvAutoNotifyCtrl6: a shared library with four entry points and
// nothing else. A host loads the library, asks DllGetClassObject for the class object, hands over
// its platform and creates objects. It may unload the library once DllCanUnloadNow says so.
//
// Host and component must be built with the same compiler family and standard library: interfaces
// with std types cross the border. The version in classObjectInterface changes whenever one of them
// does.

namespace autonotify {

/// Base of every object that the component creates. Owned by the host; deleting it releases it.
class ComponentObject {
 public:
  virtual ~ComponentObject() = default;
};

/// The names of the creatable classes, in any case.
inline constexpr const char* classAutoNotifyCtrl = "hvAutoNotifyCtrl6.clsAutoNotifyCtrl";
inline constexpr const char* classAutoNotification = "hvAutoNotifyCtrl6.clsAutoNotification";
inline constexpr const char* classFrmSentNotifyBulk = "hvAutoNotifyCtrl6.clsFrmSentNotifyBulk";
inline constexpr const char* classNotificationTools = "hvAutoNotifyCtrl6.clsNotificationTools";

/// The interface that DllGetClassObject gives.
inline constexpr const char* classObjectInterface = "hvAutoNotifyCtrl6.ClassObject/5";

/// Creates the component's objects. Belongs to the library: never deleted, good until it is
/// unloaded.
class ClassObject {
 public:
  /// The platform for all objects. Kept until the next call; must outlive every object.
  virtual void setPlatform(const PlatformServices& platform) = 0;
  /// A new object of the class, to be cast to its interface. Null for a class unknown. Throws
  /// PlatformError (91) when the platform is missing or incomplete.
  virtual std::unique_ptr<ComponentObject> createInstance(std::string_view className) = 0;
  /// Keeps the library in use without an object; each lock wants its unlock.
  virtual void lockServer(bool lock) = 0;

 protected:
  ~ClassObject() = default;
};

/// Results of the entry points.
enum ComponentResult : int {
  componentOk = 0,
  componentFalse = 1,
  componentNoInterface = -1,
  componentNoClass = -2,
  componentBadPointer = -3,
};

}  // namespace autonotify

extern "C" {
/// Nothing needs registering on this platform: always componentOk.
int DllRegisterServer();
int DllUnregisterServer();
/// Stores the class object of `className` in `*object`, as `interfaceName` (classObjectInterface).
/// On failure
/// `*object` is null.
int DllGetClassObject(const char* className, const char* interfaceName, void** object);
/// componentOk when no object and no lock of the library is left, otherwise componentFalse.
int DllCanUnloadNow();
}
