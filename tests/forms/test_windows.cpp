#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

#include "contract/Window.h"
#include "contract/windows.h"
#include "host/services/HostLocale.h"
#include "support/HeadlessPerson.h"
#include "support/all_controls.h"
#include "support/error_number.h"
#include "support/scripted_error_class.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

/// A window that tells all that happens to it.
class frmSample : public Form {
 public:
  explicit frmSample(FormHost& host) : Form(host, "frmSample", "Sample") {
    for (Control* control : controls()) {
      const std::string& name = control->name();
      control->onGotFocus = [this, name] { log += "+" + name + " "; };
      control->onLostFocus = [this, name] { log += "-" + name + " "; };
      control->onClick = [this, name] { log += "!" + name + " "; };
    }
    cmdCancel.onClick = [this] { hide(); };
    txtDate.onValidate = [this] {
      log += "?txtDate ";
      return txtDate.text() == "bad";
    };
    txtOnPage.setContainer(tabs, 1);
    tabs.setPages({"first", "second", ""});
    chkInGroup.setContainer(group);
    group.setVisible(false);
    cmdOff.setEnabled(false);
    mnuEntry.setContainer(mnuList);
  }
  void initialize() {
    showModal(nullptr);
    log += "back ";
  }

  TextBox txtDate{*this, "txtDate"};
  TextBox txtPlain{*this, "txtPlain"};
  TabControl tabs{*this, "tabs"};
  TextBox txtOnPage{*this, "txtOnPage"};
  Frame group{*this, "group"};
  CheckBox chkInGroup{*this, "chkInGroup"};
  DatePicker dtp{*this, "dtp"};
  Button cmdOff{*this, "cmdOff"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  Label lbl{*this, "lbl", "Read me"};
  Menu mnuList{*this, "mnuList"};
  Menu mnuEntry{*this, "mnuEntry"};
  Timer tmrStartup{*this, "tmrStartup", 1};
  bool refuses = false;
  std::string log;

 protected:
  bool queryUnload(CloseReason reason) override {
    log += reason == CloseReason::closeBox ? "box " : "query ";
    return !refuses;
  }
  void onUnload() override { log += "unload "; }
};

class Windows : public testing::Test {
 protected:
  Windows() { references().platform.formHost = &person; }
  ~Windows() override {
    person.finish();
    references() = References{};
  }

  /// What happens when a person does this in the window, up to its end.
  std::string logOf(const std::function<void(WindowInUse&, frmSample&)>& script) {
    frmSample form(person);
    person.expectWindow("frmsample", [&](WindowInUse& window) {
      form.log.clear();
      script(window, form);
      if (form.isVisible()) form.hide();
    });
    form.initialize();
    form.unload();
    return form.log;
  }

