#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contract/AutoNotifyListForm.h"
#include "contract/GridColumnList.h"
#include "contract/procedure.h"
#include "contract/rows.h"
#include "list/AutoNotifyFlexGridEvents.h"
#include "list/list_columns.h"
#include "list/list_criteria.h"

namespace autonotify {

class frmAutoNotifySearch;
struct RowClient;

/// The controller of the notification list: fills the grid of the list's window with the rows that
/// the criteria ask for, and does what a click in it means.
///
/// A load runs on the thread of the interface and tells each row to the window, which lets the host
/// handle its messages there: the program is entered again, and what is asked for then is noted in
/// flags that the load looks at after each row. A load keeps the controller alive until it ends;
/// the grid and what it is given live as long as the load too.
class clsAutoNotifyFlexGrid : public std::enable_shared_from_this<clsAutoNotifyFlexGrid>,
                              public AutoNotifyListCriteria {
 public:
  /// `window` outlives the controller, or is taken away by leaveWindow.
  explicit clsAutoNotifyFlexGrid(AutoNotifyFlexGridEvents& window);
  clsAutoNotifyFlexGrid(const clsAutoNotifyFlexGrid&) = delete;
  clsAutoNotifyFlexGrid& operator=(const clsAutoNotifyFlexGrid&) = delete;
  /// From now on nothing is told; a load that runs ends, and a send of all rows behind its row.
  void leaveWindow() {
    window_ = nullptr;
    endSendAll();
  }

  static constexpr Id LastColumn = list_column::lastData;
  /// A send from the list shows the composer first.
  bool showMVPreview = true;
  /// The filter without its keyword; written anew before every load.
  std::string SQLFilter;
  /// 2: all clients. 0 and 1: one client's, of its column structure without the client's name.
  int autoNotifyListDisplayType = 2;
  /// Counts for one client's list: 1 unsent rows alone, 0 all.
  int autoNotifyListShowSent = 0;
  bool displayAltnGridLines = false;
  int gridBackColour1 = 0;
  int gridBackColour2 = 0;
  bool lockNameColumn = false;
  std::int16_t LockColumnNum = 0;
  bool FloatTotalBar = false;
  bool GridWordWrap = false;
  /// The window's hidden label, bound to the columns that react to a click; not owned.
  Control* hiddenCtrlBox = nullptr;

  /// Takes the grid, which outlives the controller, and sets it up.
  void put_flexGrid(Grid* grid);
  Grid* get_flexGrid() const { return flexGrid_; }
  /// The sentence that tells what the list shows.
  const std::string& displayText() const { return mvarDisplayStr_; }
  GridColumnList* columns() const { return mvarFlexGridColumns_.get(); }

  // Loading.
  void requestPopulateInfo();
  void cancelAndClearCurrentPopulating();
  void cancelCurrentPopulatingAndCloseParentForm();
  void resetTaskListToDefault();

  // Rows.
  /// Reads a notification again and writes its row anew, or one cell of it; column -1: all.
  void refreshRowInfo(Id autoNotifyID, Id colNum);

  // What a click in the list does.
  void CellButtonClick(int rowNum, int colNum);
  void CellImageClick(int rowNum, int colNum);
  void BeforeEdit(int rowNum, int colNum, bool& cancelFlag);
  void AfterEdit(int rowNum, int colNum, bool& cancelFlag);
  void sendAll();
  void endSendAll() { isSendingAll_ = false; }
  /// Null while nothing is done with any row.
  ListRowAtWork* rowAtWork();
  /// Called by all that could begin while a cell is edited; no cell of this list is.
  void checkIfEditingField() {}

  // Columns and sorting.
  void populateColumns();
  void refreshColumnHeaders(bool& done);
  void resizeFlexGrid(bool resizeButtonColumns, bool& allowReducedColumnSizingFlag);
  void columnVisible(Id dataColNum, bool colVisible, bool& done);
  void changeSort(const GridSortKey& first, const GridSortKey& second);
  void performSort(bool& done);

  // Criteria.
  void resetSearchCriteria();
  std::string generateSQLStr();
  void generateDisplayStr();

  // Settings and dialogs; a flag tells whether the person went through with it.
  void putFlexGridInformation();
  bool showAdvancedSearch();
  bool showChangeColumns();
  bool showGridOptions();
  void showGridPrintPreviewForm();
  void showSendAutoNotifyListOptions();

 private:
  enum class AfterCancel { clear = 0, populate = 1, close = 2 };

  void setupFlexGrid();
  // What statements act on: each throws PlatformError (91) where there is none.
  Grid& grid() const;
  GridColumnList& columnList() const;
  GridColumnList& sortList() const;

  // clsAutoNotifyFlexGrid_population.cpp
  void populateInfo();
  void clearCurrentPopulating();
  std::string buildSQLStr() const;
  bool populateList(Step& step);
  void prepareList(Step& step);
  bool fillList(Step& step);
  bool fillRows(Step& step, int count);
  void openAssigned(Step& step, std::vector<RecordsetHandle>& open);
  void appendRows(const Row& record, int count);
  bool isLatest(int load) const;
  void colourRows(Step& step);
  void showList(Step& step);
  void resetOnce(Step& step);
  void followCancel(Step& step);

  // clsAutoNotifyFlexGrid_rows.cpp
  int populateRowInformation(const Row& record, int rowNum, Id colNum);
  void populateAllCells(const Row& record, int rowNum, RowClient& client);
  void populateCellInformation(const Row& record, int rowNum, RowClient& client);
  bool passesTests(const Row& record, const RowClient& client);
  bool isAssigned(const Row& record);
  bool hasSearchedStaff(Step& step, const RowClient& client);
  int getRowNumFromScheduleID(Id autoNotifyID);

  // clsAutoNotifyFlexGrid_actions.cpp
  Id columnInReach(Step& step, int colNum);
  class RowWork;
  bool isBusy() const { return gridBusy_ || atWork_; }
  void changeSendStatus(int rowNum, ListRowAtWork::Act act);
  void cancelSendStatus(int rowNum, int colNum);
  void changeVisualStatus(Id notification);
  void untick(Step& step, Id notification);
  void viewAutoNotifyInfoForm(int rowNum, int colNum);
  void goToCompany(int rowNum, int colNum);
  bool triggerNotificationSentCheck(int rowNum, int colNum);

  // clsAutoNotifyFlexGrid_columns.cpp
  void createDefaultColumnStructure();
  void createDefaultSortStructure();
  void addGridColumn(Step& step);
  void repairSortKey(Step& step);
  GridSortKey sortKey(Step& step) const;
  int countColumns(Step& step) const;
  bool isButtonColumn(Step& step, int column) const;
  bool isColumnVisible(Step& step, int column) const;
  int columnWidth(Step& step, int column) const;
  void saveColumnSize(Step& step, int column, bool showsThem);
  float ratioOfFit(Step& step, bool resizeButtonColumns);
  static int getDefaultColumnSize(Id colNum);
  static int getMinimumColumnSize(Id colNum);
  void populateCustomFieldNames() {}
  void saveColumnSizes(bool showsThem);

  // clsAutoNotifyFlexGrid_settings.cpp
  /// Which lists the person's settings have.
  struct StoredLists {
    bool columns = false;
    bool sort = false;
  };
  void getFlexGridInformation();
  StoredLists readSettings(const Row& row);
  /// As the structure has them, which the grid is not read into.
  void storeSettings(Step& step);
  void writeSettings(const Row& row);

  /// Tells the window, if there still is one.
  template <class... Parameters, class... Given>
  void raise(void (AutoNotifyFlexGridEvents::*event)(Parameters...), const Given&... given) {
    if (window_) (window_->*event)(given...);
  }

  AutoNotifyFlexGridEvents* window_;
  Grid* flexGrid_ = nullptr;

  bool gridBusy_ = true;
  bool isPopulating_ = false;
  bool cancelRequested_ = false;
  AfterCancel populateAfterCancel_ = AfterCancel::clear;
  bool listEmpty_ = false;
  bool isSendingAll_ = false;
  std::optional<ListRowAtWork> atWork_;
  bool columnsBuilt_ = false;
  bool resetInProgress_ = false;
  bool isTaskListPopulated_ = false;
  /// Loads that have begun.
  int loads_ = 0;
  std::string mvarDisplayStr_;
  std::unique_ptr<GridColumnList> mvarFlexGridColumns_;
  std::unique_ptr<GridColumnList> sortStructure_;
  /// Recordsets of what the searched employee has; noRecordset when unused.
  RecordsetHandle assignedScheduleHandle_ = noRecordset;
  RecordsetHandle assignedApptHandle_ = noRecordset;
  /// The criteria name an accountant or a partner: rows are tested one by one.
  bool filterByClientStaff_ = false;
  std::int16_t gridStartupView_ = 0;
  bool showEmailPreview_ = false;
  int lastClickedRow_ = 0;
  int lastClickedCol_ = 0;
};

}  // namespace autonotify
