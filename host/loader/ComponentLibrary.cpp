#include "host/loader/ComponentLibrary.h"

#include <dlfcn.h>

#include <map>
#include <string>
#include <system_error>
#include <vector>

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> candidates(const fs::path& given) {
  if (!given.empty()) return {given, given / ComponentLibrary::fileName};
  const fs::path folder = fs::read_symlink("/proc/self/exe").parent_path();
  const fs::path installed = (folder / AUTONOTIFY_COMPONENT_FOLDER).lexically_normal();
  return {folder / ComponentLibrary::fileName, installed / ComponentLibrary::fileName};
}

/// How many loaders of this program hold each loaded file.
std::map<void*, int>& holders() {
  static std::map<void*, int> held;
  return held;
}

void* openLibrary(const fs::path& file) {
  void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle) ++holders()[handle];
  return handle;
}

std::string lastLoadError() {
  const char* text = dlerror();
  return text ? text : "unknown failure of the loader";
}

}  // namespace

fs::path ComponentLibrary::locate(const fs::path& given) {
  std::string tried;
  for (const fs::path& candidate : candidates(given)) {
    std::error_code ignored;
    if (fs::is_regular_file(candidate, ignored)) return fs::absolute(candidate);
    tried += "\n  " + candidate.string();
  }
  throw ComponentError(std::string("the component ") + fileName + " was not found; tried:" + tried);
}

ComponentLibrary::ComponentLibrary(const fs::path& file, const PlatformServices& platform)
    : handle_(openLibrary(file)) {
  if (!handle_) throw ComponentError("cannot load " + file.string() + ": " + lastLoadError());
  void* object = nullptr;
  const int result = entryPoint<int(const char*, const char*, void**)>("DllGetClassObject")(
      classAutoNotifyCtrl, classObjectInterface, &object);
  if (result != componentOk) {
    throw ComponentError(file.string() + " has no " + classObjectInterface + " (result " +
                         std::to_string(result) + "); it is of another version");
  }
  classObject_ = static_cast<ClassObject*>(object);
  classObject_->setPlatform(platform);
}

ComponentLibrary::~ComponentLibrary() = default;

std::unique_ptr<clsAutoNotifyCtrl> ComponentLibrary::createControl() {
  return create<clsAutoNotifyCtrl>(classAutoNotifyCtrl);
}

std::unique_ptr<clsAutoNotification> ComponentLibrary::createNotification() {
  return create<clsAutoNotification>(classAutoNotification);
}

std::unique_ptr<clsFrmSentNotifyBulk> ComponentLibrary::createBulkScheduler() {
  return create<clsFrmSentNotifyBulk>(classFrmSentNotifyBulk);
}

std::unique_ptr<clsNotificationTools> ComponentLibrary::createTools() {
  return create<clsNotificationTools>(classNotificationTools);
}

bool ComponentLibrary::canUnload() const {
  return entryPoint<int()>("DllCanUnloadNow")() == componentOk;
}

template <class Function>
Function* ComponentLibrary::entryPoint(const char* name) const {
  void* symbol = dlsym(handle_.get(), name);
  if (!symbol) throw ComponentError("not the component: " + lastLoadError());
  return reinterpret_cast<Function*>(symbol);
}

template <class T>
std::unique_ptr<T> ComponentLibrary::create(const char* className) {
  std::unique_ptr<ComponentObject> object = classObject_->createInstance(className);
  if (!object) throw ComponentError(std::string("the component has no class ") + className);
  return std::unique_ptr<T>(static_cast<T*>(object.release()));
}

void ComponentLibrary::Unloader::operator()(void* handle) const {
  const bool isLast = --holders()[handle] == 0;
  const auto canUnloadNow = reinterpret_cast<int (*)()>(dlsym(handle, "DllCanUnloadNow"));
  if (!isLast || !canUnloadNow || canUnloadNow() == componentOk) dlclose(handle);
}

}  // namespace autonotify::host
