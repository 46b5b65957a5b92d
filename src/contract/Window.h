#pragma once

#include <functional>
#include <string>

#include "contract/procedure.h"
#include "platform/controls/Form.h"

namespace autonotify {

/// What happens on an event: `reaction(step)` of `owner`, in a frame with this tag. `owner`
/// outlives the event.
template <class Owner>
void react(std::function<void()>& event, std::string tag, Owner& owner,
           void (Owner::*reaction)(Step&)) {
  event = [tag = std::move(tag), &owner, reaction] {
    procedure(tag, [&](Step& step) { (owner.*reaction)(step); });
  };
}

/// A window whose reactions are procedures.
class Window : public Form {
 public:
  using Form::Form;

 protected:
  /// The tag of one of its procedures.
  std::string tag(const std::string& procedureName) const {
    return "Morvane.exe-" + name() + "-" + procedureName;
  }
  /// Ties a reaction of the derived window to an event of one of its controls:
  ///
  ///   react(cmdCancel.onClick, "cmdCancel_Click", &Self::cancel);
  template <class Self>
  void react(std::function<void()>& event, const char* procedureName,
             void (Self::*reaction)(Step&)) {
    autonotify::react(event, tag(procedureName), static_cast<Self&>(*this), reaction);
  }
};

}  // namespace autonotify
