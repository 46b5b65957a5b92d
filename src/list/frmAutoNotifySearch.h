#pragma once

#include <array>

#include "contract/Window.h"
#include "list/date_range_group.h"
#include "platform/controls/Button.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/TabControl.h"
#include "platform/controls/control_array.h"

namespace autonotify {

/// The panel that edits what the list searches for.
///
/// It is made once and shown as often as need be: Search, Cancel and its close box, which cancels,
/// hide it. The people whom it offers are read at each showing.
class frmAutoNotifySearch : public Window {
 public:
  frmAutoNotifySearch();

  /// The criteria to edit, which outlive each showing.
  void PassedClassRef(ListCriteria* criteria) { criteria_ = criteria; }
  /// Shows the panel with the criteria in its fields until the person is done. True when the
  /// criteria have been stored to search for them.
  bool Initialize();
  void setupForm();
  /// Stores the fields one after the other. The first that is refused is told, and the panel goes
  /// there; what stands before it is stored by then.
  bool saveSettings();

  TabControl SSTab1{*this, "SSTab1"};
  Frame fraEmployee{*this, "fraEmployee", "Search by Employee"};
  std::array<CheckBox, 9> chkMain =
      controlArray<CheckBox>(*this, "chkMain", std::array{1, 14, 4, 9, 0, 15, 17, 2, 7});
  std::array<ComboBox, 7> Combo1 =
      controlArray<ComboBox>(*this, "Combo1", std::array{1, 7, 4, 8, 5, 0, 2});
  Frame fraSent{*this, "fraSent"};
  std::array<OptionButton, 2> optSent = controlArray<OptionButton, 2>(*this, "optSent");
  std::array<CheckBox, 2> chkSendStatus = controlArray<CheckBox, 2>(*this, "chkSendStatus", 1);
  DateRangeGroup sentDates{*this, sentDateCriterion, "fraSentDate", "chkDate", "optDate", 0};
  DateRangeGroup notificationDates{
      *this, notificationDateCriterion, "fraReceivedDate", "chkReceivedDate", "optReceivedDate", 5};
  Button cmdSearch{*this, "cmdSearch", "Select Notification Entries"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 protected:
  bool queryUnload(CloseReason reason) override;

 private:
  void placeBoxes();
  void placeGroups();
  /// The list beside a box.
  ComboBox& listOf(std::size_t box);
  void fillLists(Step& step);

  void showClient(Step& step);
  void showChannel(Step& step);
  void showSent();
  void showUser(Step& step, std::size_t box, bool isOn, Id user);

  void follow(Step& step, std::size_t box);
  void search(Step& step);
  void cancel(Step& step);

  bool saveClient(Step& step);
  bool saveChannel(Step& step);
  bool saveSent(Step& step);
  bool saveNames(Step& step);
  bool saveDates(Step& step);
  bool saveUsers(Step& step);
  bool refuse(Step& step, const char* message, int page, Control& field);

  ListCriteria* criteria_ = nullptr;
  bool isSearch_ = false;
};

}  // namespace autonotify
