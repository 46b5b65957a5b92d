#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>

#include "control/clsAutoNotification.h"
#include "control/clsAutoNotifyCtrl.h"
#include "control/clsFrmSentNotifyBulk.h"
#include "control/clsNotificationTools.h"
#include "control/component.h"

namespace autonotify::host {

/// The component's file cannot be found, cannot be loaded or is not the component.
class ComponentError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The component hvAutoNotifyCtrl6, loaded from its file and ready to create objects.
///
/// Several of one file share one context. Destroying the last of them unloads the library when
/// nothing of it is in use any more; otherwise it stays loaded until the process ends, so that
/// objects which outlive their loader stay good. For one thread.
class ComponentLibrary {
 public:
  static constexpr const char* fileName = "hvAutoNotifyCtrl6.so";

  /// The component's file: `given` when it is not empty (the file, or the folder that holds it),
  /// otherwise beside the running program, otherwise where the installation puts libraries, seen
  /// from there. Throws ComponentError, which names the places that were tried.
  static std::filesystem::path locate(const std::filesystem::path& given = {});

  /// Loads the component of that file. `platform` must outlive all its objects. Throws
  /// ComponentError.
  ComponentLibrary(const std::filesystem::path& file, const PlatformServices& platform);
  ~ComponentLibrary();
  ComponentLibrary(const ComponentLibrary&) = delete;
  ComponentLibrary& operator=(const ComponentLibrary&) = delete;

  /// A new object. A control that cannot have the host classes it needs throws PlatformError; a
  /// notification asks at the error dialog, so assign the control's errorClass before.
  std::unique_ptr<clsAutoNotifyCtrl> createControl();
  std::unique_ptr<clsAutoNotification> createNotification();
  std::unique_ptr<clsFrmSentNotifyBulk> createBulkScheduler();
  std::unique_ptr<clsNotificationTools> createTools();

  ClassObject& classObject() { return *classObject_; }
  /// True when no object and no lock of the library is left.
  bool canUnload() const;

 private:
  template <class Function>
  Function* entryPoint(const char* name) const;
  template <class T>
  std::unique_ptr<T> create(const char* className);

  /// Closes the library, unless something of it is in use.
  struct Unloader {
    void operator()(void* handle) const;
  };
  std::unique_ptr<void, Unloader> handle_;
  ClassObject* classObject_ = nullptr;
};

}  // namespace autonotify::host
