#pragma once

#include "Command.h"

namespace autonotify::console {

void describeAddress(CLI::App& command, Arguments& arguments);
/// The address block of a client.
Reply runAddress(host::Desk& desk, const Arguments& arguments);

void describeRecipients(CLI::App& command, Arguments& arguments);
/// What a notification to a client may be addressed to, the likeliest one marked.
Reply runRecipients(host::Desk& desk, const Arguments& arguments);

void describeContactDefault(CLI::App& command, Arguments& arguments);
/// Shows a company's default contact, or makes another one the default.
Reply runContactDefault(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
