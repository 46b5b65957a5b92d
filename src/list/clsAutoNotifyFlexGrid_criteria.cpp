#include "contract/references.h"
#include "contract/tags.h"
#include "list/clsAutoNotifyFlexGrid.h"
#include "list/criteria_parts.h"
#include "list/list_filter.h"
#include "list/list_sentence.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotifyFlexGrid", name>;

/// The list of one client asks for unsent rows alone, or for all of them.
void applyShowSent(AutoNotifyListCriteria& criteria, int showSent) {
  if (showSent == 1) criteria.searchNotificationSentValue = false;
  if (showSent == 0 || showSent == 1) criteria.searchNotificationSent = showSent == 1;
}

}  // namespace

void clsAutoNotifyFlexGrid::resetSearchCriteria() {
  procedure(tagOf<"resetSearchCriteria">, [&](Step& step) {
    AutoNotifyListCriteria& criteria = *this;
    criteria = {};
    DateTime today;
    step.assign(today, [] { return platformClock().today(); });
    for (const DateCriterion& dates : {notificationDateCriterion, sentDateCriterion})
      criteria.*dates.start = criteria.*dates.end = today;
  });
}

std::string clsAutoNotifyFlexGrid::generateSQLStr() {
  return procedure(tagOf<"generateSQLStr">, std::string{}, [&](Step& step, std::string& result) {
    SQLFilter.clear();
    filterByClientStaff_ = partnerCriterion.asks(*this) || accountantCriterion.asks(*this);
    if (autoNotifyListDisplayType != 2) applyShowSent(*this, autoNotifyListShowSent);
    writeFilter(step, *this, SQLFilter);
    generateDisplayStr();
    result = SQLFilter;
  });
}

void clsAutoNotifyFlexGrid::generateDisplayStr() {
  procedure(tagOf<"generateDisplayStr">, [&](Step& step) {
    writeSentence(step, *this, mvarDisplayStr_);
    raise(&AutoNotifyFlexGridEvents::changeDisplayTextString, mvarDisplayStr_);
  });
}

}  // namespace autonotify
