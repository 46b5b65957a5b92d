#pragma once

#include "host/demo/demo_world.h"

namespace autonotify::host::demo {

/// Adds a contact and tells how a notification finds it. `more` holds the columns of a company's
/// contact, and none for a private person. `clientNumber` above 0 gives the contact a client id.
Client addPerson(DemoWorld& world, const Row& more, int clientNumber);

}  // namespace autonotify::host::demo
