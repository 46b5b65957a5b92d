#pragma once

#include <optional>

#include "host/desk/Outcome.h"

namespace autonotify::host {

/// Opens the editor of templates on the kind of the task; without a task on the fallback kind.
/// Unset when all went well; refused while another desk changes templates.
std::optional<Refused> editTemplates(Desk& desk, Id task = noId);

}  // namespace autonotify::host