  HeadlessPerson person;
};

TEST_F(Windows, FocusIsValidatedBeforeItIsLost) {
  EXPECT_EQ(logOf([](WindowInUse& window, frmSample&) {
              EXPECT_EQ(window.focus(), "txtDate");
              EXPECT_TRUE(window.click("lbl"));
              EXPECT_TRUE(window.type("txtDate", "bad"));
              EXPECT_FALSE(window.click("cmdCancel"));
              EXPECT_FALSE(window.type("txtPlain", "never"));
              EXPECT_EQ(window.read("txtPlain"), "");
              EXPECT_TRUE(window.type("txtDate", "good"));
              EXPECT_TRUE(window.click("cmdCancel"));
            }),
            "!lbl ?txtDate ?txtDate ?txtDate -txtDate +cmdCancel back query unload ");
}

TEST_F(Windows, ProgramMovesTheFocusWithoutValidating) {
  EXPECT_EQ(logOf([](WindowInUse& window, frmSample& form) {
              form.txtDate.setText("bad");
              form.chkInGroup.setFocus();
              EXPECT_EQ(window.focus(), "txtDate") << "out of reach";
              form.txtPlain.onGotFocus = [&form] { form.cmdCancel.setFocus(); };
              form.txtPlain.setFocus();
            }),
            "-txtDate -txtPlain +cmdCancel back query unload ");
}

TEST_F(Windows, FocusMovesOnFromAControlThatGoesOutOfReach) {
  EXPECT_EQ(logOf([](WindowInUse& window, frmSample& form) {
              form.group.setVisible(true);
              form.chkInGroup.onClick = [&form] { form.group.setVisible(false); };
              EXPECT_TRUE(window.click("chkInGroup"));
              EXPECT_EQ(window.focus(), "dtp");
              form.cmdCancel.onClick = [&form] { form.cmdCancel.setEnabled(false); };
              EXPECT_TRUE(window.click("cmdCancel"));
              EXPECT_EQ(window.focus(), "txtDate");
            }),
            "?txtDate -txtDate +chkInGroup -chkInGroup +dtp -dtp +cmdCancel -cmdCancel +txtDate "
            "back query unload ");
}

TEST_F(Windows, FirstControlWithinReachHasTheFocus) {
  frmSample form(person);
  form.orderFirst({&form.cmdOff, &form.lbl, &form.cmdCancel, &form.txtPlain});
  EXPECT_EQ(form.controls()[3], &form.txtPlain);
  EXPECT_EQ(form.controls()[4], &form.txtDate);
  person.expectWindow("frmSample", [](WindowInUse& window) {
    EXPECT_EQ(window.focus(), "cmdCancel");
    window.click("cmdCancel");
  });
  form.initialize();
}

TEST_F(Windows, DoorRefusesWhatNobodyCanDo) {
  logOf([](WindowInUse& window, frmSample& form) {
    const std::vector<std::function<void()>> impossible{
        [&] { window.click("cmdOff"); },          [&] { window.click("chkInGroup"); },
        [&] { window.type("txtOnPage", "x"); },   [&] { window.tabTo("lbl"); },
        [&] { window.type("cmdCancel", "x"); },   [&] { window.choose("tabs", 2); },
        [&] { window.choose("txtPlain", 0); },    [&] { window.click("cmdNone"); },
        [&] { window.pickDate("txtPlain", {}); }, [&] { window.choose("tabs", "third"); },
        [&] { window.click("group"); },
    };
    for (std::size_t i = 0; i < impossible.size(); ++i)
      EXPECT_THROW(impossible[i](), std::logic_error) << "act " << i;
    window.choose("tabs", "second");
    EXPECT_TRUE(window.type("txtOnPage", "x"));
    form.group.setVisible(true);
    EXPECT_TRUE(window.click("chkInGroup"));
    EXPECT_EQ(window.read("chkInGroup"), "yes");
    form.group.setEnabled(false);
    EXPECT_TRUE(window.sees("chkInGroup"));
    EXPECT_THROW(window.click("chkInGroup"), std::logic_error);
    form.hide();
    EXPECT_THROW(window.click("cmdCancel"), std::logic_error);
    EXPECT_THROW(window.closeBox(), std::logic_error);
  });
}

TEST_F(Windows, KeysAreFilteredOneByOneAndTheCalendarOpensAndCloses) {
  const DateTime date = DateTime::of(2026, 4, 18);
  std::string keys;
  std::vector<DateTime> values;
  logOf([&](WindowInUse& window, frmSample& form) {
    form.txtPlain.onKeyPress = [](int key) { return key < '0' || key > '9' ? 0 : key; };
    form.txtPlain.onKeyUp = [&](int key, int) { keys += std::to_string(key) + " "; };
    window.type("txtPlain", "2\u00e90");
    EXPECT_EQ(window.read("txtPlain"), "20");
    form.dtp.onDropDown = form.dtp.onCloseUp = [&] { values.push_back(form.dtp.value()); };
    window.pickDate("dtp", date);
  });
  EXPECT_EQ(keys, "50 0 48 ");
  EXPECT_THAT(values, ElementsAre(DateTime{}, date));
}

TEST_F(Windows, CloseBoxAsksTheWindowOnce) {
  EXPECT_EQ(logOf([](WindowInUse& window, frmSample&) { EXPECT_TRUE(window.closeBox()); }),
            "box unload back ");
  EXPECT_EQ(logOf([](WindowInUse& window, frmSample& form) {
              form.refuses = true;
              EXPECT_FALSE(window.closeBox());
              EXPECT_TRUE(form.isVisible());
              form.refuses = false;
            }),
            "box back query unload ");
}

TEST_F(Windows, LoadedWindowsAreKnownByNameInAnyCase) {
  EXPECT_FALSE(isFormLoaded("frmSample"));
  {
    frmSample form(person);
    EXPECT_EQ(findForm("FRMSAMPLE"), &form) << "loaded, though not shown";
    form.unload();
    EXPECT_FALSE(isFormLoaded("frmSample"));
    EXPECT_EQ(errorOf([&] { form.initialize(); }), 364) << "an unloaded window stays away";
  }
  { const frmSample forgotten(person); }
}

TEST_F(Windows, WindowsNestAndThePumpEntersAgain) {
  frmSample outer(person);
  std::string order;
  person.expectWindow("frmSample", [&](WindowInUse& window) {
    EXPECT_THROW(outer.showModal(nullptr), PlatformError) << "shown already";
    person.expectWindow("frmSample", [&](WindowInUse& inner) {
      order += "inner ";
      EXPECT_THROW(window.click("cmdCancel"), std::logic_error) << "it lies below";
      inner.click("cmdCancel");
    });
    person.duringPump(2, [&] {
      frmSample second(person);
      second.initialize();
      second.unload();
    });
    for (int i = 0; i < 3; ++i) {
      order += "pump ";
      formHost().pumpMessages();
    }
    window.click("cmdCancel");
    EXPECT_THROW(outer.showModal(nullptr), PlatformError) << "not yet taken off the screen";
  });
  outer.initialize();
  outer.unload();
  EXPECT_EQ(order, "pump pump inner pump ");
}

TEST_F(Windows, TimersFireWhileEnabledAndMenusPopUp) {
  frmSample form(person);
  std::string log;
  form.tmrStartup.onTimer = [&] {
    form.tmrStartup.setEnabled(false);
    log += "timer ";
  };
  form.mnuEntry.onClick = [&] { log += "entry "; };
  form.tmrStartup.setEnabled(true);
  person.chooseFromMenu("mnuEntry");
  person.expectWindow("frmSample", [&](WindowInUse& window) {
    log += "script ";
    person.popUpMenu(form, form.mnuList);
    form.tmrStartup.fire();
    window.click("cmdCancel");
  });
  form.initialize();
  form.unload();
  EXPECT_EQ(log, "timer script entry ");
}

/// A window whose reactions are procedures.
class frmReacting : public Window {
 public:
  explicit frmReacting(FormHost& host) : Window(host, "frmReacting") {
    react(txt.onKeyUp, "txt_KeyUp", &frmReacting::noteKey);
    react(txt.onValidate, "txt_Validate", &frmReacting::refuse);
  }
  TextBox txt{*this, "txt"};
  std::string log;

