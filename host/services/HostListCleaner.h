#pragma once

#include "contract/ListCleaner.h"

namespace autonotify::host {

/// Time is n log n in the length of the list: a firm's staff may be long.
class HostListCleaner : public ListCleaner {
 public:
  void cleanList(std::vector<std::string>& list) override;
};

}  // namespace autonotify::host
