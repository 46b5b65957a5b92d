#include <gtest/gtest.h>

#include "host/loader/ComponentLibrary.h"
#include "support/HeadlessPerson.h"
#include "support/TestHost.h"
#include "support/table_rows.h"

namespace autonotify::test {
namespace {

/// A host with a screen and a person before it, which has loaded the component from its file.
class WindowsOfTheComponent : public testing::Test, public TestHost, public Rows {
 protected:
  WindowsOfTheComponent()
      : Rows(*plainDatabase),
        library(COMPONENT_FILE, {&registry, &clock, &person}),
        control(library.createControl()) {
    control->put_errorClass(&errors);
    control->put_MsgboxClass(&person);
    control->put_DatabaseReference(&database);
    control->put_WorkingFolderReference(&workingFolder);
    control->put_LocaleReference(&locale);
    control->put_clientDropDownCtrlReference(&clients);
  }
  ~WindowsOfTheComponent() override { person.finish(); }

  HeadlessPerson person{calls, plainLocale.getActiveWindow()};
  host::ComponentLibrary library;
  std::unique_ptr<clsAutoNotifyCtrl> control;
};

TEST_F(WindowsOfTheComponent, EmailComposersGiveTheFlagAndUnload) {
  const Id entry = addSchedule(103, 1, clock.today(), {{"scheduleName", "GST Return"}});
  struct Case {
    void (clsAutoNotifyCtrl::*open)(CurrentDayTimerType, notificationTypes, Id, Id);
    bool showsDate;
  };
  for (const Case& each :
       {Case{&clsAutoNotifyCtrl::cls_openSendNotificationWizardEmailForm_InitializeNewAutoNotify,
             true},
        {&clsAutoNotifyCtrl::cls_openSendNotificationWizardEmailForm_InitializeAutoNotifyNow,
         false}}) {
    const Id row = addNotification(entry, nt_Email, clock.today());
    person.expectWindow("frmSendNotificationWizardEmail", [&](WindowInUse& window) {
      EXPECT_EQ(window.sees("txtNotificationField"), each.showsDate);
      EXPECT_EQ(window.read("cmdFinish"), "Finish");
      EXPECT_EQ(window.read("chkAddAddress"), "no");
      EXPECT_THROW(window.click("lblNotificationDate1"), std::logic_error);
      window.type("rtbText", "Hello");
      EXPECT_EQ(window.read("rtbText"), "Hello");
      window.click("cmdCancel");
    });
    control->put_cancelFlag(false);
    (control.get()->*each.open)(Appointments, remittanceNotification, row, entry);
    EXPECT_TRUE(control->get_cancelFlag());
    EXPECT_EQ(rowCount("ClientNotification"), 0);
  }
  EXPECT_EQ(errors.entered(), errors.left());
}

TEST_F(WindowsOfTheComponent, EditsEmailsAlone) {
  const auto tools = library.createTools();
  const Id entry = addSchedule(103, 1, clock.today(), {{"scheduleName", "GST Return"}});
  EXPECT_FALSE(tools->editEmailNotification(addNotification(entry, nt_Letter, clock.today())));
  const Id email = addNotification(entry, nt_Email, clock.today());
  EXPECT_FALSE(tools->editEmailNotification(email + 1));
  for (const char* button : {"cmdCancel", "cmdFinish"}) {
    person.expectWindow("frmSendNotificationWizardEmail",
                        [&](WindowInUse& window) { window.click(button); });
    EXPECT_EQ(tools->editEmailNotification(email), button == std::string("cmdFinish"));
  }
}

TEST_F(WindowsOfTheComponent, NoTemplateIsCarriedForAKindThatIsNotThere) {
  const Id entry = addSchedule(0, 0, clock.today());
  addNotification(entry, nt_Letter, clock.today());
  plainDatabase->connection().exec("UPDATE ClientNotification SET Memo='kept'");
  int looks = 0;
  library.createTools()->propagateTemplate(99, [&](int, int) { ++looks; });
  EXPECT_EQ(looks, 0);
}

}  // namespace
}  // namespace autonotify::test
