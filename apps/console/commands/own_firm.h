#pragma once

#include "Arguments.h"
#include "Reply.h"

namespace CLI {
class App;
}

namespace autonotify::host {
class Desk;
}

namespace autonotify::console {

void describeFirm(CLI::App& command, Arguments& arguments);
Reply runFirm(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
