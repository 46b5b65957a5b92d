#include "host/services/HostListCleaner.h"

#include <set>

#include "platform/text.h"

namespace autonotify::host {

void HostListCleaner::cleanList(std::vector<std::string>& list) {
  std::set<std::string> known;
  std::erase_if(list, [&](const std::string& text) {
    const std::string folded = lowerCase(trim(text));
    return folded.empty() || !known.insert(folded).second;
  });
}

}  // namespace autonotify::host
