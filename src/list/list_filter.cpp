#include "list/list_filter.h"

#include "contract/recordsets.h"
#include "list/criteria_parts.h"

namespace autonotify {
namespace {

/// By direction.
constexpr std::array<const char*, 4> dateOperators{"", ">=", "<=", "="};

std::string quotedDate(DateTime moment) {
  return "#" + database().formatDateForSQL(moment) + "#";
}

std::string dateClause(const ListCriteria& all, const DateCriterion& dates, std::string column) {
  const int direction = all.*dates.direction;
  if (direction < date_direction::onAndAfter || direction > date_direction::between) return {};
  const std::string start = quotedDate(all.*dates.start);
  if (direction != date_direction::between)
    return column + dateOperators[static_cast<std::size_t>(direction)] + start;
  const std::string end = quotedDate(all.*dates.end);
  return column + ">= " + start + " AND " + column + "<= " + end;
}

/// Turns the criterion off when it names no state.
std::string statusClause(ListCriteria& all) {
  std::string states;
  for (const auto& [isOn, status, name] : statusCriteria) {
    if (!(all.*isOn)) continue;
    states += (states.empty() ? "(" : " OR ");
    states += "NotificationSentStatus = " + std::to_string(status);
  }
  all.searchNotificationSentStatus = !states.empty();
  return states.empty() ? states : states + ")";
}

/// A filter that grows clause by clause.
class FilterWriter {
 public:
  FilterWriter(Step& step, const ListCriteria& all, std::string& filter)
      : step_(step), all_(all), filter_(filter) {}

  void add(const std::string& clause) {
    if (!clause.empty()) filter_ += (filter_.empty() ? "" : " AND ") + clause;
  }
  void add(const NumberCriterion& number, const char* start, const char* end = "") {
    if (number.asks(all_)) add(start + std::to_string(all_.*number.number) + end);
  }
  void add(const DateCriterion& dates, const char* column) {
    if (all_.*dates.isOn) add(step_.value(std::string{}, dateClause, all_, dates, column));
  }

 private:
  Step& step_;
  const ListCriteria& all_;
  std::string& filter_;
};

}  // namespace

void writeFilter(Step& step, ListCriteria& all, std::string& filter) {
  FilterWriter clauses(step, all, filter);
  if (all.searchCompany && isListedCompany(step, all.searchCompanyID))
    clauses.add(companyCriterion, "CompanyIDNum = ");
  if (all.searchContact && isListedContact(step, all.searchContactID))
    clauses.add(contactCriterion, "ContactIDNum = ");
  clauses.add(channelCriterion, "NotificationType = ");
  clauses.add(createdByCriterion, "CreatedByUserIDNum = ");
  clauses.add(notificationDateCriterion, "NotificationDate");
  if (all.searchNotificationSentStatus) clauses.add(statusClause(all));
  if (all.searchNotificationSent)
    clauses.add("NotificationSent = " + toText(all.searchNotificationSentValue));
  clauses.add(sentDateCriterion, "SentTime");
  clauses.add(sentByCriterion, "SentByUserIDNum = '", "'");
}

}  // namespace autonotify
