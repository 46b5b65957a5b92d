#pragma once

#include <set>
#include <span>
#include <string>
#include <vector>

#include "host/demo/DemoFirm.h"
#include "host/demo/holidays.h"
#include "host/demo/random_source.h"
#include "host/demo/region.h"

namespace autonotify::host::demo {

using Row = std::vector<Field>;

inline Value textOrNull(const std::string& text) {
  return text.empty() ? Value() : Value(text);
}

struct StaffMember {
  Id id;
  std::string name;
};

/// A company or a person that the firm works for, as later steps need it.
struct Client {
  Id companyId = noId;     ///< -1 for a personal client
  Id clientDataId = noId;  ///< of a company
  Id contactId = noId;     ///< the default contact, or the person; -1 for a company without one
  std::string name;
  std::string contactName;
  std::string email, fax, phone;  ///< as a notification would find them; may be empty
  int accountant = 0;             ///< index into DemoWorld::staff
  int fiscalMonth = 12;
  bool lawFirm = false;

  bool isCompany() const { return companyId != noId; }
};

/// What the steps of the making share. The order of the steps is part of the result, since all draw
/// from one source of chance.
struct DemoWorld {
  RowSink& sink;
  const DemoOptions& options;
  const Region& region;
  RandomSource random;
  WorkCalendar calendar;
  Id firmId = noId;
  Id businessCategory = noId;
  Id personalCategory = noId;
  std::vector<StaffMember> staff{};
  std::set<std::string> companyNames{};
  std::vector<Client> clients{};  ///< persons, then companies

  DateTime today() const { return options.today.dateOnly(); }
};

// The steps, in order.
void addFirmAndStaff(DemoWorld& world);
void addPersonalClients(DemoWorld& world);
void addCompanies(DemoWorld& world);
void addTasks(DemoWorld& world);
void addDiary(DemoWorld& world);
void addBulkChoices(DemoWorld& world);

// Shared with an empty firm.
struct AddressBookCategories {
  Id business;
  Id personal;
};
AddressBookCategories addCategories(RowSink& sink);
struct Label {
  std::string_view column;
  std::string_view text;
};
/// Custom columns without a label of their own are called "Custom 1" and so on.
void addLabels(RowSink& sink, std::span<const Label> labels = {});
void addHolidays(RowSink& sink, const Region& region);
/// Every family's own row and its kinds, each with the text of its letter.
void addScheduleTypes(RowSink& sink, const Region& region);

/// A message to the client of a task, as a rich text.
std::string notificationText(const std::string& contactName, const std::string& taskName,
                             DateTime dueDate, const std::string& employee);

/// The end of the month that lies `months` after that of `date` (before it for a negative number).
DateTime monthEnd(DateTime date, int months);
/// That month's `day`, or its last one if it has fewer days.
DateTime dayOfMonth(DateTime date, int months, int day);

}  // namespace autonotify::host::demo
