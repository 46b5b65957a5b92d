
#include "bulk/frmSendNotificationBulk.h"
#include "list/frmAutoNotifyList.h"
#include "list/frmSendAutoNotifyCustomFields.h"
#include "list/search_panel.h"
#include "tests/wizards/ComposerTest.h"
#include "wizards/frmSendNotificationWizard.h"
#include "wizards/frmSendNotificationWizardApptNotifyNow.h"

namespace autonotify::test {
namespace {

using Tags = std::set<std::string>;
const std::string start = "Morvane.exe-";

/// The texts of the component's file that are tags; those that end in "-" only begin some.
void addTagsOfFile(Tags& tags) {
  const std::string bytes = readFile(COMPONENT_FILE);
  for (auto at = bytes.find(start); at != std::string::npos; at = bytes.find(start, at + 1)) {
    const std::string text = bytes.c_str() + at;
    if (!text.ends_with("-")) tags.insert(text);
  }
}

/// Every event that a control has a reaction to.
void raiseAll(Control& control) {
  for (const auto& event : {control.onClick, control.onDoubleClick, control.onChange,
                            control.onGotFocus, control.onLostFocus})
    if (event) event();
  if (control.onKeyPress) control.onKeyPress(' ');
  if (control.onKeyUp) control.onKeyUp(' ', 0);
  if (control.onValidate) control.onValidate();
  if (auto* picker = dynamic_cast<DatePicker*>(&control)) {
    picker->acceptDropDown();
    picker->acceptDate(DateTime::of(2026, 4, 15));
  }
  auto* grid = dynamic_cast<Grid*>(&control);
  if (!grid) return;
  bool cancel = false;
  grid->onBeforeEdit(0, 0, cancel);
  grid->onAfterEdit(0, 0, cancel);
  grid->onCellButtonClick(0, 0);
  grid->onCellImageClick(0, 0);
  grid->onScroll();
  grid->onSortComplete({}, {});
}

class TagTest : public ComposerTest {
 protected:
  /// The tags of what windows do, which are put together when they are made. `document` is what
  /// they show where they send at once.
  void useAllOf(Make makeComposer, const char* document = nullptr) {
    using enum ComposerMode;
    for (const ComposerMode mode : {notifyNow, editAuto, newAuto, sendAuto, blankSend}) {
      if (mode == blankSend && !document) continue;
      if (document && mode != editAuto && mode != newAuto)
        screen.expectReport(document, [](ReportInUse& shown) { shown.failJob(1, 0, ""); });
      row = addRow("ClientNotification",
                   {{"CompanyIDNum", company}, {"NotificationDate", notifyDate}});
      compose(makeComposer, {mode}, [](WindowInUse& window) {
        for (Control* control : window.form().controls()) raiseAll(*control);
        if (window.form().isVisible()) window.form().hide();
      });
    }
  }
  void useWizards() {
    const auto raise = [](WindowInUse& window) {
      for (Control* control : window.form().controls()) raiseAll(*control);
    };
    const auto hide = [](WindowInUse& window) { window.form().hide(); };
    frmSendNotificationWizard wizard;
    wizard.InitializeNotifyNow(enumAutoNotifyNone, noId);
    screen.expectWindow(wizard.name(), raise);
    for (std::size_t i = 0; i < 8; ++i)
      screen.expectWindow(wizardChannels[i % 4].makeComposer()->name(), hide);
    screen.expectWindow("frmTaskAutoNotification", raise);
    screen.expectWindow("frmTestComment", raise);
    wizard.InitializeAutoNotify(enumAutoNotifyNone, entry);
    frmSendNotificationWizardApptNotifyNow panel;
    screen.expectWindow(panel.name(), raise);
    panel.InitializeNotifyNow(Appointments, noId, nt_Fax);
    frmSendNotificationBulk bulk;
    errors.answer({error_choice::leave});
    screen.expectWindow(bulk.name(), raise);
    screen.expectWindow("frmTaskAutoNotification", hide);
    bool skipsKinds = true;
    bulk.showForm(skipsKinds);
  }
  void useList() {
    const auto raise = [](WindowInUse& window) {
      for (Control* control : window.form().controls()) raiseAll(*control);
      if (window.form().isVisible()) window.form().hide();
    };
    const auto close = [](Grid&, const GridDialog&) { return false; };
    using enum GridDialog::Kind;
    screen.expectWindow("frmAutoNotifyList", raise);
    for (const char* window :
         {"frmAutoNotifySearch", "frmAutoNotifyChangeListColumns", "frmSendAutoNotifyListOptions"})
      screen.expectWindow(window, raise);
    for (const auto kind : {printPreview, print, settings, properties})
      screen.expectGridDialog(kind, close);
    frmAutoNotifyList().Initialize();
    screen.expectWindow("frmSendAutoNotifyCustomFields", raise);
    frmSendAutoNotifyCustomFields().Initialize();
    giveBackSearchPanel();
  }
  void addTagsOfWindows(Tags& tags) {
    screen.answerAll(true);
    useAllOf(email);
    useAllOf(fax, "drFax");
    useAllOf(letter, "drLetter");
    useAllOf(phone);
    useWizards();
    useList();
    for (const std::string& tag : errors.tags())
      if (tag.starts_with(start + "frm") || tag.starts_with(start + "dr")) tags.insert(tag);
  }
};

TEST_F(TagTest, AreThoseThatHostsKnow) {
  Tags tags;
  addTagsOfFile(tags);
  addTagsOfWindows(tags);
  std::map<std::string, std::string> procedures;
  for (const std::string& tag : tags) {
    const auto dash = tag.find('-', start.size());
    procedures[tag.substr(start.size(), dash - start.size())] += " " + tag.substr(dash + 1);
  }
  std::string text;
  for (const auto& [module, names] : procedures) text += module + ":" + names + "\n";
  expectGolden(AUTONOTIFY_TEST_FOLDER "tags.txt", text);
}

}  // namespace
}  // namespace autonotify::test
