#include "contract/tags.h"
#include "list/clsAutoNotifyFlexGrid.h"
#include "list/list_cells.h"
#include "platform/text.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotifyFlexGrid", name>;

bool isAmong(Step& step, RecordsetHandle assigned, const std::string& notification) {
  return assigned > 0 && step.holds(findRecord, assigned, "ClientNotificationID", notification);
}

}  // namespace

int clsAutoNotifyFlexGrid::populateRowInformation(const Row& record, int rowNum, Id colNum) {
  return procedure(tagOf<"populateRowInformation">, rowNum, [&](Step& step, int& row) {
    const Row shown(step, record.handle());
    RowClient client = clientOf(shown);
    if (client && !passesTests(shown, client)) return;
    if (row == -1) step.assign(row, &Grid::AddItem, flexGrid_);
    if (row < 0 || !mvarFlexGridColumns_) return;
    if (colNum < 1) return populateAllCells(shown, row, client);
    step.run(&GridColumnList::selectEntry, mvarFlexGridColumns_, colNum);
    populateCellInformation(shown, row, client);
  });
}

void clsAutoNotifyFlexGrid::populateAllCells(const Row& record, int rowNum, RowClient& client) {
  Step& step = record.step();
  step.run([this] { mvarFlexGridColumns_->moveFirst(); });
  while (!step.value(true, [this] { return mvarFlexGridColumns_->isAtEnd(); })) {
    populateCellInformation(record, rowNum, client);
    step.run([this] { mvarFlexGridColumns_->moveNext(); });
  }
}

void clsAutoNotifyFlexGrid::populateCellInformation(const Row& record, int rowNum,
                                                    RowClient& client) {
  procedure(tagOf<"populateCellInformation">, [&](Step& step) {
    const auto item = [this](int number) { return mvarFlexGridColumns_->getItem(number); };
    const bool isVisible = step.holds([item] { return toFlag(item(column_item::visible)); });
    const Id column = step.value(noId, [item] { return toInteger(item(column_item::id)); });
    const Row shown(step, record.handle());
    fillCell({shown, client, *flexGrid_, rowNum}, column, isVisible);
  });
}

/// The employee takes the place of the client's staff: where one is searched, these do not count.
bool clsAutoNotifyFlexGrid::passesTests(const Row& record, const RowClient& client) {
  if (searchEmployeeAssignedName && !searchEmployeeAssignedNameText.empty())
    return isAssigned(record);
  return !filterByClientStaff_ || hasSearchedStaff(record.step(), client);
}

/// The recordsets are open while a load lasts. A row that is read again later is in the list
/// because it was found then.
bool clsAutoNotifyFlexGrid::isAssigned(const Row& record) {
  if (!isPopulating_) return true;
  const std::string notification = record.text("ClientNotificationID");
  return isAmong(record.step(), assignedScheduleHandle_, notification) ||
         isAmong(record.step(), assignedApptHandle_, notification);
}

bool clsAutoNotifyFlexGrid::hasSearchedStaff(Step& step, const RowClient& client) {
  const auto has = [&](std::int16_t item, const std::string& name) {
    return equalIgnoreCase(infoItemOf(step, client, item), name);
  };
  if (!searchPartnerName && !searchAccountantName) return false;
  return (!searchPartnerName || has(info_item::supervisingPartner, searchPartnerNameText)) &&
         (!searchAccountantName || has(info_item::managingAccountant, searchAccountantNameText));
}

void clsAutoNotifyFlexGrid::refreshRowInfo(Id autoNotifyID, Id colNum) {
  procedure(tagOf<"refreshRowInfo">, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    const Rows record(step, notificationById, autoNotifyID, forwardUpdate);
    if (!record) return;
    const int row = getRowNumFromScheduleID(autoNotifyID);
    if (row < 0) return;
    step.run(&Grid::put_Redraw, flexGrid_, false);
    populateRowInformation(record, row, colNum);
    step.run(&Grid::put_Redraw, flexGrid_, true);
  });
}

int clsAutoNotifyFlexGrid::getRowNumFromScheduleID(Id autoNotifyID) {
  return procedure(tagOf<"getRowNumFromScheduleID">, -1, [&](Step& step, int& found) {
    const std::string sought = std::to_string(autoNotifyID);
    const int rows = step.value(0, &Grid::get_Rows, flexGrid_);
    for (int row = 0; row < rows; ++row) {
      const auto isSought = [&] {
        return flexGrid_->get_CellText(row, list_column::notification) == sought;
      };
      if (!step.holds(isSought)) continue;
      found = row;
      return;
    }
  });
}

}  // namespace autonotify
