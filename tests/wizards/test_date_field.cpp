#include "ComposerTest.h"

namespace autonotify::test {
namespace {

constexpr const char* weekend =
    "This date falls on a weekend.  Would you like Morvane to adjust this date to the previous "
    "Friday instead?";
constexpr DateTime saturday = DateTime::of(2026, 4, 18);

TEST_F(ComposerTest, TypedDatesAreTakenMovedOrRefused) {
  addHoliday(DateTime::of(2026, 5, 1));
  enum class Question { none, yes, no };
  struct Case {
    const char* typed;
    Question question;
    const char* text;
    const char* stored;
  };
  const Case cases[] = {
      {"Apr 17 2026", Question::none, "Friday, April 17, 2026", "2026-04-17"},
      {"4/18/2026", Question::yes, "Friday, April 17, 2026", "2026-04-17"},
      {"4/19/2026", Question::no, "Sunday, April 19, 2026", "2026-04-19"},
      {"May 2 2026", Question::yes, "Thursday, April 30, 2026", "2026-04-30"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.typed);
    compose(ComposerMode::editAuto, [&](WindowInUse& window) {
      window.type("txtNotificationField", each.typed);
      if (each.question != Question::none) {
        screen.expectQuestion(weekend, message_style::alreadySent, each.question == Question::yes);
      }
      window.tabTo("cmdFinish");
      EXPECT_EQ(window.read("txtNotificationField"), each.text);
      if (each.question == Question::no) {
        screen.expectQuestion(weekend, message_style::alreadySent, false);
        window.tabTo("txtNotificationField");
      }
      window.click("cmdFinish");
    });
    EXPECT_EQ(column("NotificationDate"), each.stored);
  }
}

TEST_F(ComposerTest, TextThatIsNoDateIsRefusedAndTheFocusStays) {
  const auto refuse = [&](WindowInUse& window, const char* restored) {
    window.type("txtNotificationField", "someday");
    screen.expectMessage("You must enter a valid notification date.", message_style::valueRefused);
    EXPECT_FALSE(window.click("cmdFinish"));
    EXPECT_EQ(window.focus(), "txtNotificationField");
    EXPECT_EQ(window.read("txtNotificationField"), restored);
  };
  compose(ComposerMode::editAuto, [&](WindowInUse& window) {
    refuse(window, "");
    window.type("txtNotificationField", "Apr 21 2026");
    window.tabTo("cboTo");
    refuse(window, "Tuesday, April 21, 2026");
    window.click("cmdCancel");
  });
  EXPECT_EQ(column("NotificationDate"), "2026-04-23");
}

TEST_F(ComposerTest, PickedDateGoesThroughTheTextField) {
  for (const bool yes : {true, false}) {
    compose(ComposerMode::editAuto, [&](WindowInUse& window) {
      screen.expectQuestion(weekend, message_style::alreadySent, yes);
      window.pickDate("dtpNotification", saturday);
      EXPECT_EQ(window.focus(), "txtNotificationField");
      EXPECT_EQ(window.read("txtNotificationField"),
                yes ? "Friday, April 17, 2026" : "Saturday, April 18, 2026");
      if (!yes) screen.expectQuestion(weekend, message_style::alreadySent, false);
      window.click("cmdFinish");
    });
    EXPECT_EQ(column("NotificationDate"), yes ? "2026-04-17" : "2026-04-18");
  }
}

TEST_F(ComposerTest, CalendarOpensOnTheTypedDateOrToday) {
  compose(ComposerMode::editAuto, [&](WindowInUse& window) {
    auto& composer = dynamic_cast<frmSendNotificationWizardEmail&>(window.form());
    DatePicker& picker = composer.notificationDate.dtpNotification;
    TextBox& text = composer.notificationDate.txtNotificationField;
    for (const auto& [typed, opens] :
         {std::pair{"May 5 2026", DateTime::of(2026, 5, 5)}, {"some day", clock.today()}}) {
      text.setText(typed);
      picker.acceptDropDown();
      EXPECT_EQ(picker.value(), opens) << typed;
    }
    window.click("cmdCancel");
  });
}

}  // namespace
}  // namespace autonotify::test