 private:
  void noteKey(Step&, int key, int shift) { log += std::to_string(key) + std::to_string(shift); }
  void refuse(Step& step, bool& keepsFocus) {
    keepsFocus = true;
    step.run([] { throw PlatformError(1000, "no"); });
    log += "never";
  }
};

TEST_F(Windows, ReactionsAreProceduresUnderTheTagsOfTheirEvents) {
  ScriptedErrorClass errors;
  references().errors = &errors;
  errors.answer({error_choice::leave});
  const frmReacting form(person);
  form.txt.onKeyUp(65, 1);
  EXPECT_TRUE(form.txt.onValidate()) << "the answer held when it was left";
  EXPECT_EQ(form.log, "651");
  EXPECT_THAT(errors.tags(), ElementsAre("Morvane.exe-frmReacting-txt_KeyUp",
                                         "Morvane.exe-frmReacting-txt_Validate"));
}

// What the host's styler is shown.

/// A styler that notes what it is shown.
class NotedLocale : public host::HostLocale, public InterfaceStyler {
 public:
  NotedLocale() : HostLocale({}) {}
  InterfaceStyler* getInterfaceStyler() override { return this; }

  void styleForm(HostObject*) override {}
  void markFocusGained(HostObject* control) override { note("+", control); }
  void markFocusLost(HostObject* control) override { note("-", control); }
  void handleKeyUp(HostObject* control, int keyCode, int) override {
    note(std::to_string(keyCode), control);
  }
  void organizeControls(HostObject*) override {}

  std::string log;

 private:
  void note(const std::string& what, HostObject* control) {
    log += what + dynamic_cast<Control&>(*control).name() + " ";
  }
};

TEST_F(Windows, StylerSeesFocusAndKeysOfTheControlsThatAskForIt) {
  NotedLocale locale;
  references().localeReference = &locale;
  Form form(person, "frmSample");
  TextBox both(form, "txtBoth"), gained(form, "txtGained"), none(form, "txtNone");
  markFocus(both, form.name());
  passKeys(both, form.name());
  markFocusGained(gained, form.name());
  person.expectWindow("frmSample", [&](WindowInUse& window) {
    window.type("txtBoth", "A");
    window.type("txtGained", "B");
    window.type("txtNone", "C");
    form.hide();
  });
  showModal(form);
  EXPECT_EQ(locale.log, "+txtBoth 65txtBoth -txtBoth +txtGained ");
  form.unload();
}

// The person of the tests.

void show(HeadlessPerson& person) {
  Form form(person, "frmSample");
  form.showModal(nullptr);
  EXPECT_FALSE(form.isVisible()) << "the program must not hang";
  form.unload();
}

TEST(Person, NothingPassesThatNobodyExpected) {
  HeadlessPerson person;
  EXPECT_NONFATAL_FAILURE(show(person), "nobody expected frmSample");
  person.expectWindow("frmSample", [](WindowInUse&) {});
  EXPECT_NONFATAL_FAILURE(show(person), "frmSample was left open");
  person.expectWindow("frmOther", [](WindowInUse&) {});
  EXPECT_NONFATAL_FAILURE(show(person), "nobody expected frmSample");
  EXPECT_NONFATAL_FAILURE(person.finish(), "frmOther never came");

  const auto say = [&] { person.showMessage("Hello", 1, nullptr, 0, 0, 101, 0, "", 0); };
  EXPECT_NONFATAL_FAILURE(say(), "nobody expected: Hello");
  person.expectMessage("Hello", 3);
  EXPECT_NONFATAL_FAILURE(say(), "style");
  person.expectQuestion("Hello", 1, true);
  EXPECT_NONFATAL_FAILURE(say(), "isQuestion");
  person.expectMessage("Bye", 1);
  EXPECT_NONFATAL_FAILURE(person.finish(), "never said: Bye");

  const auto work = person.makeProgress();
  work->put_text("Working");
  work->StartProgress = [] {};
  EXPECT_NONFATAL_FAILURE(work->show(), "nobody expected Working");
  person.expectProgress("Resting");
  EXPECT_NONFATAL_FAILURE(person.finish(), "Resting never came");

  const Form left(person, "frmSample");
  EXPECT_NONFATAL_FAILURE(person.finish(), "frmSample was not unloaded");
}

}  // namespace
}  // namespace autonotify::test
