#include "host/desk/work/propagate_template.h"

#include <fmt/format.h>

#include "host/clients/record_rows.h"

namespace autonotify::host {
namespace {

constexpr const char* ofCompanies = "Schedule.ClientNum>=0";
constexpr const char* ofPersons = "(Schedule.ClientNum<0 OR Schedule.ClientNum IS NULL)";

std::size_t countUnsent(Desk& desk, const ScheduleKind& kind, const char* whose) {
  std::string from = fmt::format(
      "ClientNotification INNER JOIN Schedule ON ClientNotification.ScheduleIDNum = "
      "Schedule.ScheduleID WHERE ClientNotification.NotificationSent=False AND "
      "Schedule.totalNum={} AND {}",
      kind.totalNum, whose);
  if (!kind.isFamily()) from += fmt::format(" AND Schedule.scheduleNum={}", kind.scheduleNum);
  return countRows(desk.database(), from);
}

}  // namespace

Outcome<Propagation> propagateTemplate(Desk& desk, Id kind,
                                       const std::function<void(int done, int rows)>& progress) {
  const std::string subject = fmt::format("schedule type {}", kind);
  const auto found = findScheduleKind(desk, kind);
  if (!found) return Refused{Refused::Why::notThere, subject};
  const Propagation counted{*found, countUnsent(desk, *found, ofCompanies),
                            countUnsent(desk, *found, ofPersons)};
  const auto carry = [&] { desk.tools().propagateTemplate(kind, progress); };
  if (auto refused = tellComponent(desk, subject, carry)) return *std::move(refused);
  return counted;
}

}  // namespace autonotify::host
