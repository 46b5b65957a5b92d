#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <tuple>

#include "contract/MsgboxClass.h"
#include "contract/ProgressDialog.h"
#include "platform/controls/Grid.h"
#include "support/WindowRenderer.h"
#include "support/host_calls.h"

namespace autonotify::test {

/// A window as a person sees and uses it: its controls by their names. What no person could do
/// throws std::logic_error.
class WindowInUse {
 public:
  WindowInUse(Form& form, WindowDriver& driver) : form_(form), driver_(driver) {}

  bool click(const std::string& name) { return driver().click(control(name)); }
  bool type(const std::string& name, const std::string& text) {
    return driver().type(control(name), text);
  }
  bool choose(const std::string& name, int position) {
    return driver().choose(control(name), position);
  }
  /// The list entry, page or node with this text.
  bool choose(const std::string& name, const std::string& text);
  bool pickDate(const std::string& name, DateTime date);
  bool tabTo(const std::string& name) { return driver().tabTo(control(name)); }
  bool closeBox() { return driver().closeBox(); }
  bool clickCell(const std::string& grid, int row, int column) {
    return driver().clickCell(controlOf<Grid>(grid), row, column);
  }
  bool clickHeading(const std::string& grid, int column) {
    return driver().clickHeading(controlOf<Grid>(grid), column);
  }
  bool sizeColumn(const std::string& grid, int column, int width) {
    return driver().sizeColumn(controlOf<Grid>(grid), column, width);
  }
  bool rightClick(const std::string& grid) { return driver().rightClick(controlOf<Grid>(grid)); }

  /// True when the person could act on the control.
  bool canUse(const std::string& name) const { return seen(name).isReachable(); }
  bool sees(const std::string& name) const { return seen(name).isShown(); }
  /// The text of a field, "yes" or "no" for a tick or option, the caption of all else.
  std::string read(const std::string& name) const;
  /// The text of a cell, "yes" or "no" for a tick.
  std::string read(const std::string& grid, int row, int column) const;
  std::vector<std::string> entries(const std::string& name) const;
  /// The name of the control with the focus, empty when none has it.
  std::string focus() const { return form_.focused() ? form_.focused()->name() : std::string{}; }
  Form& form() { return form_; }

 private:
  Control& control(const std::string& name) const;
  /// While the person can act in the window.
  WindowDriver& driver() const;
  /// The control, once what is drawn of it has been held against it.
  const Control& seen(const std::string& name) const;
  template <class ControlType>
  ControlType& controlOf(const std::string& name) const {
    auto* typed = dynamic_cast<ControlType*>(&control(name));
    if (!typed) throw std::logic_error(name + " is a control of another kind");
    return *typed;
  }

  Form& form_;
  WindowDriver& driver_;
};

/// A report on show as a person sees and uses it; one that was closed throws std::logic_error.
class ReportInUse {
 public:
  ReportInUse(Report& report, ReportDriver& driver) : report_(report), driver_(driver) {}

  std::string read(const std::string& label) const;
  Report::Margins margins() const { return onShow().margins; }
  void close();
  /// A job that the person has started fails. True when the host shows a message of its own.
  bool failJob(int jobType, int number, const std::string& description) {
    return onShow().fail({jobType, 0, number, description});
  }
  Report& onShow() const;

 private:
  Report& report_;
  ReportDriver& driver_;
};

/// A person without a screen: looks at each window that comes up and answers each message, both
/// from a script. A window, progress or message that nobody expected, one that differs, and a
/// window left open by its script fail the test; finish() fails on what was expected and never
/// came.
class HeadlessPerson : public FormHost, public MsgboxClass {
 public:
  using Script = std::function<void(WindowInUse&)>;
  using ReportScript = std::function<void(ReportInUse&)>;
  /// True when the person cancels.
  using GridScript = std::function<bool(Grid&, const GridDialog&)>;
  /// True when the person cancels: at a value, before it is shown, or once the work is done.
  using ProgressScript = std::function<bool(int value)>;
  static constexpr int workIsDone = -1;

  HeadlessPerson() = default;
  /// The component's calls pass the door, which may fail them, and name the active window as owner.
  HeadlessPerson(HostCalls& calls, HostObject* activeWindow)
      : calls_(&calls), activeWindow_(activeWindow) {}

