#include "store/modItemLinks.h"

#include "contract/procedure.h"
#include "contract/references.h"
#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modItemLinks", name>;

/// Creates the host object and hands it the two services that every such class takes.
template <class T>
void initialise(Step& step, std::unique_ptr<T>& object) {
  step.assign(object, createHostObject<T>);
  if (!object) return;
  step.run(&T::put_errorClass, object, references().errors);
  step.run(&T::put_DatabaseReference, object, references().databaseReference);
}

void initialiseClient(Step& step, std::unique_ptr<ClientIDClass>& client) {
  initialise(step, client);
  if (!client) return;
  step.run(&ClientIDClass::put_clientDropDownCtrlReference, client, references().clientDropDown);
}

}  // namespace

std::unique_ptr<ItemLinksClass> ItemLinksClassInit() {
  using Result = std::unique_ptr<ItemLinksClass>;
  return procedure(tagOf<"ItemLinksClassInit">, Result{}, initialise<ItemLinksClass>);
}

std::unique_ptr<ClientIDClass> ClientIDClassInit() {
  return procedure(tagOf<"ClientIDClassInit">, std::unique_ptr<ClientIDClass>{}, initialiseClient);
}

}  // namespace autonotify
