#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/HostObject.h"

namespace autonotify {

class Control;

/// What a renderer has to draw anew.
enum class Aspect {
  state,  ///< enabled, visible, caption, colour, container
  value,  ///< text, tick, date, position: what a person edits
  list,   ///< entries, nodes, pages
  focus,  ///< the control has gained the focus
};

/// A change of some rows that leaves the others as they are: entries, nodes, lines of a grid.
struct RowChange {
  enum class Kind { added, removed, changed };
  Kind kind;
  int row;  ///< the first of them; where the rows were, when they have been removed
  int count = 1;
};

/// A window as its controls know it.
class ControlOwner {
 public:
  /// Takes note of a control; the order is the order of the focus. Not owned.
  virtual void adopt(Control& control) = 0;
  virtual const std::vector<Control*>& controls() const = 0;
  /// The program moves the focus; a control out of reach does not get it.
  virtual void giveFocus(Control& control) = 0;

 protected:
  ~ControlOwner() = default;
};

/// Base of all controls: the model of one input field, without any toolkit.
///
/// The program sets properties and assigns its reactions to the `on...` members. A renderer draws
/// what the properties say whenever `onRender` calls it, and passes each act of a person to Person,
/// which alone calls the `accept...` functions.
///
/// A control belongs to the window that it was made with, for life. One made without a window
/// stands alone: it has no name and never gets the focus.
class Control : public HostObject {
 public:
  Control() = default;
  Control(ControlOwner& owner, std::string name, std::string caption = {})
      : owner_(&owner), name_(std::move(name)), caption_(std::move(caption)) {
    owner.adopt(*this);
  }
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// Such as "cmdCancel", or "chkAutoNotify(2)" in an array.
  const std::string& name() const { return name_; }

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { change(caption_, std::move(caption), Aspect::state); }
  /// A text of the program's own, never shown.
  const std::string& tag() const { return tag_; }
  void setTag(std::string tag) { tag_ = std::move(tag); }

  /// The control's own flags; see isReachable for what a person finds.
  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) { change(enabled_, enabled, Aspect::state); }
  bool visible() const { return visible_; }
  void setVisible(bool visible) { change(visible_, visible, Aspect::state); }

  /// Red in the lowest byte, then green, then blue; unset: the host's own colour.
  std::optional<std::int32_t> backColor() const { return backColor_; }
  void setBackColor(std::optional<std::int32_t> color) { change(backColor_, color, Aspect::state); }

  /// The group or tab control around this one, null when there is none, and the page of it. Both
  /// belong to the same window; a group knows no pages.
  Control* container() const { return container_; }
  int page() const { return page_; }
  void setContainer(Control& container, int page = 0) {
    if (container_) std::erase(container_->inside_, this);
    container_ = &container;
    container.inside_.push_back(this);
    page_ = page;
    render(Aspect::state);
  }
  /// Whether people see what is inside this control, on that page of it.
  virtual bool showsInside(int) const { return isShown(); }

  /// True when a person sees the control: it, its containers and its page are shown.
  bool isShown() const { return visible_ && (!container_ || container_->showsInside(page_)); }
  /// True when a person can act on it: it is shown, and it and its containers are enabled.
  bool isReachable() const { return isShown() && isEnabledThroughout(); }

  void setFocus() {
    if (owner_) owner_->giveFocus(*this);
  }
  virtual bool takesFocus() const { return true; }
  /// False for a way out, which a person reaches whatever the control with the focus says.
  bool causesValidation() const { return causesValidation_; }
  void setCausesValidation(bool causes) { causesValidation_ = causes; }
  /// Asks for the entries and the value to be drawn anew.
  void refresh() { render(Aspect::list); }

  // Reactions of the program, one for each event.
  std::function<void()> onClick;
  std::function<void()> onDoubleClick;
  /// The value was changed, by a person or by the program.
  std::function<void()> onChange;
  /// A key that writes: its character code; gives the code to use instead, 0 for none.
  std::function<int(int keyCode)> onKeyPress;
  /// Any key; see key_codes.h.
  std::function<void(int keyCode, int shift)> onKeyUp;
  std::function<void()> onGotFocus;
  std::function<void()> onLostFocus;
  /// Before a person's act takes the focus away: True keeps it here, and the act does not happen.
  /// When it goes to a control that causes no validation, this is asked once it goes on from there.
  std::function<bool()> onValidate;

  /// The renderer's, told after every change but those of rows.
  std::function<void(Aspect)> onRender;
  /// The renderer's, told after each change of rows; a change that is not told as one of rows is
  /// told as one of the whole list.
  std::function<void(const RowChange&)> onRowChange;

  // What an act of a person does here; the answer is False where the control knows no such act.
  virtual bool acceptClick() { return false; }
  virtual bool acceptDoubleClick() { return raise(onDoubleClick); }
  virtual bool acceptText(const std::string&) { return false; }
  virtual bool acceptChoice(int) { return false; }
  /// The arrow keys lead there: it is selected, which is no click.
  virtual bool acceptMove(int) { return false; }

  /// Draws the focus; for the window alone.
  void renderFocus() { render(Aspect::focus); }

 protected:
  ControlOwner* owner() const { return owner_; }
  /// With a container, what a person finds inside it is drawn anew as well.
  void render(Aspect aspect) {
    if (onRender) onRender(aspect);
    if (aspect == Aspect::focus) return;
    for (Control* inside : inside_) inside->render(Aspect::state);
  }
  void renderRows(const RowChange& change) {
    if (onRowChange) onRowChange(change);
  }
  /// Calls the reaction, if there is one; always True. The copy keeps the code alive when it
  /// assigns another reaction.
  static bool raise(std::function<void()> reaction) {
    if (reaction) reaction();
    return true;
  }
  /// Stores the value and draws the aspect; False when the value is the same.
  template <class Property, class NewValue>
  bool change(Property& property, NewValue value, Aspect aspect) {
    if (property == value) return false;
    property = std::move(value);
    render(aspect);
    return true;
  }

 private:
  bool isEnabledThroughout() const {
    return enabled_ && (!container_ || container_->isEnabledThroughout());
  }

  ControlOwner* owner_ = nullptr;
  std::string name_;
  std::string caption_;
  std::string tag_;
  bool enabled_ = true;
  bool causesValidation_ = true;
  bool visible_ = true;
  std::optional<std::int32_t> backColor_;
  Control* container_ = nullptr;
  std::vector<Control*> inside_;
  int page_ = 0;
};

}  // namespace autonotify
