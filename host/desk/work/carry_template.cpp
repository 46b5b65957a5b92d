#include "host/desk/work/carry_template.h"

#include <fmt/format.h>

#include <array>

#include "host/clients/record_rows.h"
#include "host/desk/work/kind_templates.h"
#include "host/desk/work/propagate_template.h"
#include "platform/richtext/RichText.h"

namespace autonotify::host {
namespace {

struct Unsent {
  Id id;
  bool isPersonal;
};

class Carrier {
 public:
  Carrier(Desk& desk, const CarryWish& wish, std::string text)
      : desk_(desk), wish_(wish), text_(std::move(text)) {}

  CarriedText carry(const Unsent& unsent) {
    const auto judged = [&](const Notification& row) { return judge(row, unsent.isPersonal); };
    if (wish_.dryRun) return withNotification<CarriedText>(desk_, unsent.id, judged);
    return withClaimedNotification<CarriedText>(
        desk_, unsent.id, [&](const auto& row) { return write(row, judged(row)); });
  }

 private:
  CarriedText judge(const Notification& row, bool isPersonal) {
    if (row.sent) return {CarryResult::settled};
    if (isPersonal) return {CarryResult::personal};
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

std::vector<Unsent> unsentOf(Desk& desk, const ScheduleKind& kind) {
  std::vector<Unsent> rows;
  const std::string sql = fmt::format(
      "SELECT ClientNotification.ClientNotificationID, Schedule.ClientNum FROM {} ORDER BY "
      "ClientNotification.ClientNotificationID;",
      unsentRowsOf(kind));
  forEachRow(desk.database(), sql, [&](const Row& row) {
    rows.push_back({row.id("ClientNotificationID"), row.id("ClientNum") < 0});
  });
  return rows;
}

}  // namespace

Outcome<CarriedTexts> carryTemplate(Desk& desk, const std::string& named, const CarryWish& wish,
                                    const std::function<void(int done, int rows)>& progress) {
  auto known = readKindTemplate(desk, named);
  if (!known) return known.refused();
  CarriedTexts carried{known->kind, {}};
  const std::vector<Unsent> rows = unsentOf(desk, known->kind);
  Carrier carrier(desk, wish, known->text);
  for (const Unsent& row : rows) {
    carried.texts.push_back(carrier.carry(row));
    progress(static_cast<int>(carried.texts.size()), static_cast<int>(rows.size()));
  }
  return carried;
}

}  // namespace autonotify::host
