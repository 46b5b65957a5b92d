#pragma once

#include <string>

#include "contract/procedure.h"
#include "list/list_criteria.h"

namespace autonotify {

/// Writes what the criteria ask for into `sentence`, part by part, in place of what it held.
void writeSentence(Step& step, const AutoNotifyListCriteria& criteria, std::string& sentence);

}  // namespace autonotify
