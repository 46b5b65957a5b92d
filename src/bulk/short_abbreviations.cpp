#include "bulk/short_abbreviations.h"

#include "contract/rows.h"
#include "contract/tags.h"
#include "platform/text.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"frmSendNotificationsBulk", name>;

}  // namespace

std::string getShortAbbreviationNameFromTotalNum(Id totalNum, bool capitalised) {
  constexpr auto name = tagOf<"getShortAbbreviationNameFromTotalNum">;
  return procedure(name, std::string{}, [&](Step& step, std::string& result) {
    if (!isDatabaseOpen(step)) return;
    const std::string sql =
        "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=" +
        std::to_string(totalNum) + " AND ScheduleTypes.ScheduleNum=-1;";
    if (const Rows kind(step, sql, keysetRead); kind) result = kind.text("ShortAbbreviation");
    if (!capitalised) result = lowerCase(result);
  });
}

}  // namespace autonotify
