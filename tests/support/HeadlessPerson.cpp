#include "support/HeadlessPerson.h"

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

/// A window, report or dialog that comes up, above all others for the time of a scope.
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
    if (const auto* form = dynamic_cast<const Form*>(shown)) return form->isVisible();
    if (const auto* report = dynamic_cast<const Report*>(shown)) return report->isShown();
    return true;
  }
  static inline std::vector<const HostObject*> all_;
};

/// Lies above the windows while it is on the screen.
class WatchedProgress : public ProgressDialog {
 public:
  using TakeScript = std::function<HeadlessPerson::ProgressScript(const std::string& text)>;
  WatchedProgress(std::string& seen, TakeScript takeScript)
      : seen_(seen), takeScript_(std::move(takeScript)) {}

  void put_text(const std::string& text) override {
    text_ = text;
    seen_ += text;
  }
  void put_owner(HostObject*) override {}
  void put_maximum(int maximum) override { seen_ += " of " + std::to_string(maximum) + ":"; }
  int get_value() override { return value_; }
  void put_value(int value) override {
    cancelAt(value);
    seen_ += " " + std::to_string(value);
    value_ = value;
  }
  void show() override {
    cancels_ = takeScript_(text_);
    place_.emplace(*this);
    StartProgress();
    place_.reset();
    cancelAt(HeadlessPerson::workIsDone);
  }
  void close() override {
    place_.reset();
    seen_ += " closed";
  }

 private:
  void cancelAt(int value) {
    if (cancels_ && cancels_(value)) throw PlatformError(cancelled, "Cancelled");
  }

  std::string& seen_;
  TakeScript takeScript_;
  std::string text_;
  int value_ = 0;
  HeadlessPerson::ProgressScript cancels_;
  std::optional<OnScreen> place_;
};

/// Takes the script off the list when it is of that name.
template <class Expected>
auto takenFrom(std::deque<Expected>& expected, const std::string& name) {
  std::optional<decltype(expected.front().script)> script;
  if (expected.empty() || !equalIgnoreCase(expected.front().name, name)) {
    ADD_FAILURE() << "nobody expected " << name;
    return script;
  }
  script = std::move(expected.front().script);
  expected.pop_front();
  return script;
}

template <class Expected>
void expectNoneLeft(std::deque<Expected>& expected) {
  for (const auto& each : std::exchange(expected, {})) ADD_FAILURE() << each.name << " never came";
}

}  // namespace

Control& WindowInUse::control(const std::string& name) const {
  Control* found = form_.find(name);
  if (!found) throw std::logic_error(form_.name() + " has no control " + name);
  return *found;
}

WindowDriver& WindowInUse::driver() const {
  OnScreen::requireOnTop(form_);
  return driver_;
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

std::string WindowInUse::read(const std::string& name, int row, int column) const {
  const auto& grid = controlOf<Grid>(name);
  seen(name);
  const bool isTick = grid.get_colType(column) == grid_column::tick;
  return isTick ? wordFor(grid.get_cellChecked(row, column)) : grid.get_CellText(row, column);
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
  expectNoneLeft(windows_);
  expectNoneLeft(reports_);
  expectNoneLeft(gridDialogs_);
  expectNoneLeft(progresses_);
  for (const auto& message : std::exchange(said_, {}))
    ADD_FAILURE() << "never said: " << message.text;
  for (const Form* form : FormHost::openForms())
    ADD_FAILURE() << form->name() << " was not unloaded";
  EXPECT_TRUE(menuChoices_.empty()) << "a menu never popped up";
}

void HeadlessPerson::showModal(Form& form, HostObject* owner) {
  pass("showModal", form.name());
  EXPECT_EQ(owner, activeWindow_) << form.name();
  const auto script = takenFrom(windows_, form.name());
  if (!script) {
    form.unload(CloseReason::hostEnds);
    return;
  }
  const OnScreen place(form);
  for (Control* control : form.controls()) {
    if (auto* timer = dynamic_cast<Timer*>(control); timer && form.isVisible()) timer->fire();
  }
  WindowRenderer::inUse()->show(form, [&](WindowDriver& driver) {
    WindowInUse window(form, driver);
    if (form.isVisible()) (*script)(window);
  });
  if (!form.isVisible()) return;
  ADD_FAILURE() << form.name() << " was left open";
  form.hide();
}

void HeadlessPerson::showReport(Report& report, HostObject* owner) {
  pass("showReport", report.name());
  EXPECT_EQ(owner, activeWindow_) << report.name();
  const auto script = takenFrom(reports_, report.name());
  if (!script) return;
  const OnScreen place(report);
  report.comeUp();
  WindowRenderer::inUse()->show(report, [&](ReportDriver& driver) {
    ReportInUse inUse(report, driver);
    (*script)(inUse);
  });
  EXPECT_FALSE(report.isShown()) << report.name() << " was left open";
}

bool HeadlessPerson::showGridDialog(Grid& grid, const GridDialog& dialog) {
  pass("showGridDialog", grid.name());
  const auto script = takenFrom(gridDialogs_, nameOf(dialog.kind));
  const OnScreen place(grid);
  return !script || (*script)(grid, dialog);
}

std::unique_ptr<ProgressDialog> HeadlessPerson::makeProgress() {
  return std::make_unique<WatchedProgress>(progressSeen_, [this](const std::string& text) {
    const bool isTaken = restAnswer_ && progresses_.empty();
    return isTaken ? nullptr : takenFrom(progresses_, text).value_or(nullptr);
  });
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
  WindowRenderer::inUse()->pump();
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
