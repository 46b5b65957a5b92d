#include "platform/controls/Report.h"

#include <algorithm>

#include "platform/PlatformError.h"
#include "platform/controls/FormHost.h"

namespace autonotify {
namespace {

constexpr int reportAlreadyShown = 400;

}  // namespace

ReportLabel::ReportLabel(Report& report, std::string section, std::string name, std::string caption)
    : section_(std::move(section)), name_(std::move(name)), caption_(std::move(caption)) {
  report.labels_.push_back(this);
}

Report::Report(FormHost& host, std::string name, std::string caption)
    : host_(host), name_(std::move(name)), caption_(std::move(caption)) {}

std::string Report::captionOf(const std::string& label) const {
  const auto found = std::ranges::find(labels_, label, &ReportLabel::name);
  return found == labels_.end() ? std::string{} : (*found)->caption();
}

void Report::showModal(HostObject* owner) {
  if (isShown_) throw PlatformError(reportAlreadyShown, "The report is on show already", name_);
  isShown_ = true;
  hasComeUp_ = false;
  try {
    host_.showReport(*this, owner);
  } catch (...) {
    if (hasComeUp_) unload();
    isShown_ = false;
    throw;
  }
  unload();
}

void Report::unload() {
  if (!isShown_) return;
  isShown_ = false;
  host_.reportClosed(*this);
  if (onTerminate) onTerminate();
}

bool Report::fail(ReportFault fault) {
  if (onError) onError(fault);
  return fault.showsError;
}

}  // namespace autonotify
