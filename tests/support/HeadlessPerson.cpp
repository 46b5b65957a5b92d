#include "support/HeadlessPerson.h"

#include <algorithm>
#include <stdexcept>

#include "platform/Value.h"
#include "platform/controls/Person.h"
#include "platform/text.h"
#include "support/all_controls.h"

namespace autonotify::test {
namespace {

/// What can be chosen in the control, from the first position on.
std::vector<std::string> choicesIn(const Control& control) {
  std::vector<std::string> texts;
  if (auto* list = dynamic_cast<const ItemList*>(&control))
    for (const auto& entry : list->entries()) texts.push_back(entry.text);
  else if (auto* tree = dynamic_cast<const TreeView*>(&control))
    for (const auto& node : tree->nodes()) texts.push_back(node.text);
  else if (auto* tabs = dynamic_cast<const TabControl*>(&control))
    texts = tabs->pages();
  return texts;
}

std::string wordFor(bool flag) {
  return flag ? "yes" : "no";
}

/// A window or report that comes up, above all others for the time of a scope.
class OnScreen {
 public:
  explicit OnScreen(const HostObject& shown) { all_.push_back(&shown); }
  ~OnScreen() { all_.pop_back(); }

  /// No toolkit lets a person act below another window, whoever entered the program again.
  static void requireOnTop(const HostObject& used) {
    const auto top = std::find_if(all_.rbegin(), all_.rend(), isVisible);
    if (top != all_.rend() && *top != &used) throw std::logic_error("another window lies above it");
  }

 private:
  static bool isVisible(const HostObject* shown) {
    const auto* form = dynamic_cast<const Form*>(shown);
    return form ? form->isVisible() : dynamic_cast<const Report&>(*shown).isShown();
  }
  static inline std::vector<const HostObject*> all_;
};

class PersonAlone : public WindowDriver {
 public:
  explicit PersonAlone(Form& form) : person_(form) {}

  bool click(Control& control) override { return person_.click(control); }
  bool type(Control& control, const std::string& text) override {
    return person_.type(control, text);
  }
  bool choose(Control& control, int position) override { return person_.choose(control, position); }
  bool pickDate(DatePicker& picker, DateTime date) override {
    return person_.pickDate(picker, date);
  }
  bool tabTo(Control& control) override { return person_.tabTo(control); }
  bool closeBox() override { return person_.closeBox(); }

