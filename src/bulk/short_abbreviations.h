#pragma once

#include <string>

#include "platform/Value.h"

namespace autonotify {

/// The short name that the firm gives a family of tasks, in lower case unless it is to stand
/// capitalised; empty when there is no such family.
std::string getShortAbbreviationNameFromTotalNum(Id totalNum, bool capitalised);

}  // namespace autonotify
