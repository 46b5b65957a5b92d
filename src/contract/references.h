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

References& references();

// The objects behind the references. Each throws PlatformError (91) when the reference is not set,
// so that a missing one is settled by the caller's procedure frame like any other failure.
DatabaseReference& database();
MsgboxClass& messageBox();
WorkingFolderReference& workingFolder();
LocaleReference& locale();
clientDropDownCtrlReference& clients();
GeneralUtilities& generalUtilities();
ValidationUtilities& validation();
FileUtility& fileUtility();
HostClassRegistry& classRegistry();
Clock& platformClock();
FormHost& formHost();
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
