#include "host/loader/ComponentLibrary.h"

#include <dlfcn.h>

#include <map>
#include <string>
#include <system_error>
#include <vector>

#include "host/words/Words.h"

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
  return text ? text : Words::tr("unknown failure of the loader");
}

}  // namespace

fs::path ComponentLibrary::locate(const fs::path& given) {
  std::string tried;
  for (const fs::path& candidate : candidates(given)) {
    std::error_code ignored;
    if (fs::is_regular_file(candidate, ignored)) return fs::absolute(candidate);
    tried += "\n  " + candidate.string();
  }
  throw ComponentError(Words::tr("the component %1 was not found; tried:%2", {fileName, tried}));
}

ComponentLibrary::ComponentLibrary(const fs::path& file, const PlatformServices& platform)
    : handle_(openLibrary(file)) {
  if (!handle_)
    throw ComponentError(Words::tr("cannot load %1: %2", {file.string(), lastLoadError()}));
  void* object = nullptr;
  const int result = entryPoint<int(const char*, const char*, void**)>("DllGetClassObject")(
      classAutoNotifyCtrl, classObjectInterface, &object);
  if (result != componentOk) {
    throw ComponentError(Words::tr("%1 has no %2 (result %3); it is of another version",
                                   {file.string(), classObjectInterface, std::to_string(result)}));
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
  if (!symbol) throw ComponentError(Words::tr("not the component: %1", {lastLoadError()}));
  return reinterpret_cast<Function*>(symbol);
}

template <class T>
std::unique_ptr<T> ComponentLibrary::create(const char* className) {
  std::unique_ptr<ComponentObject> object = classObject_->createInstance(className);
  if (!object) throw ComponentError(Words::tr("the component has no class %1", {className}));
  return std::unique_ptr<T>(static_cast<T*>(object.release()));
}

void ComponentLibrary::Unloader::operator()(void* handle) const {
  const bool isLast = --holders()[handle] == 0;
  const auto canUnloadNow = reinterpret_cast<int (*)()>(dlsym(handle, "DllCanUnloadNow"));
  if (!isLast || !canUnloadNow || canUnloadNow() == componentOk) dlclose(handle);
}

}  // namespace autonotify::host
