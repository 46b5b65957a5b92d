#pragma once

#include <string>
#include <vector>

#include "platform/HostObject.h"

namespace autonotify {

/// Makes a list of texts fit to be offered to a person.
class ListCleaner : public HostObject {
 public:
  static constexpr const char* className = "ListCleaner";
  /// Takes out texts that are empty or hold blanks alone, and every text that an earlier one equals
  /// in any case and whatever blanks stand around it. What stays keeps its spelling and order.
  virtual void cleanList(std::vector<std::string>& list) = 0;
};

}  // namespace autonotify