 private:
  Person person_;
};

struct ReaderAlone : ReportDriver {
  explicit ReaderAlone(Report& shown) : report(shown) {}
  void close() override { report.unload(); }
  Report& report;
};

class NoRenderer : public WindowRenderer {
 public:
  void show(Report& report, const ReportUse& use) override {
    ReaderAlone driver(report);
    use(driver);
  }
  void show(Form& form, const Use& use) override {
    PersonAlone driver(form);
    use(driver);
  }
};

WindowRenderer*& rendererInUse() {
  static NoRenderer none;
  static WindowRenderer* renderer = &none;
  return renderer;
}

}  // namespace

WindowRenderer& WindowRenderer::inUse() {
  return *rendererInUse();
}

void WindowRenderer::setInUse(WindowRenderer& renderer) {
  rendererInUse() = &renderer;
}

Control& WindowInUse::control(const std::string& name) const {
  Control* found = form_.find(name);
  if (!found) throw std::logic_error(form_.name() + " has no control " + name);
  return *found;
}

WindowDriver& WindowInUse::driver() const {
  OnScreen::requireOnTop(form_);
  return driver_;
}

template <class ControlType>
ControlType& WindowInUse::controlOf(const std::string& name) const {
  auto* typed = dynamic_cast<ControlType*>(&control(name));
  if (!typed) throw std::logic_error(name + " is a control of another kind");
  return *typed;
}

bool WindowInUse::choose(const std::string& name, const std::string& text) {
  const auto texts = choicesIn(control(name));
  const auto found = std::ranges::find(texts, text);
  if (found == texts.end()) throw std::logic_error(name + " has no entry " + text);
  return choose(name, static_cast<int>(found - texts.begin()));
}

bool WindowInUse::pickDate(const std::string& name, DateTime date) {
  return driver().pickDate(controlOf<DatePicker>(name), date);
}

const Control& WindowInUse::seen(const std::string& name) const {
  const Control& result = control(name);
  driver_.look(result);
  return result;
}

std::vector<std::string> WindowInUse::entries(const std::string& name) const {
  return choicesIn(seen(name));
}

std::string WindowInUse::read(const std::string& name) const {
  const Control* read = &seen(name);
  if (auto* field = dynamic_cast<const TextBox*>(read)) return field->text();
  if (auto* combo = dynamic_cast<const ComboBox*>(read)) return combo->text();
  if (auto* rich = dynamic_cast<const RichTextBox*>(read)) return rich->text();
  if (auto* box = dynamic_cast<const CheckBox*>(read)) return wordFor(box->value());
  if (auto* option = dynamic_cast<const OptionButton*>(read)) return wordFor(option->value());
  if (auto* picker = dynamic_cast<const DatePicker*>(read)) return toText(picker->value());
  return read->caption();
}

void ReportInUse::close() {
  OnScreen::requireOnTop(onShow());
  driver_.close();
}

Report& ReportInUse::onShow() const {
  if (!report_.isShown()) throw std::logic_error(report_.name() + " is closed");
  return report_;
}

std::string ReportInUse::read(const std::string& label) const {
  const auto& labels = onShow().labels();
  const auto found = std::ranges::find(labels, label, &ReportLabel::name);
  if (found == labels.end()) throw std::logic_error(report_.name() + " has no label " + label);
  driver_.look(**found);
  return (*found)->caption();
}

void HeadlessPerson::finish() {
  for (const auto& window : windows_) ADD_FAILURE() << window.formName << " never came up";
  for (const auto& report : reports_) ADD_FAILURE() << report.name << " never came up";
  for (const auto& message : said_) ADD_FAILURE() << "never said: " << message.text;
  for (const Form* form : FormHost::openForms())
    ADD_FAILURE() << form->name() << " was not unloaded";
  EXPECT_TRUE(menuChoices_.empty()) << "a menu never popped up";
  windows_.clear();
  reports_.clear();
  said_.clear();
}

void HeadlessPerson::showModal(Form& form, HostObject* owner) {
  pass("showModal", form.name());
  EXPECT_EQ(owner, activeWindow_) << form.name();
  if (windows_.empty() || !equalIgnoreCase(windows_.front().formName, form.name())) {
    ADD_FAILURE() << "nobody expected the window " << form.name();
    form.unload(CloseReason::hostEnds);
    return;
  }
  const Script script = std::move(windows_.front().script);
  windows_.pop_front();
  const OnScreen place(form);
  for (Control* control : form.controls()) {
    if (auto* timer = dynamic_cast<Timer*>(control); timer && form.isVisible()) timer->fire();
  }
  WindowRenderer::inUse().show(form, [&](WindowDriver& driver) {
    WindowInUse window(form, driver);
    if (form.isVisible()) script(window);
  });
  if (!form.isVisible()) return;
  ADD_FAILURE() << form.name() << " was left open";
  form.hide();
}

void HeadlessPerson::showReport(Report& report, HostObject* owner) {
  pass("showReport", report.name());
  EXPECT_EQ(owner, activeWindow_) << report.name();
  if (reports_.empty() || reports_.front().name != report.name()) {
    ADD_FAILURE() << "nobody expected the report " << report.name();
    return;
  }
  const ReportScript script = std::move(reports_.front().script);
  reports_.pop_front();
  const OnScreen place(report);
  report.comeUp();
  WindowRenderer::inUse().show(report, [&](ReportDriver& driver) {
    ReportInUse inUse(report, driver);
    script(inUse);
  });
  EXPECT_FALSE(report.isShown()) << report.name() << " was left open";
}

std::string HeadlessPerson::nameOf(const HostObject* owner) {
  if (owner == activeWindow_) return {};
  for (const Form* form : FormHost::openForms())
    if (form == owner) return form->name();
  const auto* report = dynamic_cast<const Report*>(owner);
  if (report && report->isShown()) return report->name();
  return "a stranger";
}

void HeadlessPerson::popUpMenu(Form& form, Menu& menu) {
  if (menuChoices_.empty()) {
    ADD_FAILURE() << "nobody expected the menu " << menu.name();
    return;
  }
  const std::string choice = menuChoices_.front();
  menuChoices_.pop_front();
  Control* entry = form.find(choice);
  if (!entry) throw std::logic_error(form.name() + " has no menu " + choice);
  Person(form).click(*entry);
}

void HeadlessPerson::pumpMessages() {
  pass("pumpMessages");
  ++pumps_;
  WindowRenderer::inUse().pump();
  const auto due = std::ranges::find(pumpActs_, pumps_, &PumpAct::pump);
  if (due == pumpActs_.end()) return;
  const auto act = due->act;
  pumpActs_.erase(due);
  act();
}

int HeadlessPerson::hear(const char* call, const ExpectedMessage& heard, const Reserved& reserved) {
  pass(call);
  EXPECT_NE(heard.owner, "a stranger") << heard.text;
  EXPECT_EQ(reserved, Reserved(0, 0, 101, 0, "", 0)) << heard.text;
  if (restAnswer_) return *restAnswer_ ? 0 : 1;
  if (said_.empty()) {
    ADD_FAILURE() << "nobody expected: " << heard.text;
    return 1;
  }
  const ExpectedMessage expected = said_.front();
  said_.pop_front();
  EXPECT_EQ(heard.text, expected.text);
  EXPECT_EQ(heard.style, expected.style) << heard.text;
  EXPECT_EQ(heard.isQuestion, expected.isQuestion) << heard.text;
  EXPECT_EQ(heard.owner, expected.owner) << heard.text;
  return expected.answer;
}

}  // namespace autonotify::test
