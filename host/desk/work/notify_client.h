#pragma once

#include "host/desk/work/client_contacts.h"
#include "host/desk/work/compose_email.h"

namespace autonotify::host {

// A task's client hears of it by whichever channel the person chooses in the windows that come up.
// While they are up no other desk works on the task.

using NotifyClient = Outcome<Composed> (*)(Desk& desk, Id task);

/// A message at once: the wizard asks for the channel, its composer for the words.
extern const NotifyClient notifyNow;
/// Channels are turned on and off for the task's notification date, each at once; what waits can be
/// edited.
extern const NotifyClient notifyAutomatically;

// A fax or a letter to a company or a contact that belongs to no task. It is printed from the
// preview and filed with the client's documents; once filed it stays on record as sent. Refused
// when it could not be filed.

using WriteToClient = Outcome<Composed> (*)(Desk& desk, const Client& client);

extern const WriteToClient writeBlankFax;
extern const WriteToClient writeBlankLetter;

}  // namespace autonotify::host
