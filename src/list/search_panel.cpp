#include "list/search_panel.h"

#include <utility>

#include "contract/references.h"
#include "list/frmAutoNotifySearch.h"

namespace autonotify {
namespace {

void keepSearchPanel(const std::shared_ptr<frmAutoNotifySearch>& panel) {
  references().panelKeeper = &clients();
  clients().registerPanel(searchPanelKey, panel);
}

}  // namespace

std::shared_ptr<frmAutoNotifySearch> keptSearchPanel(Step& step) {
  std::shared_ptr<HostObject> kept;
  step.assign(kept, [] { return clients().getPanel(searchPanelKey); });
  auto panel = std::dynamic_pointer_cast<frmAutoNotifySearch>(kept);
  if (panel && panel->isLoaded()) return panel;
  step.assign(panel, [] { return std::make_shared<frmAutoNotifySearch>(); });
  if (panel) step.run(keepSearchPanel, panel);
  return panel;
}

void giveBackSearchPanel() {
  clientDropDownCtrlReference* keeper = std::exchange(references().panelKeeper, nullptr);
  if (keeper) keeper->registerPanel(searchPanelKey, nullptr);
}

}  // namespace autonotify
