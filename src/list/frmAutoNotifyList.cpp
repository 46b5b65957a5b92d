#include "list/frmAutoNotifyList.h"

#include <initializer_list>

#include "contract/windows.h"
#include "list/clsAutoNotifyFlexGrid.h"
#include "list/criteria_parts.h"
#include "list/grid_references.h"
#include "platform/controls/key_codes.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view listTag = procedureTag<"frmAutoNotifyList", name>;

constexpr int rightMouseButton = 2;
/// Until then the window has painted itself.
constexpr int pumpsAtStart = 5;
constexpr int listOfAllClients = 2;

/// Positions in the top bar.
namespace top_bar {
constexpr std::size_t search = 0;
constexpr std::size_t columns = 1;
constexpr std::size_t preview = 2;
constexpr std::size_t firstPreset = 3;
constexpr std::size_t print = 7;
}  // namespace top_bar

/// What a preset asks for besides what is due: what names the current user in this criterion.
constexpr std::array<const NameCriterion*, 4> listPresets{
    nullptr,
    &employeeCriterion,
    &accountantCriterion,
    &partnerCriterion,
};

std::string listTitle(int entries) {
  return "Client Auto Notifications List (" + std::to_string(entries) + " entries)";
}

std::string currentUserName() {
  return clients().getUserNameFromID(locale().getCurrentUserID());
}

}  // namespace

template <class Operation, class... Given>
void frmAutoNotifyList::withList(Operation operation, Given&&... given) {
  if (const auto list = AutoNotifyGridClass_) std::invoke(operation, *list, given...);
}

template <class Operation, class... Given>
void frmAutoNotifyList::forward(std::function<void(Given...)>& event, const char* procedureName,
                                Operation operation) {
  event = [this, operation, tag = tag(procedureName)](Given... given) {
    procedure(tag, [&](Step&) { withList(operation, given...); });
  };
}

frmAutoNotifyList::frmAutoNotifyList()
    : Window(formHost(), formName, "Client Automatic Notifications List") {
  lblTitle.setCaption(listTitle(0));
  pgbTasksProgress.setContainer(picProgressContainer);
  cmdCancelPopulatingList.setContainer(picProgressContainer);
  for (Menu* entry :
       {&mnuTasksGridProperties, &mnuResizeToFitScreen, &mnuResetTasksToDefault, &mnuTasksWordWrap})
    entry->setContainer(mnuTasks);
  for (Control* hidden : std::initializer_list<Control*>{
           &picProgressContainer, &lblHiddenCtrl, &txtEditFlexGrid, &txtEditNumericGrid,
           &mvcFlexEdit, &cboEmployeeAssigned, &cboQuickSearch, &txtHours, &txtMinutes,
           &picAllocatedTime, &rtbTemp})
    hidden->setVisible(false);
  tieCommands();
  tieGrid();
}

void frmAutoNotifyList::tieCommands() {
  using Self = frmAutoNotifyList;
  using List = clsAutoNotifyFlexGrid;
  react(tmrStartup.onTimer, "tmrStartup_Timer", &Self::start);
  for (std::size_t i = 0; i < imgTopBarButton.size(); ++i)
    reactAt(i, imgTopBarButton[i].onClick, "imgTopBarButton_Click", &Self::pressTopBar);
  react(cmdRefreshTaskGrid.onClick, "cmdRefreshTaskGrid_Click", &Self::refresh);
  react(cmdClose.onClick, "cmdClose_Click", &Self::close);
  forward(cmdSendAll.onClick, "cmdSendAll_Click", &List::sendAll);
  forward(cmdGridOptions.onClick, "cmdGridOptions_Click", &List::showGridOptions);
  forward(cmdAdvancedOptions.onClick, "cmdAdvancedOptions_Click",
          &List::showSendAutoNotifyListOptions);
  forward(cmdCancelPopulatingList.onClick, "cmdCancelPopulatingList_Click",
          &List::cancelAndClearCurrentPopulating);
  forward(mnuResetTasksToDefault.onClick, "mnuResetTasksToDefault_Click",
          &List::resetTaskListToDefault);
  react(mnuTasksGridProperties.onClick, "mnuTasksGridProperties_Click",
        &Self::changeGridProperties);
  react(mnuResizeToFitScreen.onClick, "mnuResizeToFitScreen_Click", &Self::fitColumns);
  react(mnuTasksWordWrap.onClick, "mnuTasksWordWrap_Click", &Self::wrapWords);
}

