#pragma once

#include <string>

#include "platform/Value.h"

namespace autonotify {

// Which row of `ScheduleTypes` stands for a kind of schedule entry. A kind is a pair: the family
// (`TotalNum`) and the member in it (`ScheduleNum`, from 1; 0 or less when none has been chosen).

/// The kind that stands in for one that names no row.
inline constexpr Id fallbackTotalNum = 101;
inline constexpr Id fallbackScheduleNum = 10;

/// The lowest member above 0 of the family, or -1.
Id getFirstValidScheduleNum(Id totalNum);

/// The statement that finds the row of a kind. A kind without a family is replaced by the fallback
/// kind. A kind without a member is replaced by the family's first one, else by the fallback kind;
/// or, with `familyRow`, left as it is and found as the row of the family itself.
std::string getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(Id& totalNum, Id& ScheduleNum,
                                                                bool familyRow);

}  // namespace autonotify
