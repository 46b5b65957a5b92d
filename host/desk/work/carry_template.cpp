#include "host/desk/work/carry_template.h"

#include <fmt/format.h>

#include <array>

#include "host/clients/record_rows.h"
#include "host/desk/work/kind_templates.h"
#include "host/desk/work/propagate_template.h"
#include "platform/richtext/RichText.h"

namespace autonotify::host {
namespace {

class Carrier {
 public:
  Carrier(Desk& desk, const CarryWish& wish, std::string text)
      : desk_(desk), wish_(wish), text_(std::move(text)) {}

  CarriedText carry(Id id) {
    if (wish_.dryRun)
      return withNotification<CarriedText>(desk_, id, [&](const auto& row) { return judge(row); });
    return withClaimedNotification<CarriedText>(
        desk_, id, [&](const auto& row) { return write(row, judge(row)); });
  }

 private:
  CarriedText judge(const Notification& row) {
    if (row.sent) return {CarryResult::settled};
    CarriedText told;
    const std::string errors = desk_.errorsOf([&] { told.result = resultFor(row); });
    return errors.empty() ? told : CarriedText{CarryResult::failed, errors};
  }

  CarriedText write(const Notification& row, CarriedText told) {
    if (told.result != CarryResult::changes) return told;
    const std::string errors =
        desk_.errorsOf([&] { desk_.tools().recomposeNotification(text_, row.id); });
    return errors.empty() ? told : CarriedText{CarryResult::failed, errors};
  }

  CarryResult resultFor(const Notification& row) {
    const std::string text = desk_.tools().composeNotification(text_, row.id);
    if (text.empty()) return CarryResult::personal;
    const RichText memo = readRichText(row.memo);
    if (readRichText(text) == memo) return CarryResult::alike;
    return wish_.former && !isComposed(row, memo) ? CarryResult::edited : CarryResult::changes;
  }

  bool isComposed(const Notification& row, const RichText& memo) {
    for (const DateTime day : daysOf(row.id)) {
      if (day.isZero()) continue;
      const ShownDay shown(desk_.clock(), day);
      for (const std::string& given : {*wish_.former, text_})
        if (gives(given, row, memo)) return true;
    }
    return false;
  }

  /// Arming names the company's default contact in a text, and carrying a template does not.
  bool gives(const std::string& given, const Notification& row, const RichText& memo) {
    clsNotificationTools& tools = desk_.tools();
    return readRichText(tools.mergeTemplate(given, row.scheduleId)) == memo ||
           readRichText(tools.composeNotification(given, row.id)) == memo;
  }

  /// On which it was made and changed last.
  std::array<DateTime, 2> daysOf(Id id) {
    std::array<DateTime, 2> days;
    const std::string sql = fmt::format(
        "SELECT ClientNotification.DateCreated, ClientNotification.ClientNotificationModifiedStamp "
        "FROM ClientNotification WHERE ClientNotificationID={};",
        id);
    firstRow(desk_.database(), sql, [&](const Row& row) {
      days = {row.date("DateCreated"), row.date("ClientNotificationModifiedStamp")};
    });
    return days;
  }

  Desk& desk_;
  const CarryWish& wish_;
  std::string text_;
};

std::vector<Id> unsentOf(Desk& desk, const ScheduleKind& kind) {
  std::vector<Id> ids;
  const std::string sql = fmt::format(
      "SELECT ClientNotification.ClientNotificationID FROM {} ORDER BY "
      "ClientNotification.ClientNotificationID;",
      unsentRowsOf(kind));
  forEachRow(desk.database(), sql,
             [&](const Row& row) { ids.push_back(row.id("ClientNotificationID")); });
  return ids;
}

}  // namespace

Outcome<CarriedTexts> carryTemplate(Desk& desk, const std::string& named, const CarryWish& wish,
                                    const std::function<void(int done, int rows)>& progress) {
  auto known = readKindTemplate(desk, named);
  if (!known) return known.refused();
  CarriedTexts carried{known->kind, {}};
  const std::vector<Id> ids = unsentOf(desk, known->kind);
  Carrier carrier(desk, wish, known->text);
  for (const Id id : ids) {
    carried.texts.push_back(carrier.carry(id));
    progress(static_cast<int>(carried.texts.size()), static_cast<int>(ids.size()));
  }
  return carried;
}

}  // namespace autonotify::host