void frmAutoNotifyList::tieGrid() {
  using Self = frmAutoNotifyList;
  using List = clsAutoNotifyFlexGrid;
  Grid& grid = AutoNotifyFlexGrid;
  forward(grid.onBeforeEdit, "AutoNotifyFlexGrid_BeforeEdit", &List::BeforeEdit);
  forward(grid.onAfterEdit, "AutoNotifyFlexGrid_AfterEdit", &List::AfterEdit);
  forward(grid.onCellButtonClick, "AutoNotifyFlexGrid_CellButtonClick", &List::CellButtonClick);
  forward(grid.onCellImageClick, "AutoNotifyFlexGrid_CellImageClick", &List::CellImageClick);
  forward(grid.onSortComplete, "AutoNotifyFlexGrid_SortComplete", &List::changeSort);
  forward(grid.onScroll, "AutoNotifyFlexGrid_Scroll", &List::checkIfEditingField);
  react(grid.onKeyPress, "AutoNotifyFlexGrid_KeyPress", &Self::passKey);
  react(grid.onMouseUp, "AutoNotifyFlexGrid_MouseUp", &Self::releaseMouse);
}

// Opening and closing.

void frmAutoNotifyList::Initialize() {
  procedure(listTag<"Initialize">, [&](Step& step) {
    step.run(setPointer, Pointer::busy);
    step.run(styleForm, *this);
    step.run([] { clients().setClientLookupBatch(true); });
    halvornGridControlInit(AutoNotifyFlexGrid);
    halvornGridControlInitDatabase(AutoNotifyFlexGrid);
    tmrStartup.setEnabled(true);
    step.run(setPointer, Pointer::standard);
    step.run(autonotify::showModal, *this);
  });
}

/// The window may have been closed while it painted itself.
void frmAutoNotifyList::start(Step& step) {
  tmrStartup.setEnabled(false);
  yieldToHost(step, pumpsAtStart);
  if (isLoaded()) setupAutoNotifyListFlexGrids();
}

void frmAutoNotifyList::setupAutoNotifyListFlexGrids() {
  procedure(listTag<"setupAutoNotifyListFlexGrids">, [&](Step& step) {
    const auto make = [&] { return std::make_shared<clsAutoNotifyFlexGrid>(*this); };
    if (!AutoNotifyGridClass_) step.assign(AutoNotifyGridClass_, make);
    const auto list = AutoNotifyGridClass_;
    if (!list) return;
    list->autoNotifyListDisplayType = listOfAllClients;
    list->hiddenCtrlBox = &lblHiddenCtrl;
    list->put_flexGrid(&AutoNotifyFlexGrid);
    if (!isLoaded()) return;
    searchDue(step, *list);
    list->requestPopulateInfo();
  });
}

/// What is unsent and to go out by now.
void frmAutoNotifyList::searchDue(Step& step, clsAutoNotifyFlexGrid& list) {
  list.resetSearchCriteria();
  list.searchByNotificationDate = true;
  step.assign(list.searchStartNotificationDate, [] { return platformClock().now(); });
  list.searchNotificationDateDirection = date_direction::onAndBefore;
}

void frmAutoNotifyList::QueryUnloadForm() {
  procedure(listTag<"QueryUnloadForm">, [&](Step&) {
    withList(&clsAutoNotifyFlexGrid::cancelCurrentPopulatingAndCloseParentForm);
  });
}

/// Before its first load the window has nothing to end.
void frmAutoNotifyList::close(Step&) {
  QueryUnloadForm();
  if (!AutoNotifyGridClass_) unload();
}

bool frmAutoNotifyList::queryUnload(CloseReason) {
  QueryUnloadForm();
  return true;
}

/// A load that is under way goes on without the window until it sees that it shall end.
void frmAutoNotifyList::onUnload() {
  procedure(listTag<"Form_Unload">, [&](Step& step) {
    withList(&clsAutoNotifyFlexGrid::putFlexGridInformation);
    withList(&clsAutoNotifyFlexGrid::leaveWindow);
    AutoNotifyGridClass_.reset();
    step.run(setPointer, Pointer::standard);
    step.run([] { clients().setClientLookupBatch(false); });
  });
}

// Commands.

void frmAutoNotifyList::refreshGrid() {
  procedure(listTag<"refreshGrid">,
            [&](Step&) { withList(&clsAutoNotifyFlexGrid::requestPopulateInfo); });
}

void frmAutoNotifyList::refreshSpecificGrid() {
  procedure(listTag<"refreshSpecificGrid">,
            [&](Step&) { withList(&clsAutoNotifyFlexGrid::requestPopulateInfo); });
}

void frmAutoNotifyList::refreshAutoNotificationRowByAutoNotificationID(Id notificationId) {
  procedure(listTag<"refreshAutoNotificationRowByAutoNotificationID">,
            [&](Step&) { withList(&clsAutoNotifyFlexGrid::refreshRowInfo, notificationId, noId); });
}

ListRowAtWork* frmAutoNotifyList::rowAtWork() {
  return AutoNotifyGridClass_ ? AutoNotifyGridClass_->rowAtWork() : nullptr;
}

void frmAutoNotifyList::endSendAll() {
  withList(&clsAutoNotifyFlexGrid::endSendAll);
}

void frmAutoNotifyList::refresh(Step&) {
  refreshSpecificGrid();
}

