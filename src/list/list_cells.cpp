#include "list/list_cells.h"

#include <array>
#include <optional>
#include <string_view>

#include "contract/enumerations.h"
#include "platform/controls/Grid.h"
#include "platform/format.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

/// A cell that is being filled.
struct Cell {
  const ListRow& row;
  Id column;
  /// The column of the notification; of a button, its text.
  std::string_view source;
  /// An item of the client list (info_item), or a type of client.
  std::int16_t code;

  const Row& record() const { return row.record; }
  Step& step() const { return row.record.step(); }
  void putText(const CellValue& value) const {
    step().run([&] { row.grid.put_CellText(row.number, column, value); });
  }
  void putSortValue(const CellValue& value) const {
    step().run([&] { row.grid.put_CellSortValue(row.number, column, value); });
  }
  void put(const CellValue& value) const {
    putText(value);
    putSortValue(value);
  }
};

/// A value that is there as another type; nothing when that statement is skipped.
template <class Result>
std::optional<Result> convert(Step& step, Result (*as)(const Value& value), const Value& value) {
  return step.value(std::optional<Result>{}, as, value);
}

void fillKey(const Cell& cell) {
  const Value held = cell.record().value(cell.source);
  if (isEmpty(cell.step(), held)) return;
  if (const auto key = convert(cell.step(), toInteger, held)) cell.put(*key);
}

/// The client of the link, when the record has it, is the row's from here on.
void fillClientKey(const Cell& cell) {
  Id id = cell.record().id(cell.source);
  if (id >= 0) {
    cell.row.client = {cell.code, id};
  } else {
    id = noId;
  }
  cell.put(id);
}

void fillInfo(const Cell& cell) {
  cell.put(infoItemOf(cell.step(), cell.row.client, cell.code));
}

std::string companyName(Step& step, Id company) {
  return step.value(std::string{}, [&] { return clients().getCompanyDisplayName(company); });
}

std::string contactName(Step& step, Id contact) {
  return step.value(std::string{}, [&] { return clients().getContactDisplayName(contact); });
}

/// The name of the client whom the record itself names, where the row has none that is listed.
std::string nameOfRecord(const Row& record, std::string otherwise) {
  if (const Id company = record.id("CompanyIDNum"); company >= 0)
    return companyName(record.step(), company);
  if (const Id contact = record.id("ContactIDNum"); contact >= 0)
    return contactName(record.step(), contact);
  return otherwise;
}

void fillClientName(const Cell& cell) {
  const auto [type, id] = cell.row.client;
  std::string name;
  if (type == enumAutoNotifyCompany) name = companyName(cell.step(), id);
  if (type == enumAutoNotifyContact) name = contactName(cell.step(), id);
  if (id < 1) name = nameOfRecord(cell.record(), std::move(name));
  cell.put(name);
}

/// What a notification may be about, and the word before its name.
struct NamedItem {
  std::string_view column;
  const char* word;
  std::string (*nameOf)(Id id);
};
constexpr NamedItem namedItems[] = {
    {"ScheduleIDNum", "", getScheduleNameFromScheduleID},
    {"ApptIDNum", "Appt: ", getAppointmentSubjectFromAppointmentID},
    {"TaskIDNum", "Task: ", getTaskSubjectFromTaskID},
    {"DocketIDNum", "Time Entry: ", getDocketSubjectFromDocketID},
};

void fillItemName(const Cell& cell) {
  for (const NamedItem& item : namedItems) {
    const Id id = cell.record().id(item.column);
    if (id >= 0) return cell.put(item.word + item.nameOf(id));
  }
  cell.put("");
}

void fillChannel(const Cell& cell) {
  const Value channel = cell.record().value(cell.source);
  if (isEmpty(cell.step(), channel)) return cell.put("");
  if (const auto bits = convert(cell.step(), toByte, channel))
    cell.putText(getNotificationTypeNameFromNotificationTypeNum(*bits));
  if (const auto number = convert(cell.step(), toInteger16, channel))
    cell.putSortValue(Id{*number});
}

void fillDate(const Cell& cell) {
  const Value held = cell.record().value(cell.source);
  if (isEmpty(cell.step(), held)) return;
  const auto date = convert(cell.step(), toDateTime, held);
  if (!date) return;
  static const DateFormat shown("mmm d, yyyy");
  static const DateFormat sorted("yyyy/mm/dd");
  cell.putText(shown.text(*date));
  cell.putSortValue(sorted.text(*date));
}

