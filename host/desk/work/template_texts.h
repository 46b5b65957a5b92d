#pragma once

#include <string>
#include <vector>

#include "host/desk/Outcome.h"
#include "host/desk/rows/Task.h"

namespace autonotify::host {

/// The text that a notification of the task would get now; RTF when its template is RTF.
Outcome<std::string> composeText(Desk& desk, const Task& task);
/// The same by a template that is tried. Empty also for a short one that names no field.
Outcome<std::string> composeText(Desk& desk, const Task& task, const std::string& templateText);

/// The template's first fault, in words; empty when it is sound. A rich text may spell its marks in
/// both ways, and both are looked at.
Outcome<std::string> findTemplateFault(Desk& desk, const std::string& text);

/// What a template of that use can be filled with.
Outcome<std::vector<MergeFieldInfo>> listMergeFields(Desk& desk, MergeUse use);

}  // namespace autonotify::host
