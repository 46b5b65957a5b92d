#pragma once

#include <utility>
#include <vector>

#include "host/documents/PrintedReport.h"
#include "host/services/HeadlessFormHost.h"

namespace autonotify::host {

/// A host without a screen, which takes each report that is shown for one that a person prints and
/// closes.
class PrintingFormHost : public HeadlessFormHost {
 public:
  void showReport(Report& report, HostObject*) override {
    printed_.emplace_back(report);
    report.unload();
  }

  /// What was printed since the last time.
  std::vector<PrintedReport> takePrinted() { return std::exchange(printed_, {}); }

 private:
  std::vector<PrintedReport> printed_;
};

}  // namespace autonotify::host
