#include <algorithm>

#include "host/demo/contact_details.h"
#include "host/demo/demo_world.h"
#include "host/demo/word_lists.h"

namespace autonotify::host::demo {

namespace {

constexpr std::string_view firmName = "Harbour & Pine LLP";
constexpr std::string_view firmDomain = "harbourpine.example";

struct Position {
  std::string_view title;
  int level;  ///< 1 has all rights, 5 the fewest
};
/// The first members of the staff take these in turn; all others the last one.
constexpr Position positions[] = {{"Partner", 1},      {"Partner", 1},    {"Manager", 2},
                                  {"Manager", 2},      {"Accountant", 3}, {"Accountant", 3},
                                  {"Receptionist", 5}, {"Bookkeeper", 4}, {"Junior Accountant", 3}};

void addFirm(DemoWorld& world) {
  Row row{{"CompanyName", std::string(firmName)},
          {"CorporateName", "Harbour & Pine Chartered Accountants LLP"},
          {"CompanyType", "Partnership"},
          {"IndustryType", "Accounting"},
          {"OfficeNumber", makePhone(world)},
          {"FaxNumber", makePhone(world)},
          {"Email", "office@" + std::string(firmDomain)},
          {"WebSite", "www." + std::string(firmDomain)},
          {"Custom1", "Established 1974"}};
  addAddress(row, plainAddress, makeAddress(world, false));
  world.firmId = world.sink.insertRow("AccountantFirmInfo", row);
}

void addStaffMember(DemoWorld& world, int number) {
  const Position& position =
      positions[std::min<std::size_t>(static_cast<std::size_t>(number), std::size(positions) - 1)];
  const Person person = makePerson(world);
  std::string name = person.displayName();
  // A name is what tasks are assigned to: no two may be alike.
  for (const StaffMember& other : world.staff)
    if (other.name == name) name += " (" + std::to_string(number) + ')';
  Row row{{"CompanyNum", world.firmId},
          {"DisplayName", name},
          {"FirstName", person.firstName},
          {"LastName", person.lastName},
          {"EmployeeType", std::string(position.title)},
          {"BusinessJobTitle", std::string(position.title)},
          {"UserLevel", position.level},
          {"BusinessName", std::string(firmName)},
          {"BusinessPhone_Main", makePhone(world)},
          {"BusinessPhone_Fax", makePhone(world)},
          {"BusinessEmail", mailWord(name) + '@' + std::string(firmDomain)},
          {"PersonalEmail", mailWord(name) + "@home.example"},
          {"HomePhone_Main", makePhone(world)}};
  addAddress(row, homeAddress, makeAddress(world, person.french));
  addAddress(row, businessAddress, makeAddress(world, false));
  const Id id = world.sink.insertRow("AccountantEmployeeInfo", row);
  world.staff.push_back({id, name});
  if (number % 2 == 0)
    world.sink.insert("UserGeneralSettings",
                      {{"UserIDNum", id},
                       {"WarningMessagesCancelAutoNotificationWarning", true},
                       {"ShowMVPreview", number % 4 == 0}});
}

}  // namespace

AddressBookCategories addCategories(RowSink& sink) {
  const auto add = [&](const char* name, Id parent, int code) {
    return sink.insert(
        "Categories",
        {{"CategoryNum", parent}, {"CategoryName", name}, {"CategorySpecialCode", code}});
  };
  const Id main = add("Address Book", noId, 1);
  const AddressBookCategories result{add("Business Clients", main, 2),
                                     add("Personal Tax Clients", main, 3)};
  add("Prospects", main, 0);
  add("Suppliers", main, 0);
  return result;
}

void addLabels(RowSink& sink, std::span<const Label> labels) {
  struct LabelSet {
    std::string_view table;
    std::vector<std::string_view> stems;
  };
  const LabelSet sets[] = {
      {"CustomFields",
       {"CustomName", "ApptCustomName", "TaskCustomName", "DocketCustomName", "RemittanceLabel"}},
      {"CustomAddressFields", {"CompanyLabel", "ContactLabel"}},
  };
  for (const LabelSet& set : sets) {
    std::vector<std::string> names;
    for (std::string_view stem : set.stems)
      for (char number = '1'; number <= '5'; ++number) names.push_back(std::string(stem) + number);
    Row row;
    for (const std::string& name : names) {
      const auto own = std::ranges::find(labels, name, &Label::column);
      row.push_back({name, own == labels.end() ? std::string("Custom ") + name.back()
                                               : std::string(own->text)});
    }
    sink.insertRow(set.table, row);
  }
  sink.insert("GlobalGeneralSettings", {{"DateStampShowTime", true}});
}

void addHolidays(RowSink& sink, const Region& region) {
  for (const Holiday& holiday : holidaysOf(region.holidaySet))
    sink.insert("Holidays",
                {{"HolidayDate", holiday.date}, {"HolidayType", 1}, {"HolidayName", holiday.name}});
}

void addFirmAndStaff(DemoWorld& world) {
  addFirm(world);
  for (int number = 0; number < world.options.staff; ++number) addStaffMember(world, number);
}

}  // namespace autonotify::host::demo
