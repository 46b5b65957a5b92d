#pragma once

#include <sys/resource.h>

#include <csignal>

namespace autonotify::test {

/// While it lives no file of this process can grow beyond 4 KiB.
class FullDisk {
 public:
  FullDisk() {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit small = before_;
    small.rlim_cur = 4096;
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
};

}  // namespace autonotify::test
