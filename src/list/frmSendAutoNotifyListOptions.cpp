#include "list/frmSendAutoNotifyListOptions.h"

#include "contract/windows.h"
#include "settings/modUserSettings.h"
#include "settings/user_row.h"

namespace autonotify {

frmSendAutoNotifyListOptions::frmSendAutoNotifyListOptions()
    : SettingsWindow(formHost(), "frmSendAutoNotifyListOptions", "Send Notification Options") {
  chkMorvanePreview.setCaption("Show Morvane Preview Window Before Sending Client Notifications.");
  optEmail[0].setCaption("Automatically send email without showing preview window.");
  optEmail[1].setCaption("Show email client preview window. (Recommended)");
  for (OptionButton& option : optEmail) option.setContainer(fraEmail);
  cmdConfigureEmail.setContainer(fraEmail);
  tieButtons(cmdApply, cmdOK, cmdCancel);
}

void frmSendAutoNotifyListOptions::Initialize() {
  procedure(tag("Initialize"), [&](Step& step) {
    setupForm();
    step.run(styleForm, *this);
    step.run(autonotify::showModal, *this);
  });
}

void frmSendAutoNotifyListOptions::setupForm() {
  procedure(tag("setupForm"), [&](Step& step) {
    const Id user = currentUser(step);
    chkMorvanePreview.setValue(getShowMVPreview(user));
    optEmail[getShowEmailPreview(user) == 0 ? 0 : 1].setValue(true);
  });
}

bool frmSendAutoNotifyListOptions::saveFields() {
  return procedure(tag("saveFields"), false, [&](Step& step, bool& isSaved) {
    const Id user = currentUser(step);
    putShowMVPreview(chkMorvanePreview.value(), user);
    putShowEmailPreview(static_cast<std::int16_t>(chosenOption(optEmail)), user);
    isSaved = true;
  });
}

}  // namespace autonotify
