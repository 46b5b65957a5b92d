#include "store/modItemLinks.h"

#include "contract/procedure.h"
#include "contract/references.h"

namespace autonotify {
namespace {

/// Creates the host object and hands it the two services that every such class takes.
template <class T>
void initialise(Step& step, std::unique_ptr<T>& object) {
  step.assign(object, [] { return createHostObject<T>(); });
  if (!object) return;
  step.run([&] { object->put_errorClass(references().errors); });
  step.run([&] { object->put_DatabaseReference(references().databaseReference); });
}

}  // namespace

std::unique_ptr<ItemLinksClass> ItemLinksClassInit() {
  using Result = std::unique_ptr<ItemLinksClass>;
  return procedure("Morvane.exe-modItemLinks-ItemLinksClassInit", Result{},
                   [](Step& step, Result& links) { initialise(step, links); });
}

std::unique_ptr<ClientIDClass> ClientIDClassInit() {
  using Result = std::unique_ptr<ClientIDClass>;
  return procedure(
      "Morvane.exe-modItemLinks-ClientIDClassInit", Result{}, [](Step& step, Result& client) {
        initialise(step, client);
        if (!client) return;
        step.run([&] { client->put_clientDropDownCtrlReference(references().clientDropDown); });
      });
}

}  // namespace autonotify
