#include "contract/tags.h"
#include "contract/windows.h"
#include "list/clsAutoNotifyFlexGrid.h"

// How the list is loaded, stopped and loaded again.

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotifyFlexGrid", name>;

using Events = AutoNotifyFlexGridEvents;

constexpr const char* countColumn = "ClientNotificationCount";

std::string selectNotifications(const std::string& columns, const std::string& filter) {
  const std::string condition = filter.empty() ? "" : " WHERE " + filter;
  return "SELECT " + columns + " FROM ClientNotification" + condition + ";";
}

/// Notifications of tasks that the employee does.
std::string selectAssignedTasks(const std::string& employee) {
  return "SELECT ClientNotification.ClientNotificationID, Schedule.EmployeeAssigned "
         "FROM ClientNotification INNER JOIN Schedule "
         "ON ClientNotification.ScheduleIDNum = Schedule.ScheduleID "
         "WHERE Schedule.EmployeeAssigned='" +
         database().formatTextForSQL(employee) + "';";
}

/// Notifications of the employee's appointments.
std::string selectAssignedAppointments(const std::string& employee) {
  return statementFor(
      "SELECT ClientNotification.ClientNotificationID, Appointments.UserIDNum "
      "FROM ClientNotification INNER JOIN Appointments "
      "ON ClientNotification.ApptIDNum = Appointments.AppointmentID "
      "WHERE Appointments.UserIDNum=",
      clients().getUserIDFromName(employee));
}

int countNotifications(Step& step, const std::string& filter) {
  const std::string sql = selectNotifications(
      "COUNT(ClientNotification.ClientNotificationID) AS " + std::string(countColumn), filter);
  const Row total(step, step.value(noRecordset, openRecordset, sql, forwardRead));
  const auto isEmpty = [&] { return database().isRecordsetEmpty(total.handle()); };
  const int count = step.value(true, isEmpty) ? 0 : total.id(countColumn, 0);
  total.close();
  return count;
}

}  // namespace

// Asking for a load.

void clsAutoNotifyFlexGrid::requestPopulateInfo() {
  const auto self = shared_from_this();
  procedure(tagOf<"requestPopulateInfo">, [&](Step&) {
    // Noted first: what is asked for while the columns are built comes later.
    if (isPopulating_) {
      populateAfterCancel_ = AfterCancel::populate;
      cancelRequested_ = true;
    }
    if (!columnsBuilt_) populateColumns();
    generateSQLStr();
    if (!isPopulating_) populateInfo();
    raise(&Events::hideProgressBar);
  });
}

/// Without a load the flag stays up until the next one begins.
void clsAutoNotifyFlexGrid::cancelAndClearCurrentPopulating() {
  procedure(tagOf<"cancelAndClearCurrentPopulating">, [&](Step&) {
    populateAfterCancel_ = AfterCancel::clear;
    cancelRequested_ = true;
  });
}

void clsAutoNotifyFlexGrid::cancelCurrentPopulatingAndCloseParentForm() {
  procedure(tagOf<"cancelCurrentPopulatingAndCloseParentForm">, [&](Step&) {
    if (!isPopulating_) return raise(&Events::closeGridParentForm);
    populateAfterCancel_ = AfterCancel::close;
    cancelRequested_ = true;
  });
}

void clsAutoNotifyFlexGrid::clearCurrentPopulating() {
  procedure(tagOf<"clearCurrentPopulating">, [&](Step& step) {
    if (!isPopulating_) return;
    step.run([&] { grid().ResetAndClearRows(); });
    raise(&Events::changeDisplayTextString, std::string("List Population Cancelled"));
  });
}

void clsAutoNotifyFlexGrid::resetTaskListToDefault() {
  const auto self = shared_from_this();
  procedure(tagOf<"resetTaskListToDefault">, [&](Step&) {
    gridBusy_ = true;
    const int load = loads_;
    cancelAndClearCurrentPopulating();
    createDefaultColumnStructure();
    generateSQLStr();
    populateColumns();
    bool allowsReducing = false;
    resizeFlexGrid(true, allowsReducing);
    // What was asked for while the columns were built has been loaded, or a load that runs follows
    // it.
    if (loads_ == load && populateAfterCancel_ == AfterCancel::clear) populateInfo();
    gridBusy_ = false;
  });
}

// The load.

void clsAutoNotifyFlexGrid::populateInfo() {
  procedure(tagOf<"populateInfo">, [&](Step& step) {
    ++loads_;
    gridBusy_ = true;
    isPopulating_ = true;
    cancelRequested_ = false;
    populateAfterCancel_ = AfterCancel::clear;
    if (populateList(step)) {
      gridBusy_ = false;
      if (cancelRequested_) followCancel(step);
    } else {
      resetOnce(step);
    }
    isPopulating_ = false;
    step.run(setPointer, Pointer::standard);
    raise(&Events::hideProgressBar);
  });
  // A person who has left a load that failed can ask for the next one.
  isPopulating_ = false;
}

/// False when the query failed, which leaves the painting off and the look-up batch open.
bool clsAutoNotifyFlexGrid::populateList(Step& step) {
  if (!isDatabaseOpen(step)) return true;
  prepareList(step);
  if (!fillList(step)) return false;
  showList(step);
  return true;
}