void frmAutoNotifyList::pressTopBar(Step& step, std::size_t button) {
  using List = clsAutoNotifyFlexGrid;
  switch (button) {
    case top_bar::search:
      return withList(&List::showAdvancedSearch);
    case top_bar::columns:
      return withList(&List::showChangeColumns);
    case top_bar::preview:
      return withList(&List::showGridPrintPreviewForm);
    case top_bar::print:
      return printList(step);
    default:
      return usePreset(step, button - top_bar::firstPreset);
  }
}

void frmAutoNotifyList::usePreset(Step& step, std::size_t preset) {
  const auto list = AutoNotifyGridClass_;
  if (!list) return;
  searchDue(step, *list);
  if (const NameCriterion* criterion = listPresets[preset]) {
    (*list).*criterion->isOn = true;
    step.assign((*list).*criterion->name, currentUserName);
  }
  list->requestPopulateInfo();
}

void frmAutoNotifyList::printList(Step& step) {
  const auto list = AutoNotifyGridClass_;
  if (!list) return;
  const std::string title = "Client Auto Notify List - " + list->displayText();
  step.run([&] { AutoNotifyFlexGrid.printGrid(true, title, clsAutoNotifyFlexGrid::LastColumn); });
}

// The grid.

void frmAutoNotifyList::passKey(Step&, int& key, int pressed) {
  key = pressed;
  for (const int ending : {key_code::tab, key_code::enter, key_code::escape})
    if (pressed == ending) withList(&clsAutoNotifyFlexGrid::checkIfEditingField);
}

void frmAutoNotifyList::releaseMouse(Step& step, int button) {
  const auto list = AutoNotifyGridClass_;
  if (button != rightMouseButton || !list) return;
  mnuTasksWordWrap.setChecked(list->GridWordWrap);
  step.run([&] { formHost().popUpMenu(*this, mnuTasks); });
}

void frmAutoNotifyList::changeGridProperties(Step& step) {
  const bool isCancelled =
      step.value(true, [&] { return AutoNotifyFlexGrid.openHalvornGridPropertiesForm(); });
  if (!isCancelled) buildAnew();
}

void frmAutoNotifyList::fitColumns(Step&) {
  bool allowsReduced = true;
  withList(&clsAutoNotifyFlexGrid::resizeFlexGrid, false, allowsReduced);
}

void frmAutoNotifyList::wrapWords(Step&) {
  const auto list = AutoNotifyGridClass_;
  if (!list) return;
  mnuTasksWordWrap.setChecked(!mnuTasksWordWrap.checked());
  list->GridWordWrap = !list->GridWordWrap;
  buildAnew();
}

void frmAutoNotifyList::buildAnew() {
  withList(&clsAutoNotifyFlexGrid::populateColumns);
  withList(&clsAutoNotifyFlexGrid::requestPopulateInfo);
}

// What the controller tells.

void frmAutoNotifyList::closeGridParentForm() {
  procedure(listTag<"AutoNotifyGridClass_closeGridParentForm">, [&](Step&) { unload(); });
}

void frmAutoNotifyList::setupProgressBar(int numIncrements) {
  procedure(listTag<"AutoNotifyGridClass_setupProgressBar">, [&](Step& step) {
    AutoNotifyFlexGrid.setVisible(false);
    picProgressContainer.setVisible(true);
    pgbTasksProgress.setMinimum(0);
    pgbTasksProgress.setMaximum(numIncrements);
    pgbTasksProgress.setValue(0);
    step.run(&Form::repaint, *this);
    yieldToHost(step, 1);
  });
}

void frmAutoNotifyList::incrementProgressBar(int incNum) {
  procedure(listTag<"AutoNotifyGridClass_incrementProgressBar">, [&](Step& step) {
    pgbTasksProgress.setValue(incNum);
    yieldToHost(step, 1);
  });
}

void frmAutoNotifyList::hideProgressBar() {
  procedure(listTag<"AutoNotifyGridClass_hideProgressBar">, [&](Step&) {
    AutoNotifyFlexGrid.setVisible(true);
    picProgressContainer.setVisible(false);
  });
}

void frmAutoNotifyList::numberOfEntries(int numEntries) {
  procedure(listTag<"AutoNotifyGridClass_numberOfEntries">,
            [&](Step&) { lblTitle.setCaption(listTitle(numEntries)); });
}

void frmAutoNotifyList::sortEntries(const std::array<GridSortKey, 3>& keys) {
  procedure(listTag<"AutoNotifyGridClass_sortEntries">,
            [&](Step& step) { step.run([&] { AutoNotifyFlexGrid.sort(keys[0], keys[1]); }); });
}

void frmAutoNotifyList::changeDisplayTextString(const std::string& sentence) {
  procedure(listTag<"AutoNotifyGridClass_changeDisplayTextString">, [&](Step& step) {
    step.run([&] { lblDisplay.setCaption(generalUtilities().toLabelText(sentence)); });
  });
}

}  // namespace autonotify
