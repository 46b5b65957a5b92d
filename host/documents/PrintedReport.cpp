#include "host/documents/PrintedReport.h"

#include <algorithm>

namespace autonotify::host {
namespace {

constexpr int twipsToPoint = 20;
constexpr int narrowest = 36;
constexpr int widest = 180;

int marginOf(int twips, int opposite) {
  return std::clamp((twips > 0 ? twips : opposite) / twipsToPoint, narrowest, widest);
}

}  // namespace

PrintedReport::PrintedReport(const Report& report) : name_(report.name()) {
  const Report::Margins& wanted = report.margins;
  margins_ = {marginOf(wanted.left, wanted.right), marginOf(wanted.top, wanted.bottom),
              marginOf(wanted.right, wanted.left), marginOf(wanted.bottom, wanted.top)};
  for (const ReportLabel* label : report.labels())
    texts_.emplace_back(label->name(), label->caption());
}

const std::string& PrintedReport::text(const std::string& label) const {
  static const std::string none;
  const auto found = std::ranges::find(texts_, label, &std::pair<std::string, std::string>::first);
  return found == texts_.end() ? none : found->second;
}

}  // namespace autonotify::host