void clsAutoNotifyFlexGrid::prepareList(Step& step) {
  isTaskListPopulated_ = true;
  step.run([] { clients().setClientLookupBatch(true); });
  step.run([&] { grid().put_Redraw(false); });
  step.run(setPointer, Pointer::busy);
  step.run([&] { grid().ResetAndClearRows(); });
  raise(&Events::changeDisplayTextString, mvarDisplayStr_);
  raise(&Events::numberOfEntries, 0);
}

void clsAutoNotifyFlexGrid::showList(Step& step) {
  step.run([&] { grid().put_Redraw(true); });
  step.run([] { clients().setClientLookupBatch(false); });
  step.run(setPointer, Pointer::standard);
}

/// False when the query failed.
bool clsAutoNotifyFlexGrid::fillList(Step& step) {
  const int count = countNotifications(step, SQLFilter);
  if (count < 1) {
    listEmpty_ = true;
    raise(&Events::numberOfEntries, 0);
    return true;
  }
  if (cancelRequested_) return true;
  raise(&Events::numberOfEntries, count);
  return fillRows(step, count);
}

bool clsAutoNotifyFlexGrid::fillRows(Step& step, int count) {
  const std::string sql = buildSQLStr();
  const Row record(step, step.value(noRecordset, openRecordset, sql, forwardUpdate));
  std::vector<RecordsetHandle> open{record.handle()};
  if (!cancelRequested_) {
    if (record.handle() < 0) return false;
    openAssigned(step, open);
    appendRows(record, count);
  }
  for (const RecordsetHandle handle : open) Row(step, handle).close();
  if (!cancelRequested_) step.run([&] { grid().put_Row(0); });
  return true;
}

std::string clsAutoNotifyFlexGrid::buildSQLStr() const {
  return procedure(tagOf<"buildSQLStr">, std::string{}, [&](Step&, std::string& sql) {
    sql = selectNotifications("ClientNotification.*", SQLFilter);
  });
}

/// The recordsets that rows are looked up in where the criteria name an employee.
void clsAutoNotifyFlexGrid::openAssigned(Step& step, std::vector<RecordsetHandle>& open) {
  const std::string& employee = searchEmployeeAssignedNameText;
  assignedScheduleHandle_ = assignedApptHandle_ = noRecordset;
  if (employee.empty() || !searchEmployeeAssignedName) return;
  step.assign(assignedScheduleHandle_,
              [&] { return openRecordset(selectAssignedTasks(employee), keysetUpdate); });
  step.assign(assignedApptHandle_,
              [&] { return openRecordset(selectAssignedAppointments(employee), keysetUpdate); });
  open.insert(open.end(), {assignedScheduleHandle_, assignedApptHandle_});
}

void clsAutoNotifyFlexGrid::appendRows(const Row& record, int count) {
  Step& step = record.step();
  const int load = loads_;
  listEmpty_ = step.holds([&] { return database().isRecordsetEmpty(record.handle()); });
  if (listEmpty_) return raise(&Events::numberOfEntries, 0);
  raise(&Events::setupProgressBar, count);
  colourRows(step);
  for (int done = 0; isLatest(load) && !record.isAtEnd();) {
    populateRowInformation(record, -1, -1);
    record.moveNext();
    raise(&Events::incrementProgressBar, ++done);
    if (cancelRequested_) break;
  }
  if (!cancelRequested_)
    raise(&Events::numberOfEntries, step.value(0, [&] { return grid().get_Rows(); }));
  raise(&Events::hideProgressBar);
}

/// A load that has begun meanwhile has filled the list, which must not get a row twice; and for a
/// window that has gone none is needed.
bool clsAutoNotifyFlexGrid::isLatest(int load) const {
  return window_ && load == loads_;
}

void clsAutoNotifyFlexGrid::colourRows(Step& step) {
  const std::pair<GridSetting, int> colours[] = {
      {GridSetting::BackColorEvenRowsEnabled, displayAltnGridLines},
      {GridSetting::BackColor, gridBackColour1},
      {GridSetting::BackColorEvenRows, gridBackColour2}};
  for (const auto& each : colours) step.run([&] { grid().put(each.first, each.second); });
}

// The end of a load.

/// A stored structure may have broken the query: the list goes back to its defaults, once.
void clsAutoNotifyFlexGrid::resetOnce(Step& step) {
  if (!resetInProgress_) {
    resetInProgress_ = true;
    resetTaskListToDefault();
    // The load that failed does not follow what was asked for while the columns were built.
    if (isPopulating_ && populateAfterCancel_ != AfterCancel::clear) followCancel(step);
  }
  resetInProgress_ = false;
  mvarDisplayStr_.clear();
  raise(&Events::changeDisplayTextString, mvarDisplayStr_);
  raise(&Events::numberOfEntries, 0);
}

void clsAutoNotifyFlexGrid::followCancel(Step& step) {
  switch (populateAfterCancel_) {
    case AfterCancel::clear:
      return clearCurrentPopulating();
    case AfterCancel::populate:
      step.run([&] { grid().ResetAndClearRows(); });
      return populateInfo();
    case AfterCancel::close:
      clearCurrentPopulating();
      return raise(&Events::closeGridParentForm);
  }
}

}  // namespace autonotify
