#pragma once

#include <array>
#include <memory>
#include <string>

#include "contract/AutoNotifyListForm.h"
#include "contract/Window.h"
#include "list/AutoNotifyFlexGridEvents.h"
#include "platform/controls/Button.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DatePicker.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/Menu.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"
#include "platform/controls/control_array.h"

namespace autonotify {

class clsAutoNotifyFlexGrid;

/// The window with the list of notifications. What is done in it goes to the list's controller, and
/// it shows what that tells.
///
/// It comes up empty and starts the first load from its timer. While a load runs the person goes on
/// acting in it: the window may be closed, and its controller released, in the middle of one.
class frmAutoNotifyList : public Window,
                          public AutoNotifyListForm,
                          public AutoNotifyFlexGridEvents {
 public:
  frmAutoNotifyList();

  /// Shows the window until the person is done.
  void Initialize();
  void refreshGrid();
  void refreshSpecificGrid();
  void refreshAutoNotificationRowByAutoNotificationID(Id notificationId) override;
  ListRowAtWork* rowAtWork() override;
  void endSendAll() override;
  /// Asks for the end of what is under way; the window may close in any case.
  void QueryUnloadForm();

  void closeGridParentForm() override;
  void setupProgressBar(int numIncrements) override;
  void incrementProgressBar(int incNum) override;
  void hideProgressBar() override;
  void numberOfEntries(int numEntries) override;
  /// The grid takes the first two keys.
  void sortEntries(const std::array<GridSortKey, 3>& keys) override;
  void changeDisplayTextString(const std::string& sentence) override;
  void sentNotification() override {}

  Label lblTitle{*this, "lblTitle"};
  Label lblDisplay{*this, "lblDisplay"};
  /// Search, columns, preview; all, mine, my clients, my partner clients; print.
  std::array<Button, 8> imgTopBarButton = controlArray<Button, 8>(*this, "imgTopBarButton");
  Grid AutoNotifyFlexGrid{*this, host(), "AutoNotifyFlexGrid"};
  Frame picProgressContainer{*this, "picProgressContainer"};
  ProgressBar pgbTasksProgress{*this, "pgbTasksProgress"};
  Button cmdCancelPopulatingList{*this, "cmdCancelPopulatingList", "Cancel"};
  Button cmdGridOptions{*this, "cmdGridOptions", "&Grid Options..."};
  Button cmdAdvancedOptions{*this, "cmdAdvancedOptions", "Send &Options..."};
  Button cmdRefreshTaskGrid{*this, "cmdRefreshTaskGrid", "&Refresh"};
  Button cmdSendAll{*this, "cmdSendAll", "Send &All"};
  Button cmdClose{*this, "cmdClose", "Close"};
  Menu mnuTasks{*this, "mnuTasks"};
  Menu mnuTasksGridProperties{*this, "mnuTasksGridProperties", "Grid Properties..."};
  Menu mnuResizeToFitScreen{*this, "mnuResizeToFitScreen", "Resize to Fit Screen"};
  Menu mnuResetTasksToDefault{*this, "mnuResetTasksToDefault", "Reset List to Default"};
  Menu mnuTasksWordWrap{*this, "mnuTasksWordWrap", "Word Wrap"};
  Label lblHiddenCtrl{*this, "lblHiddenCtrl"};
  Timer tmrStartup{*this, "tmrStartup", 1};

  // Editors that no cell of this list opens.
  TextBox txtEditFlexGrid{*this, "txtEditFlexGrid"};
  TextBox txtEditNumericGrid{*this, "txtEditNumericGrid"};
  DatePicker mvcFlexEdit{*this, "mvcFlexEdit"};
  ComboBox cboEmployeeAssigned{*this, "cboEmployeeAssigned"};
  ComboBox cboQuickSearch{*this, "cboQuickSearch"};
  TextBox txtHours{*this, "txtHours"};
  TextBox txtMinutes{*this, "txtMinutes"};
  Frame picAllocatedTime{*this, "picAllocatedTime"};
  RichTextBox rtbTemp{*this, "rtbTemp"};

 protected:
  bool queryUnload(CloseReason reason) override;
  void onUnload() override;

 private:
  void tieCommands();
  void tieGrid();
  void setupAutoNotifyListFlexGrids();
  void searchDue(Step& step, clsAutoNotifyFlexGrid& list);

  void start(Step& step);
  void close(Step& step);
  void refresh(Step& step);
  void pressTopBar(Step& step, std::size_t button);
  void usePreset(Step& step, std::size_t preset);
  void printList(Step& step);
  void passKey(Step& step, int& key, int pressed);
  void releaseMouse(Step& step, int button);
  void changeGridProperties(Step& step);
  void fitColumns(Step& step);
  void wrapWords(Step& step);
  void buildAnew();

  /// Runs an operation of the controller, which stays alive meanwhile; nothing where there is none.
  template <class Operation, class... Given>
  void withList(Operation operation, Given&&... given);
  /// Makes an operation of the controller the reaction to an event.
  template <class Operation, class... Given>
  void forward(std::function<void(Given...)>& event, const char* procedureName,
               Operation operation);

  std::shared_ptr<clsAutoNotifyFlexGrid> AutoNotifyGridClass_;
};

}  // namespace autonotify
