#pragma once

#include <functional>
#include <optional>
#include <string>

#include "host/clients/unreadable_rows.h"
#include "host/desk/Desk.h"

namespace autonotify::host {

// The days on which the firm is closed besides weekends: notification dates pass over them. All
// throw DatabaseError.

/// By date; those of one year where it is given. Gives what could not be read.
UnreadableRows listHolidays(Desk& desk, std::optional<int> year,
                            const std::function<void(DateTime day, const std::string& name)>& tell);

/// False, with nothing changed, when the day is a holiday already.
bool addHoliday(Desk& desk, DateTime day, const std::string& name);

/// False when it was none.
bool removeHoliday(Desk& desk, DateTime day);

/// The first of the two days' years that has no holiday: its dates pass over weekends alone.
std::optional<int> yearWithoutHolidays(Desk& desk, DateTime first, DateTime last);

}  // namespace autonotify::host
