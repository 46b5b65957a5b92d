#pragma once

#include <string>
#include <vector>

#include "host/desk/Outcome.h"
#include "host/desk/rows/Task.h"

namespace autonotify::host {

/// The text that a notification of the task would get now; RTF when its template is RTF.
Outcome<std::string> composeText(Desk& desk, const Task& task);
/// The same by a template that is tried.
Outcome<std::string> composeText(Desk& desk, const Task& task, const std::string& templateText);

/// What there is to say about a template before a client reads it.
struct TemplateReport {
  std::vector<TemplateFault> faults;
  /// Fields, with their marks, that stay empty in every notification: the firm's own are not read
  /// for any.
  std::vector<std::string> neverFilled;
  /// Those that the client of the task has no value for; none without a task.
  std::vector<std::string> withoutValue;
};

/// A rich text may spell its marks in both ways, and both are looked at.
Outcome<TemplateReport> checkTemplate(Desk& desk, const std::string& text, Id task = noId);

/// What a template of that use can be filled with.
Outcome<std::vector<MergeFieldInfo>> listMergeFields(Desk& desk, MergeUse use);

}  // namespace autonotify::host
