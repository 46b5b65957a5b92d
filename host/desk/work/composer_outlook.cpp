#include "host/desk/work/composer_outlook.h"

#include <algorithm>
#include <iterator>

#include "host/mail/addresses.h"
#include "host/services/HostValidationUtilities.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/TextBox.h"

namespace autonotify::host {
namespace {

struct ComposerWindow {
  const char* form;
  notifyType channel;
  /// The fields that name whom it goes to.
  std::vector<const char*> recipients;
};

const ComposerWindow* windowOf(const Form& form) {
  static const ComposerWindow windows[] = {{emailForm, nt_Email, {"cboTo", "cboCc", "cboBcc"}},
                                           {faxForm, nt_Fax, {"txtTo"}},
                                           {letterForm, nt_Letter, {}},
                                           {phoneForm, nt_Phone, {"txtToCall"}}};
  const auto* found = std::ranges::find(windows, form.name(), &ComposerWindow::form);
  return found == std::end(windows) ? nullptr : found;
}

bool isShown(const Form& form, const char* name) {
  const Control* control = form.find(name);
  return control && control->isShown();
}

std::string textIn(const Form& form, const char* name) {
  const Control* control = form.find(name);
  if (const auto* combo = dynamic_cast<const ComboBox*>(control)) return combo->text();
  const auto* field = dynamic_cast<const TextBox*>(control);
  return field ? field->text() : std::string();
}

/// An address that is not written to its end stands as it is.
std::vector<std::string> recipientsIn(const std::string& text, notifyType channel) {
  if (text.empty()) return {};
  if (channel != nt_Email) return {text};
  std::vector<std::string> recipients;
  try {
    for (const Mailbox& each : parseRecipients(text)) recipients.push_back(each.address);
  } catch (const MailError&) {
    return {text};
  }
  return recipients;
}

}  // namespace

std::optional<ComposerOutlook> readComposerOutlook(const Form& form) {
  const ComposerWindow* window = windowOf(form);
  if (!window || !isShown(form, "cmdFinish")) return std::nullopt;
  ComposerOutlook outlook{window->channel, !isShown(form, "picNotificationDate")};
  for (const char* field : window->recipients) {
    const auto named = recipientsIn(textIn(form, field), window->channel);
    outlook.to.insert(outlook.to.end(), named.begin(), named.end());
  }
  if (!outlook.isAtOnce)
    HostValidationUtilities().parseDateText(textIn(form, "txtNotificationField"), outlook.date);
  return outlook;
}

}  // namespace autonotify::host
