#include "contract/references.h"

#include <algorithm>

#include "platform/text.h"

namespace autonotify {
namespace detail {

constinit References heldReferences;

void failNotSet(const char* name) {
  throw PlatformError(error_number::objectNotSet, "Object variable not set", name);
}

}  // namespace detail

InterfaceStyler& styler() {
  return detail::require(locale().getInterfaceStyler(), "InterfaceStyler");
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
