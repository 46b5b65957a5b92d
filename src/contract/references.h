#pragma once

#include <memory>

#include "contract/DatabaseReference.h"
#include "contract/FileUtility.h"
#include "contract/GeneralUtilities.h"
#include "contract/LocaleReference.h"
#include "contract/MsgboxClass.h"
#include "contract/PlatformServices.h"
#include "contract/ValidationUtilities.h"
#include "contract/WorkingFolderReference.h"
#include "contract/clientDropDownCtrlReference.h"
#include "contract/errorClass.h"

namespace autonotify {

/// The process-wide context: the nine references and the platform that all logic reads.
///
/// The six injected references are the host's; the component never releases them. The three utility
/// objects are the component's own and are replaced with each control object.
struct References {
  PlatformServices platform;
  DatabaseReference* databaseReference = nullptr;
  errorClass* errors = nullptr;
  MsgboxClass* msgboxClass = nullptr;
  WorkingFolderReference* workingFolderReference = nullptr;
  LocaleReference* localeReference = nullptr;
  clientDropDownCtrlReference* clientDropDown = nullptr;
  /// Who keeps the component's search panel at present.
  clientDropDownCtrlReference* panelKeeper = nullptr;
  std::unique_ptr<GeneralUtilities> generalUtilities;
  std::unique_ptr<ValidationUtilities> validationUtilities;
  std::unique_ptr<FileUtility> fileUtility;
};

namespace detail {

/// Ready before the program begins: it is asked for at every host call.
extern constinit References heldReferences;

[[noreturn]] void failNotSet(const char* name);

template <class Pointer>
auto& require(const Pointer& reference, const char* name) {
  if (!reference) failNotSet(name);
  return *reference;
}

}  // namespace detail

inline References& references() {
  return detail::heldReferences;
}

// The objects behind the references. Each throws PlatformError (91) when the reference is not set,
// so that a missing one is settled by the caller's procedure frame like any other failure.
inline DatabaseReference& database() {
  return detail::require(references().databaseReference, "DatabaseReference");
}
inline MsgboxClass& messageBox() {
  return detail::require(references().msgboxClass, "MsgboxClass");
}
inline WorkingFolderReference& workingFolder() {
  return detail::require(references().workingFolderReference, "WorkingFolderReference");
}
inline LocaleReference& locale() {
  return detail::require(references().localeReference, "LocaleReference");
}
inline clientDropDownCtrlReference& clients() {
  return detail::require(references().clientDropDown, "clientDropDownCtrlReference");
}
inline GeneralUtilities& generalUtilities() {
  return detail::require(references().generalUtilities, "GeneralUtilities");
}
inline ValidationUtilities& validation() {
  return detail::require(references().validationUtilities, "ValidationUtilities");
}
inline FileUtility& fileUtility() {
  return detail::require(references().fileUtility, "FileUtility");
}
inline HostClassRegistry& classRegistry() {
  return detail::require(references().platform.classRegistry, "HostClassRegistry");
}
inline Clock& platformClock() {
  return detail::require(references().platform.clock, "Clock");
}
inline FormHost& formHost() {
  return detail::require(references().platform.formHost, "FormHost");
}
/// The host's look and keyboard habits, as its locale gives them.
InterfaceStyler& styler();

/// A new object of the host's class T, owned by the caller. Throws PlatformError (429) when the
/// registry does not know the class or gives an object of another one.
template <class T>
std::unique_ptr<T> createHostObject() {
  std::unique_ptr<HostObject> object = classRegistry().create(T::className);
  T* typed = dynamic_cast<T*>(object.get());
  if (!typed) {
    throw PlatformError(error_number::cannotCreateObject, "Cannot create object", T::className);
  }
  object.release();
  return std::unique_ptr<T>(typed);
}

/// True when a window of the component with this name, in any case, is loaded.
bool isFormLoaded(const std::string& name);
/// That window, or nullptr.
Form* findForm(const std::string& name);

}  // namespace autonotify
