#pragma once

#include <array>
#include <memory>
#include <string>

#include "bulk/bulk_pass.h"
#include "contract/Window.h"
#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/Timer.h"
#include "platform/controls/control_array.h"

namespace autonotify {

/// Arms a client's open tasks of one year in a single pass: the kinds of tasks on the first page,
/// year, channels and recipients on the second, which is all that a contact sees.
///
/// The window lives as long as its caller wants: it is filled by Initialize, shown by showForm as
/// often as need be, and hidden by Finish, Cancel or its close box, which cancels.
class frmSendNotificationBulk : public Window {
 public:
  frmSendNotificationBulk();

  /// Takes up the client. Unless a contact or a company comes without its id, the year is the
  /// present one, no kind of task is chosen, and of the channels email.
  void Initialize(enumAutoNotifyClientType clientType, Id companyNum, Id contactNum);
  /// Shows the window until the person is done. A contact skips the first page, and the caller
  /// learns so.
  void showForm(bool& skipStep1);
  /// Keeps what is chosen as the client's.
  void saveNotificationsTypes();

  BulkChoice choice;
  /// True after Cancel.
  bool cancelFlag = false;

  Label Label2{*this, "Label2"};
  std::array<Frame, 2> fraStep = controlArray<Frame, 2>(*this, "fraStep");
  Frame Frame4{*this, "Frame4", "Schedule The Following Auto-Notifications"};
  std::array<CheckBox, 14> chkAutoNotify = controlArray<CheckBox, 14>(*this, "chkAutoNotify");
  std::array<Label, 14> lblText = controlArray<Label, 14>(*this, "lblText");
  Button cmdSelectAllAuto{*this, "cmdSelectAllAuto", "Select All"};
  Button cmdChangeYear{*this, "cmdChangeYear", "Change Year"};
  Frame fraSource{*this, "fraSource",
                  "Select Which Year To Setup Automatic Notifications For In Morvane:"};
  ComboBox cboYear{*this, "cboYear"};
  Frame Frame1{*this, "Frame1", "Notification Method"};
  std::array<CheckBox, 4> chkNotifyType = controlArray<CheckBox, 4>(*this, "chkNotifyType");
  ComboBox cboTo{*this, "cboTo"};
  ComboBox cboCc{*this, "cboCc"};
  ComboBox cboBcc{*this, "cboBcc"};
  ComboBox cboFaxRecipient{*this, "cboFaxRecipient"};
  ComboBox cboToFaxNumber{*this, "cboToFaxNumber"};
  ComboBox cboPhoneName{*this, "cboPhoneName"};
  ComboBox cboPhoneNumber{*this, "cboPhoneNumber"};
  Button cmdEditNotificationTemplate{*this, "cmdEditNotificationTemplate",
                                     "Edit Notification Template"};
  Button cmdBack{*this, "cmdBack", "Back"};
  Button cmdNext{*this, "cmdNext", "Next"};
  Button cmdFinish{*this, "cmdFinish", "Finish"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  Timer tmrOrganizeControls{*this, "tmrOrganizeControls", 100};

 protected:
  bool queryUnload(CloseReason reason) override;

 private:
  void putIntoPlace();
  void tieReactions();

  void tickBoxes(Step& step);
  void fillYears(Step& step);
  void setYears(std::int16_t year);
  std::string clientName(Step& step) const;
  void populateLists();
  void populateDefaultValues();
  void showStep(int page);

  void chooseFamily(Step& step, std::size_t row);
  void chooseChannel(Step& step, std::size_t channel);
  void enableFields(std::size_t channel);
  void selectAll(Step& step);
  void goNext(Step& step);
  void goBack(Step& step);
  void changeYear(Step& step);
  void chooseYear(Step& step);
  void refuseYear(Step& step, bool& keepsFocus);
  void filterKey(Step& step, int& key, int pressed);
  bool checkValidYear();
  void editTemplate(Step& step);
  void organize(Step& step);
  void cancel(Step& step);
  void finish(Step& step);
  void runPass(Step& step);
  BulkOrder order() const;

  /// Where the present year stands in its list.
  static constexpr int presentYearEntry = 3;

  BulkClient client_;
  std::int16_t year_ = 0;
  bool suppressesClicks_ = false;
  std::unique_ptr<ProgressDialog> autoNotificationsDialog_;
};

}  // namespace autonotify
