#pragma once

#include "Command.h"

namespace autonotify::console {

void describePrint(CLI::App& command, Arguments& arguments);
/// Makes the documents of the letters and faxes named, or of all that are due; what stays behind is
/// listed with its reason.
Reply runPrint(host::Desk& desk, const Arguments& arguments);

void describeWorklist(CLI::App& command, Arguments& arguments);
/// The letters, faxes and calls that are due as a list on paper.
Reply runWorklist(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
