#include "contract/references.h"

#include <algorithm>

#include "platform/text.h"

namespace autonotify {
namespace {

/// Ready before the program begins: it is asked for at every host call.
constinit References heldReferences;

template <class Pointer>
auto& require(Pointer& reference, const char* name) {
  if (!reference) throw PlatformError(error_number::objectNotSet, "Object variable not set", name);
  return *reference;
}

}  // namespace

References& references() {
  return heldReferences;
}

DatabaseReference& database() {
  return require(references().databaseReference, "DatabaseReference");
}
MsgboxClass& messageBox() {
  return require(references().msgboxClass, "MsgboxClass");
}
WorkingFolderReference& workingFolder() {
  return require(references().workingFolderReference, "WorkingFolderReference");
}
LocaleReference& locale() {
  return require(references().localeReference, "LocaleReference");
}
clientDropDownCtrlReference& clients() {
  return require(references().clientDropDown, "clientDropDownCtrlReference");
}
GeneralUtilities& generalUtilities() {
  return require(references().generalUtilities, "GeneralUtilities");
}
ValidationUtilities& validation() {
  return require(references().validationUtilities, "ValidationUtilities");
}
FileUtility& fileUtility() {
  return require(references().fileUtility, "FileUtility");
}
HostClassRegistry& classRegistry() {
  return require(references().platform.classRegistry, "HostClassRegistry");
}
Clock& platformClock() {
  return require(references().platform.clock, "Clock");
}
FormHost& formHost() {
  return require(references().platform.formHost, "FormHost");
}
InterfaceStyler& styler() {
  InterfaceStyler* found = locale().getInterfaceStyler();
  return require(found, "InterfaceStyler");
}

Form* findForm(const std::string& name) {
  const std::vector<Form*> forms = formHost().openForms();
  const auto found = std::find_if(forms.begin(), forms.end(), [&](const Form* form) {
    return equalIgnoreCase(form->name(), name);
  });
  return found == forms.end() ? nullptr : *found;
}

bool isFormLoaded(const std::string& name) {
  return findForm(name) != nullptr;
}

}  // namespace autonotify
