#include "host/demo/DemoFirm.h"

#include "host/demo/demo_schedule_kinds.h"
#include "host/demo/demo_world.h"

namespace autonotify::host {

namespace demo {

void addScheduleTypes(RowSink& sink, const Region& region) {
  int number = 0;
  const auto add = [&](int totalNum, int scheduleNum, std::string_view name,
                       std::string_view abbreviation, int period, Letter letter) {
    sink.insert("ScheduleTypes", {{"ScheduleTypeNum", ++number},
                                  {"TotalNum", totalNum},
                                  {"ScheduleNum", scheduleNum},
                                  {"ScheduleTypeName", inRegion(name, region)},
                                  {"ShortAbbreviation", inRegion(abbreviation, region)},
                                  {"NotificationComment", letterTemplate(letter, region)},
                                  {"NotificationPeriod", period}});
  };
  for (const ScheduleFamily& family : scheduleFamilies()) {
    add(family.totalNum, familyScheduleNum, family.name, family.abbreviation, 15, Letter::general);
    for (const auto kinds : {businessKinds(), personalKinds()})
      for (const ScheduleKind& kind : kinds)
        if (kind.totalNum == family.totalNum)
          add(kind.totalNum, kind.scheduleNum, kind.name, family.abbreviation, kind.period,
              kind.letter);
  }
}

}  // namespace demo

namespace {

constexpr demo::Label ownLabels[] = {
    {"CustomName1", "Client Grade:"},        {"RemittanceLabel1", "Reference:"},
    {"RemittanceLabel2", "Payment Method:"}, {"TaskCustomName1", "Meeting Room"},
    {"CompanyLabel1", "Referred By:"},       {"ContactLabel1", "Nickname:"}};

}  // namespace

void makeDemoFirm(RowSink& sink, const DemoOptions& options) {
  const demo::Region& region = demo::regionOf(options.country, options.province);
  demo::DemoWorld world{sink, options, region, demo::RandomSource(options.seed),
                        demo::WorkCalendar(demo::holidaysOf(region.holidaySet))};
  sink.begin();
  demo::addHolidays(sink, region);
  demo::addLabels(sink, ownLabels);
  demo::addScheduleTypes(sink, region);
  const demo::AddressBookCategories categories = demo::addCategories(sink);
  world.businessCategory = categories.business;
  world.personalCategory = categories.personal;
  for (auto step : {demo::addFirmAndStaff, demo::addPersonalClients, demo::addCompanies,
                    demo::addTasks, demo::addDiary, demo::addBulkChoices})
    step(world);
  sink.commit();
}

void seedEssentials(RowSink& sink, const FirmSetup& setup) {
  const demo::Region& region = demo::regionOf(setup.country, setup.province);
  sink.begin();
  demo::addHolidays(sink, region);
  demo::addLabels(sink);
  demo::addScheduleTypes(sink, region);
  demo::addCategories(sink);
  const Id firm = sink.insert("AccountantFirmInfo", {{"CompanyName", setup.firmName},
                                                     {"Province", std::string(region.province)},
                                                     {"Country", std::string(region.country)}});
  sink.insert("AccountantEmployeeInfo", {{"CompanyNum", firm},
                                         {"DisplayName", setup.userName},
                                         {"UserLevel", 1},
                                         {"BusinessName", setup.firmName}});
  sink.commit();
}

}  // namespace autonotify::host
