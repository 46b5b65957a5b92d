#include "host/desk/work/kind_templates.h"

#include <fmt/format.h>

#include "host/clients/record_rows.h"
#include "host/desk/work/claiming.h"
#include "host/desk/work/template_file.h"
#include "platform/richtext/RichText.h"

namespace autonotify::host {
namespace {

std::string nameOf(const ScheduleKind& kind) {
  return fmt::format("template {}", kind.id);
}

Outcome<std::string> readText(Desk& desk, const ScheduleKind& kind) {
  return askComponent(desk, nameOf(kind), [&] { return desk.tools().readTemplate(kind.id); });
}

std::string standardText(Desk& desk) {
  return desk.tools().readTemplate(noId);
}

/// One statement: nothing else of the row is touched.
void write(Desk& desk, const ScheduleKind& kind, const std::string& text) {
  const OpenRows rows(
      desk.database(),
      fmt::format("SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.NotificationComment FROM "
                  "ScheduleTypes WHERE ScheduleTypes.ScheduleTypeID={};",
                  kind.id),
      CursorMode::keyset, LockMode::updatable);
  desk.database().updateFieldValue(rows.handle(), "NotificationComment", text, false, false);
}

Outcome<TemplateFate> fateOf(Desk& desk, const std::string& text, const TemplateWish& wish,
                             TemplateChange& change) {
  if (looksAlike(text, change.former)) return TemplateFate::alreadyThere;
  if (wish.former && !looksAlike(*wish.former, change.former))
    return TemplateFate::changedMeanwhile;
  if (text.size() > largestTemplateFile)
    return Refused{Refused::Why::failed, nameOf(change.kind),
                   "the text is larger than 16 MiB as rich text"};
  if (wish.anyway || !wish.text) return TemplateFate::written;
  auto report = checkTemplate(desk, text);
  if (!report) return report.refused();
  change.faults = report->faults;
  return change.faults.empty() ? TemplateFate::written : TemplateFate::faulty;
}

}  // namespace

bool looksAlike(const std::string& one, const std::string& other) {
  return one == other || readRichText(one) == readRichText(other);
}

ReadableRows<KindTemplate> listKindTemplates(Desk& desk) {
  ReadableRows<KindTemplate> templates;
  const std::string standard = standardText(desk);
  ReadableRows<ScheduleKind> kinds = readScheduleKinds(desk);
  templates.unreadable = std::move(kinds.unreadable);
  for (ScheduleKind& kind : kinds.rows) {
    const auto text = readText(desk, kind);
    KindTemplate row{std::move(kind)};
    if (text) {
      row.text = *text;
      row.isStandard = looksAlike(row.text, standard);
    } else {
      row.errors = text.refused().errors;
    }
    templates.rows.push_back(std::move(row));
  }
  return templates;
}

Outcome<KindTemplate> readKindTemplate(Desk& desk, const std::string& named) {
  auto kind = requireScheduleKind(desk, named);
  if (!kind) return kind.refused();
  auto text = readText(desk, *kind);
  if (!text) return text.refused();
  const bool isStandard = looksAlike(*text, standardText(desk));
  return KindTemplate{*std::move(kind), *std::move(text), isStandard};
}

Outcome<std::string> readTaskTemplate(Desk& desk, Id task) {
  const auto kind = findKindOfTask(desk, task);
  return kind ? readText(desk, *kind) : std::string{};
}

Outcome<TemplateChange> changeKindTemplate(Desk& desk, const std::string& named,
                                           const TemplateWish& wish) {
  const auto claim = claimTemplates(desk);
  if (!claim) return claim.refused();
  const auto kind = requireScheduleKind(desk, named);
  if (!kind) return kind.refused();
  const auto former = readText(desk, *kind);
  if (!former && !wish.anyway) return former.refused();
  TemplateChange change{*kind, TemplateFate::written, {}, former ? *former : std::string{}};
  const std::string text = wish.text ? *wish.text : standardText(desk);
  const auto fate = fateOf(desk, text, wish, change);
  if (!fate) return fate.refused();
  change.fate = *fate;
  if (change.fate == TemplateFate::written) write(desk, change.kind, text);
  return change;
}

}  // namespace autonotify::host
