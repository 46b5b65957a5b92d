#include "commands/explaining.h"

#include <fmt/format.h>

#include "commands/arguments.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/explain_date.h"
#include "outcome_words.h"
#include "platform/format.h"

namespace autonotify::console {
namespace {

const char* verdictText(DayStep::Verdict verdict) {
  switch (verdict) {
    case DayStep::Verdict::weekend:
      return "weekend";
    case DayStep::Verdict::holiday:
      return "holiday";
    default:
      return "working day";
  }
}

std::string longDay(DateTime day) {
  return formatDateTime(day, "ddd yyyy-mm-dd");
}

std::string dayLines(const std::vector<DayStep>& steps) {
  std::string text;
  int counted = 0;
  for (const DayStep& step : steps) {
    const bool counts = step.verdict == DayStep::Verdict::counted;
    text += fmt::format("  {}  {}{}\n", longDay(step.day), verdictText(step.verdict),
                        counts ? fmt::format(" {}", ++counted) : ", passed");
  }
  return text;
}

Json dayList(const std::vector<DayStep>& steps) {
  Json list = Json::array();
  for (const DayStep& step : steps) {
    list.push_back({{"day", dayJson(step.day)}, {"verdict", verdictText(step.verdict)}});
  }
  return list;
}

std::string periodText(const DateExplanation& why, const std::string& kind) {
  const char* source = why.usedFirmRule ? "by the firm's own rule" : "by the kind of task";
  const int count = why.days < 0 ? -why.days : why.days;
  return fmt::format("Period: {} business day{} {} the due date, {}{}\n", count,
                     count == 1 ? "" : "s", why.days > 0 ? "after" : "before", source,
                     kind.empty() ? "" : fmt::format(" ({})", kind));
}

}  // namespace

void describeExplain(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
}

Reply runExplain(host::Desk& desk, const Arguments& arguments) {
  const auto [task, client, kind, why] = doneOrRefuse(host::explainDate(desk, arguments.task));
  Reply reply;
  reply.text = fmt::format("{} of {}\n", task.name, client);
  reply.text += fmt::format("Due:    {}\n", longDay(why.dueDate)) + periodText(why, kind);
  reply.text += dayLines(why.walk);
  if (!why.settling.empty()) {
    reply.text += "Not a working day, so on in the same direction:\n" + dayLines(why.settling);
  }
  reply.text += fmt::format("Calculated: {}\n", longDay(why.determined));
  if (why.siblingChannel != 0) {
    reply.text += fmt::format("This task's {} goes out on {}: the same day is taken.\n",
                              host::channelName(why.siblingChannel), longDay(why.afterSibling));
  }
  if (!why.backToWorkingDay.empty()) {
    reply.text +=
        "Not a working day, so back to the one before:\n" + dayLines(why.backToWorkingDay);
  }
  reply.text += fmt::format("Notify on: {}\n", longDay(why.result));
  reply.data = {
      {"task", task.id},
      {"due", dayJson(why.dueDate)},
      {"days", why.days},
      {"kind", kind},
      {"totalNum", why.totalNum},
      {"scheduleNum", why.scheduleNum},
      {"firmRule", why.usedFirmRule},
      {"walk", dayList(why.walk)},
      {"settling", dayList(why.settling)},
      {"calculated", dayJson(why.determined)},
      {"sibling", why.siblingChannel ? Json(host::channelName(why.siblingChannel)) : Json()},
      {"backToWorkingDay", dayList(why.backToWorkingDay)},
      {"date", dayJson(why.result)}};
  warnOfHolidays(desk, why.result, why.dueDate, reply);
  return reply;
}

}  // namespace autonotify::console
