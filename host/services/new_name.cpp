#include "host/services/new_name.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace autonotify::host {

bool giveNewName(int folder, const char* from, const char* to) {
  constexpr unsigned noReplace = 1;  // RENAME_NOREPLACE
  if (::renameat2(folder, from, folder, to, noReplace) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  return ::linkat(folder, from, folder, to, 0) == 0;
}

}  // namespace autonotify::host
