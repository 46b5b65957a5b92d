#include "contract/references.h"
#include "contract/tags.h"
#include "contract/windows.h"
#include "list/clsAutoNotifyFlexGrid.h"
#include "list/frmAutoNotifyChangeListColumns.h"
#include "list/frmAutoNotifySearch.h"
#include "list/frmSendAutoNotifyListOptions.h"
#include "list/search_panel.h"
#include "settings/modUserSettings.h"
#include "settings/user_row.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotifyFlexGrid", name>;

constexpr int portrait = 1;

}  // namespace

bool clsAutoNotifyFlexGrid::showAdvancedSearch() {
  return procedure(tagOf<"showAdvancedSearch">, false, [&](Step& step, bool& isSearch) {
    clearCurrentPopulating();
    saveColumnSizes(false);
    const auto panel = keptSearchPanel(step);
    if (!panel) return;
    panel->PassedClassRef(this);
    isSearch = panel->Initialize();
    if (!isSearch) return;
    generateSQLStr();
    requestPopulateInfo();
  });
}

bool clsAutoNotifyFlexGrid::showChangeColumns() {
  return procedure(tagOf<"showChangeColumns">, false, [&](Step& step, bool& isChanged) {
    clearCurrentPopulating();
    saveColumnSizes(false);
    withWindow<frmAutoNotifyChangeListColumns>(
        step, [&](auto& chooser) { isChanged = chooser.Initialize(*this); });
    if (!isChanged) return;
    // The grid still has the columns as they were: a column that comes back has no width in it.
    storeSettings(step);
    populateColumns();
    requestPopulateInfo();
  });
}

bool clsAutoNotifyFlexGrid::showGridOptions() {
  return procedure(tagOf<"showGridOptions">, false, [&](Step& step, bool& isChanged) {
    clearCurrentPopulating();
    saveColumnSizes(false);
    putFlexGridInformation();
    const bool isCancelled = step.value(true, [&] { return grid().openHalvornGridSettingsForm(); });
    isChanged = !isCancelled;
    if (isCancelled) return;
    getFlexGridInformation();
    populateColumns();
    requestPopulateInfo();
  });
}

void clsAutoNotifyFlexGrid::showGridPrintPreviewForm() {
  procedure(tagOf<"showGridPrintPreviewForm">, [&](Step& step) {
    clearCurrentPopulating();
    saveColumnSizes(false);
    step.run(
        [&] { grid().openHalvornGridPrintPreviewForm(mvarDisplayStr_, LastColumn, portrait); });
  });
}

void clsAutoNotifyFlexGrid::showSendAutoNotifyListOptions() {
  procedure(tagOf<"showSendAutoNotifyListOptions">, [&](Step& step) {
    withWindow<frmSendAutoNotifyListOptions>(step, [](auto& options) { options.Initialize(); });
    const Id user = currentUser(step);
    showMVPreview = getShowMVPreview(user);
    showEmailPreview_ = getShowEmailPreview(user) > 0;
  });
}

}  // namespace autonotify
