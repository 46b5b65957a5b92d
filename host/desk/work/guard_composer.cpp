#include "host/desk/work/guard_composer.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/mail/addresses.h"
#include "host/words/Words.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"

namespace autonotify::host {
namespace {

struct ComposerField {
  const char* form;
  const char* control;
  const char* label;
  bool isEmail = false;
};
/// The fields that a person writes into.
constexpr ComposerField composerFields[] = {
    {emailForm, "cboTo", "To", true},
    {emailForm, "cboCc", "Cc", true},
    {emailForm, "cboBcc", "Bcc", true},
    {emailForm, "txtSubject", "Subject"},
    {emailForm, "rtbText", nullptr},
    {faxForm, "txtTo", "To"},
    {faxForm, "txtFrom", "From"},
    {faxForm, "cboFromFaxNumber", "Sender Fax No."},
    {faxForm, "cboToFaxNumber", "Fax No."},
    {faxForm, "txtPages", "Number of Pages"},
    {faxForm, "txtSubject", "Subject"},
    {faxForm, "rtbText", nullptr},
    {letterForm, "rtbText", nullptr},
    {phoneForm, "txtToCall", "Person To Call"},
    {phoneForm, "cboPhoneNumber", "Telephone Number"},
    {phoneForm, "txtAvailableTimes", "Available Times"},
    {phoneForm, "rtbText", nullptr},
    {yearForm, "cboTo", "To", true},
    {yearForm, "cboCc", "Cc", true},
    {yearForm, "cboBcc", "Bcc", true},
    {yearForm, "cboFaxRecipient", nullptr},
    {yearForm, "cboToFaxNumber", nullptr},
    {yearForm, "cboPhoneName", nullptr},
    {yearForm, "cboPhoneNumber", nullptr},
};

std::string contentOf(const Control& control) {
  if (const auto* box = dynamic_cast<const RichTextBox*>(&control)) return box->textRTF();
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) return combo->text();
  const auto* field = dynamic_cast<const TextBox*>(&control);
  return field ? field->text() : std::string();
}

/// A field, and what it held when the window came up.
struct WatchedField {
  const ComposerField* field;
  const Control* control;
  std::string before;
};

class ComposerGuard {
 public:
  ComposerGuard(Form& form, MsgboxClass& messages, std::vector<WatchedField> fields,
                DateQuestion askOfDate)
      : form_(form),
        messages_(messages),
        fields_(std::move(fields)),
        askOfDate_(std::move(askOfDate)) {
    if (const Control* picker = form.find("txtNotificationField"))
      fields_.push_back({&dateField, picker, contentOf(*picker)});
  }

  bool mayFinish() {
    return std::ranges::none_of(fields_, [&](const WatchedField& each) { return isBad(each); }) &&
           mayEmpty() && mayTakeDate();
  }

  bool mayLeave() {
    const bool isChanged = std::ranges::any_of(
        fields_, [](const WatchedField& each) { return contentOf(*each.control) != each.before; });
    return !isChanged ||
           isYes(Words::tr("Do you want to close this and lose what you have changed?"));
  }

 private:
  static constexpr ComposerField dateField{nullptr, "txtNotificationField", nullptr};

  bool isBad(const WatchedField& watched) {
    if (!watched.field->isEmail || !watched.control->isReachable()) return false;
    try {
      parseRecipients(contentOf(*watched.control));
      return false;
    } catch (const MailError& error) {
      messages_.showMessage(
          Words::tr("%1 Please correct the field %2.", {error.what(), watched.field->label}),
          message_style::inputRefused, nullptr, 0, 0, 0, 0, {}, 0);
      return true;
    }
  }

  /// What is sent at once goes as it is shown.
  bool mayEmpty() {
    const auto outlook = readComposerOutlook(form_);
    if (!outlook || outlook->isAtOnce) return true;
    return std::ranges::all_of(fields_, [&](const WatchedField& each) {
      if (!each.field->label || each.before.empty() || !contentOf(*each.control).empty())
        return true;
      return isYes(
          Words::tr("The field %1 is empty, but the notification keeps what it held, \"%2\", and "
                    "goes out with it.  Do you want to go on?",
                    {each.field->label, each.before}));
    });
  }

  bool mayTakeDate() {
    const std::string question = askOfDate_(form_);
    return question.empty() || isYes(question);
  }

  bool isYes(const std::string& question) {
    return messages_.askQuestion(question, message_style::warning, nullptr, 0, 0, 0, 0, {}, 0) ==
           message_answer::yes;
  }

  const Form& form_;
  MsgboxClass& messages_;
  std::vector<WatchedField> fields_;
  DateQuestion askOfDate_;
};

/// The button acts where `may()` allows it.
template <class May>
void guardButton(Form& form, const char* name, May may) {
  Control* button = form.find(name);
  if (!button || !button->onClick) return;
  button->onClick = [may, act = std::move(button->onClick)] {
    if (may()) act();
  };
}

}  // namespace

std::function<bool()> guardComposer(Form& form, MsgboxClass& messages, DateQuestion askOfDate) {
  std::vector<WatchedField> fields;
  for (const ComposerField& field : composerFields)
    if (form.name() == field.form)
      if (const Control* control = form.find(field.control))
        fields.push_back({&field, control, contentOf(*control)});
  if (fields.empty()) return nullptr;
  const auto guard =
      std::make_shared<ComposerGuard>(form, messages, std::move(fields), std::move(askOfDate));
  const auto mayLeave = [guard] { return guard->mayLeave(); };
  guardButton(form, "cmdFinish", [guard] { return guard->mayFinish(); });
  guardButton(form, "cmdCancel", mayLeave);
  return mayLeave;
}

}  // namespace autonotify::host
