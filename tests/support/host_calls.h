#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/PlatformError.h"

namespace autonotify::test {

/// The door that every wrapped host call passes: counts, records when asked, fails the chosen one.
class HostCalls {
 public:
  /// Fails call `n`, counted from 1 since the last reset.
  void failAt(int n) { failed_ = n; }
  /// Fails every call from now on, until the next reset.
  void failAll() { failsAll_ = true; }
  void reset() { *this = HostCalls{}; }
  void record(bool on) { recording_ = on; }

  /// Called by the wrappers before they forward. Throws PlatformError for a call that shall fail.
  void pass(std::string_view operation, const std::function<std::string()>& detail = {}) {
    ++count_;
    if (recording_) {
      const std::string told = detail ? detail() : std::string{};
      log_.push_back(std::string(operation) + (told.empty() ? "" : " " + told));
    }
    if (failsAll_ || count_ == failed_) {
      ++failures_;
      throw PlatformError(1000, "The host call failed", std::string(operation));
    }
  }

  int count() const { return count_; }
  /// How many calls were made to fail.
  int failures() const { return failures_; }
  const std::vector<std::string>& log() const { return log_; }

 private:
  int count_ = 0, failed_ = 0, failures_ = 0;
  bool recording_ = false, failsAll_ = false;
  std::vector<std::string> log_;
};

}  // namespace autonotify::test
