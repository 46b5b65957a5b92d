#pragma once

#include "Command.h"

namespace autonotify::console {

void describeShow(CLI::App& command, Arguments& arguments);
/// All fields of one notification.
Reply runShow(host::Desk& desk, const Arguments& arguments);

void describeMerge(CLI::App& command, Arguments& arguments);
/// The text that a notification of the task would get now.
Reply runMerge(host::Desk& desk, const Arguments& arguments);

void describeCheck(CLI::App& command, Arguments& arguments);
/// All faults of a template, and its fields that stay empty.
Reply runCheck(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
