#pragma once

#include <string>

#include "contract/procedure.h"
#include "list/list_criteria.h"

namespace autonotify {

/// Appends to `filter`, clause by clause, what the criteria ask of the columns of a row. A
/// criterion without a value is left out; one of the send status that names no state is turned off.
/// What a row is asked for one by one (employee, accountant, partner) makes no clause.
void writeFilter(Step& step, AutoNotifyListCriteria& criteria, std::string& filter);

}  // namespace autonotify
