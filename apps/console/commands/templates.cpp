#include "commands/templates.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "ProgressLine.h"
#include "TextTable.h"
#include "commands/arguments.h"
#include "notifications.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

constexpr Id wholeFamily = -1;

struct UseWord {
  const char* word;
  MergeUse use;
};
constexpr UseWord useWords[] = {
    {"appointment", MergeUse::appointment},
    {"task", MergeUse::task},
    {"time-entry", MergeUse::timeEntry},
    {"client", MergeUse::client},
};

/// In the order of MergeFieldInfo::dataType, from 1.
constexpr const char* typeNames[] = {"text",      "date",     "time",     "currency",
                                     "yes or no", "duration", "documents"};

const char* typeName(int dataType) {
  const bool isKnown = dataType >= 1 && dataType <= static_cast<int>(std::size(typeNames));
  return isKnown ? typeNames[dataType - 1] : "text";
}

/// A row of ScheduleTypes.
struct Kind {
  Id id = noId;
  std::string name;
  Id totalNum = noId;
  Id scheduleNum = noId;
};

constexpr const char* kindStatement =
    "SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.ScheduleTypeName, ScheduleTypes.TotalNum, "
    "ScheduleTypes.ScheduleNum FROM ScheduleTypes";

Kind readKind(const Row& row) {
  return {row.id("ScheduleTypeID"), row.text("ScheduleTypeName"), row.id("TotalNum"),
          row.id("ScheduleNum")};
}

Kind loadKind(Session& session, Id id) {
  Kind kind;
  const bool found = id >= 0 && firstRow(session.database(),
                                         fmt::format("{} WHERE ScheduleTypes.ScheduleTypeID={};",
                                                     kindStatement, id),
                                         [&](const Row& row) { kind = readKind(row); });
  if (!found) {
    throw Refusal(
        fmt::format("there is no schedule type {} (see the list: hvnotify propagate)", id));
  }
  return kind;
}

Reply listKinds(Session& session) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"SCHEDULETYPE", "NAME"});
  forEachRow(session.database(),
             fmt::format("{} ORDER BY ScheduleTypes.ScheduleTypeID;", kindStatement),
             [&](const Row& row) {
               const Kind kind = readKind(row);
               const bool isFamily = kind.scheduleNum == wholeFamily;
               table.add({std::to_string(kind.id), kind.name + (isFamily ? " (all of them)" : "")});
               reply.data.push_back(
                   {{"scheduleType", kind.id}, {"name", kind.name}, {"wholeFamily", isFamily}});
             });
  reply.text = table.toText();
  return reply;
}

/// How many unsent notifications are of the kind, of companies or of persons.
int countUnsent(Session& session, const Kind& kind, bool ofCompanies) {
  std::string sql = fmt::format(
      "SELECT Count(*) AS CountOfRows FROM ClientNotification INNER JOIN Schedule ON "
      "ClientNotification.ScheduleIDNum = Schedule.ScheduleID WHERE "
      "ClientNotification.NotificationSent=False AND Schedule.totalNum={}",
      kind.totalNum);
  if (kind.scheduleNum != wholeFamily)
    sql += fmt::format(" AND Schedule.scheduleNum={}", kind.scheduleNum);
  sql += ofCompanies ? " AND Schedule.ClientNum>=0;"
                     : " AND (Schedule.ClientNum<0 OR Schedule.ClientNum IS NULL);";
  int count = 0;
  firstRow(session.database(), sql, [&](const Row& row) { count = row.id("CountOfRows", 0); });
  return count;
}

}  // namespace

void describePropagate(CLI::App& command, Arguments& arguments) {
  addNumber(command, "SCHEDULETYPE", "the kind whose template has changed; without one: a list",
            arguments.scheduleType);
}

Reply runPropagate(Session& session, const Arguments& arguments) {
  if (!arguments.scheduleType) return listKinds(session);
  const Kind kind = loadKind(session, *arguments.scheduleType);
  const int rewritten = countUnsent(session, kind, true);
  const int left = countUnsent(session, kind, false);
  session.callOrRefuse(fmt::format("schedule type {}", kind.id), [&] {
    ProgressLine line;
    session.tools().propagateTemplate(kind.id, [&](int done, int rows) {
      if (done % 50 == 0 || done == rows)
        line.show(fmt::format("{} of {} unsent notifications looked at", done, rows));
    });
  });
  Reply reply;
  reply.text = fmt::format("{}: {} unsent notification{} composed anew", kind.name, rewritten,
                           rewritten == 1 ? "" : "s");
  if (left > 0) reply.text += fmt::format("; {} of personal clients left as they are", left);
  reply.text += ".\n";
  reply.data = {{"scheduleType", kind.id}, {"composed", rewritten}, {"left", left}};
  return reply;
}

void describeFields(CLI::App& command, Arguments& arguments) {
  addChoice(command, "--type", "TYPE", useWords, " (default: task)",
            [&arguments](const UseWord& row) { arguments.mergeUse = row.use; });
}

Reply runFields(Session& session, const Arguments& arguments) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"FIELD", "TYPE", "FROM", "SAMPLE"});
  for (const MergeFieldInfo& field : session.tools().listMergeFields(arguments.mergeUse)) {
    const std::string sample = replaceAll(replaceAll(field.sample, "\r\n", " "), "\n", " ");
    table.add({field.token, typeName(field.dataType), field.group, sample});
    reply.data.push_back({{"field", field.token},
                          {"type", typeName(field.dataType)},
                          {"group", field.group},
                          {"sample", field.sample}});
  }
  reply.text = table.toText();
  return reply;
}

}  // namespace autonotify::console
