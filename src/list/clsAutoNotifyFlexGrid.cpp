#include "list/clsAutoNotifyFlexGrid.h"

#include <utility>

#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotifyFlexGrid", name>;

using enum GridSetting;
constexpr std::pair<GridSetting, int> listSettings[] = {
    {CurrentGridType, 12},
    {RowCheckBoxes, 0},
    {AllowColumnDrag, 0},
    {AllowColumnSwap, 0},
    {AllowColumnResizing, 1},
    {AllowColumnSort, 1},
    {DisplayEllipsis, 1},
    {AllowEdit, 1},
    {FocusRowHighlight, 0},
    {FocusRectHide, 1},
    {AllowColumnHover, 1},
    {ScrollTrack, 1},
    {GridLines, 3},
    {ThemeColor, 0},
    {ThemeStyle, 3},
    {AlphaBlendSelection, 0},
    {ApplySelectionToImages, 0},
    {EditTrigger, 26},
    {MinRowHeight, 375},
};

template <class Pointer>
auto& objectOf(const Pointer& held, const char* name) {
  if (!held) throw PlatformError(error_number::objectNotSet, "Object variable not set", name);
  return *held;
}

}  // namespace

clsAutoNotifyFlexGrid::clsAutoNotifyFlexGrid(AutoNotifyFlexGridEvents& window) : window_(&window) {
  resetSearchCriteria();
}

Grid& clsAutoNotifyFlexGrid::grid() const {
  return objectOf(flexGrid_, "flexGrid");
}
GridColumnList& clsAutoNotifyFlexGrid::columnList() const {
  return objectOf(mvarFlexGridColumns_, "mvarFlexGridColumns");
}
GridColumnList& clsAutoNotifyFlexGrid::sortList() const {
  return objectOf(sortStructure_, "sortStructure");
}

void clsAutoNotifyFlexGrid::put_flexGrid(Grid* grid) {
  flexGrid_ = grid;
  setupFlexGrid();
}

void clsAutoNotifyFlexGrid::setupFlexGrid() {
  const auto self = shared_from_this();
  procedure(tagOf<"setupFlexGrid">, [&](Step& step) {
    gridBusy_ = true;
    step.assign(mvarFlexGridColumns_, createHostObject<GridColumnList>);
    step.assign(sortStructure_, createHostObject<GridColumnList>);
    for (const auto& each : listSettings) step.run([&] { grid().put(each.first, each.second); });
    getFlexGridInformation();
    populateColumns();
    gridBusy_ = false;
  });
}

}  // namespace autonotify
