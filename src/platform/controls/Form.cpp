#include "platform/controls/Form.h"

#include <algorithm>

#include "platform/text.h"

namespace autonotify {
namespace {

constexpr int formWasUnloaded = 364;
constexpr int formAlreadyShown = 400;

/// True for the time of a scope.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  ~Raised() { flag_ = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
};

bool canHaveFocus(const Control* control) {
  return control->takesFocus() && control->isReachable();
}

}  // namespace

Form::Form(FormHost& host, std::string name, std::string caption)
    : host_(host), name_(std::move(name)), caption_(std::move(caption)) {
  host_.addForm(*this);
}

Form::~Form() {
  leaveScreen();
  if (isLoaded_) host_.removeForm(*this);
}

void Form::setCaption(std::string caption) {
  caption_ = std::move(caption);
  if (onRender) onRender();
}

Control* Form::find(const std::string& name) const {
  const auto found = std::ranges::find_if(
      controls_, [&](const Control* control) { return equalIgnoreCase(control->name(), name); });
  return found == controls_.end() ? nullptr : *found;
}

void Form::orderFirst(std::initializer_list<Control*> first) {
  auto place = controls_.begin();
  for (Control* control : first) {
    const auto found = std::find(place, controls_.end(), control);
    if (found != controls_.end()) std::rotate(place++, found, found + 1);
  }
}

void Form::showModal(HostObject* windowOwner) {
  if (!isLoaded_) throw PlatformError(formWasUnloaded, "Object was unloaded", name_);
  if (isVisible_ || isBeingShown_)
    throw PlatformError(formAlreadyShown, "Form is already displayed", name_);
  const Raised beingShown(isBeingShown_);
  isVisible_ = true;
  try {
    settleFocus();
    if (isVisible_) host_.showModal(*this, windowOwner);
  } catch (...) {
    isVisible_ = false;
    throw;
  }
  if (isVisible_ && !unload(CloseReason::hostEnds)) hide();
}

void Form::hide() {
  leaveScreen();
}

void Form::leaveScreen() {
  if (!isVisible_) return;
  isVisible_ = false;
  unvalidated_ = nullptr;
  host_.formHidden(*this);
}

bool Form::unload(CloseReason reason) {
  if (!isLoaded_ || isUnloading_) return true;
  const Raised unloading(isUnloading_);
  if (!queryUnload(reason)) return false;
  leaveScreen();
  onUnload();
  isLoaded_ = false;
  host_.removeForm(*this);
  return true;
}

void Form::giveFocus(Control& control) {
  if (&control == focused_ || !canHaveFocus(&control)) return;
  Control* const before = std::exchange(focused_, &control);
  if (before && before->onLostFocus) before->onLostFocus();
  if (focused_ != &control) return;  // the reaction moved it on
  control.renderFocus();
  if (control.onGotFocus) control.onGotFocus();
}

void Form::settleFocus() {
  if (!isVisible_ || (focused_ && canHaveFocus(focused_))) return;
  const auto from = std::ranges::find(controls_, focused_);
  auto next = std::find_if(from, controls_.end(), canHaveFocus);
  if (next == controls_.end()) next = std::ranges::find_if(controls_, canHaveFocus);
  if (next != controls_.end()) giveFocus(**next);
}

bool Form::isKeptFrom(const Control& control) {
  Control* const left = unvalidated_ ? unvalidated_ : focused_;
  unvalidated_ = control.causesValidation() ? nullptr : left;
  if (unvalidated_ || !left || left == &control || !canHaveFocus(left)) return false;
  if (!left->onValidate || !left->onValidate()) return false;
  giveFocus(*left);
  return true;
}

bool Form::moveFocus(Control& control) {
  if (&control == focused_) return true;
  if (isKeptFrom(control)) return false;
  giveFocus(control);
  return true;
}

}  // namespace autonotify
