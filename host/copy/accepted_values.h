#pragma once

#include "host/database/schema/Schema.h"
#include "platform/Value.h"

namespace autonotify::host {

/// What a column of this kind takes on the engine, in words, when the value is none of it and would
/// be refused or changed; nullptr when it is taken as it is. NULL is not asked for.
const char* refusalOf(Engine engine, ColumnKind kind, const Value& value);

}  // namespace autonotify::host
