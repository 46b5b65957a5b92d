#include "bulk/stored_choice.h"

#include "contract/rows.h"
#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"frmSendNotificationsBulk", name>;

/// In the order of TaskFamily.
constexpr std::array<const char*, taskFamilyCount> columns{
    "GSTNotifyType",      "PSTNotifyType",        "PayrollRemittNotifyType",
    "YearEndNotifyType",  "CorpTaxNotifyType",    "WSIBNotifyType",
    "EHTNotifyType",      "LawNotifyType",        "OtherNotifyType",
    "PayrollNotifyType",  "CustomNotifyType",     "FederalPayrollNotifyType",
    "ProjectsNotifyType", "BookkeepingNotifyType"};

void addRow(const Row& none, const char* keyColumn, Id client) {
  Step& step = none.step();
  step.run([&] { database().addNewRecord(none.handle()); });
  const std::string id = std::to_string(client);
  step.run([&] { database().setFieldValue(none.handle(), keyColumn, id); });
  step.run([&] { database().saveNewRecord(none.handle()); });
}

void addChannel(const Row& row, const char* column, notifyType channel) {
  row.write(column, [&] {
    return toInteger(database().getFieldValue(row.handle(), column)) + static_cast<Id>(channel);
  });
}

void write(const Row& row, const BulkChoice& choice) {
  for (const char* column : columns) row.write(column, "0");
  for (std::size_t family = 0; family < taskFamilyCount; ++family) {
    if (!choice.families[family]) continue;
    for (std::size_t i = 0; i < choice.channels.size(); ++i)
      if (choice.channels[i]) addChannel(row, columns[family], allNotifyTypes[i]);
  }
}

}  // namespace

void saveNotificationsTypes(const BulkClient& client, const BulkChoice& choice) {
  procedure(tagOf<"saveNotificationsTypes">, [&](Step& step) {
    if (!isDatabaseOpen(step) || client.id() < 0) return;
    const char* keyColumn = client.isContact() ? "ContactIDNum" : "CompanyIDNum";
    const std::string statement =
        "SELECT ClientScheduleAutoNotifications.* From ClientScheduleAutoNotifications WHERE "
        "ClientScheduleAutoNotifications." +
        std::string(keyColumn) + " = ";
    constexpr bool isHeldOtherwise = true;  // where nobody can tell, no second row is added
    if (const Rows held(step, statement, client.id(), keysetUpdate, isHeldOtherwise); held) {
      return write(held, choice);
    } else {
      addRow(held, keyColumn, client.id());
    }
    if (const Rows added(step, statement, client.id(), keysetUpdate); added) write(added, choice);
  });
}

}  // namespace autonotify