  /// The next window that comes up and what the person does in it.
  void expectWindow(std::string name, Script script) { windows_.push_back({name, script}); }
  /// What was expected need not come any more: something has failed on the way.
  void expectNoMoreWindows() { windows_.clear(); }
  /// The next report that comes up and what the person does with it.
  void expectReport(std::string name, ReportScript script) { reports_.push_back({name, script}); }
  /// The next dialog of a grid's own, and what the person does in it.
  void expectGridDialog(GridDialog::Kind kind, GridScript script) {
    gridDialogs_.push_back({nameOf(kind), script});
  }
  /// The next progress that comes up, by its text; without a script nobody cancels it.
  void expectProgress(std::string text, ProgressScript cancels = {}) {
    progresses_.push_back({std::move(text), std::move(cancels)});
  }
  /// The next message, or question with its answer. `owner` names the window or the report that it
  /// stands above; empty for the active window.
  void expectMessage(std::string text, int style, std::string owner = {}) {
    said_.push_back({text, style, false, 0, owner});
  }
  void expectQuestion(std::string text, int style, bool yes, std::string owner = {}) {
    said_.push_back({text, style, true, yes ? 0 : 1, owner});
  }
  /// From now on answers each question alike and takes each message and progress as it comes.
  void answerAll(bool yes) { restAnswer_ = yes; }
  /// What happens during the `nth` pump from now, counted from 1: the program is entered again.
  void duringPump(int nth, std::function<void()> act) { pumpActs_.push_back({pumps_ + nth, act}); }
  /// What has not happened by now happens no more.
  void forgetPumps() { pumpActs_.clear(); }
  /// The entry of the next menu that pops up.
  void chooseFromMenu(std::string name) { menuChoices_.push_back(std::move(name)); }

  void finish();

  int pumps() const { return pumps_; }
  Pointer pointer() const { return pointer_; }
  /// A dialog that this person watches.
  std::unique_ptr<ProgressDialog> makeProgress();
  /// What was seen of all of them: "text of 2: 1 2 closed".
  const std::string& progressSeen() const { return progressSeen_; }

  std::vector<Form*> openForms() override {
    pass("openForms");
    return FormHost::openForms();
  }
  void showModal(Form& form, HostObject* owner) override;
  void bringToFront(Form& form, HostObject* owner) override {
    pass("bringToFront", form.name());
    EXPECT_EQ(owner, activeWindow_) << form.name();
  }
  void formHidden(Form& form) override { WindowRenderer::inUse()->hidden(form); }
  void showReport(Report& report, HostObject* owner) override;
  bool showGridDialog(Grid& grid, const GridDialog& dialog) override;
  void reportClosed(Report& report) override { WindowRenderer::inUse()->closed(report); }
  void repaint(Form&) override { pass("repaint"); }
  void popUpMenu(Form& form, Menu& menu) override;
  void setPointer(Pointer pointer) override {
    pass("setPointer", pointer == Pointer::busy ? "busy" : "standard");
    pointer_ = pointer;
  }
  void pumpMessages() override;

  void showMessage(const std::string& text, int style, HostObject* owner, int r1, int r2, int r3,
                   int r4, const std::string& r5, int r6) override {
    hear("showMessage", {text, style, false, 0, nameOf(owner)}, {r1, r2, r3, r4, r5, r6});
  }
  int askQuestion(const std::string& text, int style, HostObject* owner, int r1, int r2, int r3,
                  int r4, const std::string& r5, int r6) override {
    return hear("askQuestion", {text, style, true, 0, nameOf(owner)}, {r1, r2, r3, r4, r5, r6});
  }

 private:
  template <class Act>
  struct Expected {
    std::string name;
    Act script;
  };
  struct ExpectedMessage {
    std::string text;
    int style;
    bool isQuestion;
    int answer;
    std::string owner;
  };
  /// The arguments of a message that no host reads.
  using Reserved = std::tuple<int, int, int, int, std::string, int>;
  struct PumpAct {
    int pump;
    std::function<void()> act;
  };
  void pass(const char* call, const std::string& detail = {}) {
    if (calls_) calls_->pass(call, [&] { return detail; });
  }
  static std::string nameOf(GridDialog::Kind kind) {
    return "dialog " + std::to_string(static_cast<int>(kind));
  }
  /// Of a window that is loaded or a report on show; empty for the active window.
  std::string nameOf(const HostObject* owner);
  int hear(const char* call, const ExpectedMessage& heard, const Reserved& reserved);

  HostCalls* calls_ = nullptr;
  HostObject* activeWindow_ = nullptr;
  std::deque<Expected<Script>> windows_;
  std::deque<Expected<ReportScript>> reports_;
  std::deque<Expected<GridScript>> gridDialogs_;
  std::deque<Expected<ProgressScript>> progresses_;
  std::deque<ExpectedMessage> said_;
  std::deque<std::string> menuChoices_;
  std::vector<PumpAct> pumpActs_;
  Pointer pointer_ = Pointer::standard;
  int pumps_ = 0;
  std::string progressSeen_;
  std::optional<bool> restAnswer_;
};

}  // namespace autonotify::test
