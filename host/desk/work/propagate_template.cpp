#include "host/desk/work/propagate_template.h"

#include <fmt/format.h>

#include "host/clients/record_rows.h"

namespace autonotify::host {
namespace {

constexpr const char* ofCompanies = "Schedule.ClientNum>=0";
constexpr const char* ofPersons = "(Schedule.ClientNum<0 OR Schedule.ClientNum IS NULL)";

std::size_t countUnsent(Desk& desk, const ScheduleKind& kind, const char* whose) {
  return countRows(desk.database(), fmt::format("{} AND {}", unsentRowsOf(kind), whose));
}

}  // namespace

std::string unsentRowsOf(const ScheduleKind& kind) {
  std::string from = fmt::format(
      "ClientNotification INNER JOIN Schedule ON ClientNotification.ScheduleIDNum = "
      "Schedule.ScheduleID WHERE ClientNotification.NotificationSent=False AND "
      "Schedule.totalNum={}",
      kind.totalNum);
  if (!kind.isFamily()) from += fmt::format(" AND Schedule.scheduleNum={}", kind.scheduleNum);
  return from;
}

Outcome<Propagation> propagateTemplate(Desk& desk, const std::string& kind,
                                       const std::function<void(int done, int rows)>& progress) {
  const auto found = requireScheduleKind(desk, kind);
  if (!found) return found.refused();
  const Propagation counted{*found, countUnsent(desk, *found, ofCompanies),
                            countUnsent(desk, *found, ofPersons)};
  const auto carry = [&] { desk.tools().propagateTemplate(found->id, progress); };
  const std::string subject = fmt::format("schedule type {}", found->id);
  if (auto refused = tellComponent(desk, subject, carry)) return *std::move(refused);
  return counted;
}

}  // namespace autonotify::host
