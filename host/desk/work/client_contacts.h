#pragma once

#include <optional>
#include <string>

#include "host/desk/Outcome.h"

namespace autonotify::host {

/// A company or a contact, or the firm itself (enumAutoNotifyNone, without an id).
struct Client {
  enumAutoNotifyClientType type = enumAutoNotifyNone;
  Id id = noId;
};

/// "company 12", "firm"
std::string subjectOf(const Client& client);

/// The client itself, if it is there; the firm always is.
Outcome<Client> requireClient(Desk& desk, const Client& client);

/// The address block; empty when nothing is known.
Outcome<std::string> composeAddress(Desk& desk, const AddressWish& wish);

/// What a notification to the client may be addressed to.
Outcome<RecipientOffer> listRecipients(Desk& desk, const Client& client, RecipientKind kind);

struct DefaultContact {
  std::string company;
  /// noId and empty for none.
  Id contact = noId;
  std::string name;
};
Outcome<DefaultContact> findDefaultContact(Desk& desk, Id company);

/// Makes the contact the company's default one, or leaves it without one by noId. False, with
/// nothing changed, when the contact does not belong to the company.
Outcome<bool> setDefaultContact(Desk& desk, Id company, Id contact);

}  // namespace autonotify::host