void fillUser(const Cell& cell) {
  const Id user = cell.record().id(cell.source);
  if (user == noId) return;
  cell.put(cell.step().value(std::string{}, [&] { return clients().getUserNameFromID(user); }));
}

void fillAssigned(const Cell& cell) {
  const Row& record = cell.record();
  const Id entry = record.id("ScheduleIDNum");
  const Id task = record.id("TaskIDNum");
  const Id appointment = record.id("ApptIDNum");
  const Id docket = record.id("DocketIDNum");
  cell.put(getNotificationEmployeeAssignedFromNotificationIDs(entry, task, appointment, docket));
}

void fillTick(const Cell& cell) {
  const bool isSent = cell.record().flag(cell.source);
  cell.step().run(&Grid::put_cellChecked, cell.row.grid, cell.row.number, cell.column, isSent);
  cell.putSortValue(isSent ? -1 : 0);
}

void fillStatus(const Cell& cell) {
  constexpr std::array names{"Pending Send", "Sent", "Send Cancelled"};
  const Id status = cell.record().id(cell.source);
  if (status < enumNotificationSendStatus_NotSent || status > enumNotificationSendStatus_Cancelled)
    return;
  cell.putText(names[static_cast<std::size_t>(status - enumNotificationSendStatus_NotSent)]);
  cell.putSortValue(status);
}

void fillButton(const Cell& cell) {
  cell.putText(cell.source);
}

enum class When { always, ifVisible };
using enum When;

struct CellFiller {
  When when;
  void (*fill)(const Cell& cell);
  std::string_view source = {};
  std::int16_t code = 0;
};

// By column id. The fax of the default contact is that of the client.
constexpr std::array<CellFiller, list_column::count> cellFillers{{
    {always, fillKey, "ClientNotificationID"},
    {always, fillClientKey, "CompanyIDNum", enumAutoNotifyCompany},
    {always, fillClientKey, "ContactIDNum", enumAutoNotifyContact},
    {always, fillKey, "ScheduleIDNum"},
    {always, fillKey, "TaskIDNum"},
    {always, fillKey, "ApptIDNum"},
    {always, fillKey, "DocketIDNum"},
    {always, fillKey, "OperatingProcedureIDNum"},
    {ifVisible, fillInfo, {}, info_item::clientId},
    {ifVisible, fillClientName},
    {ifVisible, fillItemName},
    {always, fillChannel, "NotificationType"},
    {ifVisible, fillDate, "NotificationDate"},
    {ifVisible, fillDate, "DateCreated"},
    {ifVisible, fillUser, "CreatedByUserIDNum"},
    {ifVisible, fillAssigned},
    {ifVisible, fillInfo, {}, info_item::managingAccountant},
    {ifVisible, fillInfo, {}, info_item::supervisingPartner},
    {always, fillTick, "NotificationSent"},
    {ifVisible, fillStatus, "NotificationSentStatus"},
    {ifVisible, fillDate, "SentTime"},
    {ifVisible, fillUser, "SentByUserIDNum"},
    {ifVisible, fillInfo, {}, info_item::phone},
    {ifVisible, fillInfo, {}, info_item::fax},
    {ifVisible, fillInfo, {}, info_item::email},
    {ifVisible, fillInfo, {}, info_item::defaultContactName},
    {ifVisible, fillInfo, {}, info_item::defaultContactPhone},
    {ifVisible, fillInfo, {}, info_item::fax},
    {ifVisible, fillInfo, {}, info_item::defaultContactEmail},
    {always, fillButton, "Send Now"},
    {always, fillButton, "Cancel Send"},
    {always, fillButton, "View Info"},
}};

}  // namespace

RowClient clientOf(const Row& record) {
  RowClient client;
  if (const Id company = record.id("CompanyIDNum"); company >= 0)
    client = {enumAutoNotifyCompany, company};
  if (const Id contact = record.id("ContactIDNum"); contact >= 0)
    client = {enumAutoNotifyContact, contact};
  return client;
}

std::string infoItemOf(Step& step, const RowClient& client, std::int16_t item) {
  if (!client) return {};
  return step.value(std::string{}, [&] {
    if (client.type == enumAutoNotifyContact) return clients().getContactInfoItem(client.id, item);
    return clients().getCompanyInfoItem(client.id, item);
  });
}

void fillCell(const ListRow& row, Id column, bool isVisible) {
  if (column < 0 || column >= list_column::count) return;
  const CellFiller& filler = cellFillers[static_cast<std::size_t>(column)];
  if (filler.when == ifVisible && !isVisible) return;
  filler.fill({row, column, filler.source, filler.code});
}

}  // namespace autonotify
