#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/controls/FormHost.h"

namespace autonotify {

/// Who wants a window to go.
enum class CloseReason {
  closeBox,  ///< a person, by the window's own close box
  program,   ///< the window's caller
  hostEnds,  ///< the host closes down
};

/// A window: a set of named controls that a host shows.
///
/// The life of every window is the same. It is loaded when it is made. An initializer fills it and
/// shows it modally, which blocks; a reaction to a person's act hides it; the caller reads the
/// results from it and unloads it. A window that is unloaded keeps its values until it is
/// destroyed, and is not shown again.
///
/// Derived windows hold their controls as members, in the order of the focus.
class Form : public HostObject, public ControlOwner {
 public:
  /// `host` outlives the window. `name` is the class name, such as "frmAutoNotifyList".
  Form(FormHost& host, std::string name, std::string caption = {});
  /// A window destroyed while loaded goes without a question.
  ~Form() override;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);

  /// All controls in the order of the focus; not owned.
  const std::vector<Control*>& controls() const override { return controls_; }
  /// The control with this name in any case; nullptr when there is none.
  Control* find(const std::string& name) const;

  /// Shows the window until it is hidden or unloaded; a host that closes down unloads it. The first
  /// control within reach has the focus, unless another was given it. Throws PlatformError 364 for
  /// an unloaded window, 400 for one that is visible or whose showModal has not returned, and what
  /// the host throws.
  void showModal(HostObject* windowOwner);
  bool isVisible() const { return isVisible_; }
  void hide();
  void repaint() { host_.repaint(*this); }

  /// Asks the window (queryUnload), then takes it off the screen and out of the open forms. False
  /// when the window refuses. Nothing happens while it unloads already, or has been unloaded.
  bool unload(CloseReason reason = CloseReason::program);
  bool isLoaded() const { return isLoaded_; }

  /// Moves these controls to the front of the order, in the order given.
  void orderFirst(std::initializer_list<Control*> first);

  /// The control with the focus, nullptr when none has it.
  Control* focused() const { return focused_; }
  /// Moves the focus without validating, as the program does.
  void giveFocus(Control& control) override;
  /// Moves the focus as a person's act does: the control that has it may keep it (onValidate), in
  /// which case the answer is False. Lost focus is told before gained focus.
  bool moveFocus(Control& control);
  /// Moves the focus on to the next control within reach, the first behind the last, unless the one
  /// that has it is within reach.
  void settleFocus();

  void adopt(Control& control) override { controls_.push_back(&control); }

  /// The renderer's, told when the caption has changed.
  std::function<void()> onRender;

 protected:
  FormHost& host() const { return host_; }
  /// False refuses to unload.
  virtual bool queryUnload(CloseReason) { return true; }
  /// The window goes: what it holds is given back here.
  virtual void onUnload() {}

 private:
  void leaveScreen();
  /// Whether the control that the focus comes from keeps it from going to this one.
  bool isKeptFrom(const Control& control);

  FormHost& host_;
  std::string name_;
  std::string caption_;
  std::vector<Control*> controls_;
  Control* focused_ = nullptr;
  /// Left without being validated; nullptr when none was.
  Control* unvalidated_ = nullptr;
  bool isLoaded_ = true;
  bool isUnloading_ = false;
  bool isBeingShown_ = false;
  bool isVisible_ = false;
};

}  // namespace autonotify
