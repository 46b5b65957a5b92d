#pragma once

#include "host/desk/work/compose_email.h"

namespace autonotify::host {

// A task's client hears of it by whichever channel the person chooses in the windows that come up.
// While they are up no other desk works on the task.

/// A message at once: the wizard asks for the channel, its composer for the words.
Outcome<Composed> notifyNow(Desk& desk, Id task);
/// Channels are turned on and off for the task's notification date, each at once; what waits can be
/// edited.
Outcome<Composed> notifyAutomatically(Desk& desk, Id task);

// A fax or a letter to the task's client that belongs to no task. It is printed from the preview
// and filed with the client's documents; no row of it stays. Refused when it could not be filed.

Outcome<Composed> writeBlankFax(Desk& desk, Id task);
Outcome<Composed> writeBlankLetter(Desk& desk, Id task);

}  // namespace autonotify::host
