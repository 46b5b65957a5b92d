#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "contract/windows.h"
#include "host/services/HostLocale.h"
#include "platform/controls/TextBox.h"
#include "support/HeadlessPerson.h"

namespace autonotify::test {
namespace {

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

TEST(Styling, StylerSeesFocusAndKeysOfTheControlsThatAskForIt) {
  NotedLocale locale;
  HeadlessPerson person;
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
  references() = References{};
}

}  // namespace
}  // namespace autonotify::test
