#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "contract/procedure.h"
#include "contract/tags.h"
#include "platform/controls/Form.h"

namespace autonotify {

// What happens on an event of a control: `reaction` of `owner`, in a frame with this tag. `owner`
// outlives the event, and so does the text of a tag that is given as a view.

template <class Tag, class Owner, class... Given>
void react(std::function<void(Given...)>& event, Tag tag, Owner& owner,
           void (Owner::*reaction)(Step&, Given...)) {
  event = [tag = std::move(tag), &owner, reaction](Given... given) {
    procedure(tag, [&](Step& step) { (owner.*reaction)(step, given...); });
  };
}

/// The same for an event with an answer, which the reaction is given to set.
template <class Answer, class Tag, class Owner, class... Given>
void react(std::function<Answer(Given...)>& event, Tag tag, Owner& owner,
           void (Owner::*reaction)(Step&, Answer&, Given...)) {
  event = [tag = std::move(tag), &owner, reaction](Given... given) {
    return procedure(tag, Answer{}, [&](Step& step, Answer& answer) {
      (owner.*reaction)(step, answer, given...);
    });
  };
}

/// A window whose reactions are procedures.
class Window : public Form {
 public:
  using Form::Form;

 protected:
  /// The tag of one of its procedures.
  virtual std::string tag(const std::string& procedureName) const {
    return windowTag(name(), procedureName);
  }
  /// Ties a reaction of the derived window to an event of one of its controls:
  ///
  ///   react(cmdCancel.onClick, "cmdCancel_Click", &Self::cancel);
  ///   react(txtPages.onKeyUp, "txtPages_KeyUp", &Self::passKey);
  ///   react(txtPages.onValidate, "txtPages_Validate", &Self::refusePages);
  ///
  /// with void cancel(Step&), void passKey(Step&, int keyCode, int shift) and
  /// void refusePages(Step&, bool& keepsFocus).
  template <class Event, class Self, class... Parameters>
  void react(Event& event, const char* procedureName, void (Self::*reaction)(Parameters...)) {
    autonotify::react(event, tag(procedureName), static_cast<Self&>(*this), reaction);
  }
  /// The same for one control of several that share a reaction, which is given its position.
  template <class Self>
  void reactAt(std::size_t position, std::function<void()>& event, const std::string& procedureName,
               void (Self::*reaction)(Step&, std::size_t)) {
    event = [tag = tag(procedureName), self = static_cast<Self*>(this), reaction, position] {
      procedure(tag, [&](Step& step) { (self->*reaction)(step, position); });
    };
  }
};

}  // namespace autonotify
