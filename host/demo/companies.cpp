#include "host/demo/contact_details.h"
#include "host/demo/demo_world.h"
#include "host/demo/people.h"
#include "host/demo/word_lists.h"

namespace autonotify::host::demo {

namespace {

struct Company {
  Client client;
  const Industry* industry;
  std::string domain;
  Address address;
  std::vector<Client> people;
  bool hasDefault = false;
};

std::string makeName(RandomSource& random, const Industry& industry) {
  const std::string first(random.percent(60) ? random.pick(placeWords())
                                             : random.pick(lastNames(random.percent(40))));
  return first + ' ' + std::string(industry.trade) + ' ' +
         std::string(random.pick(companyEndings()));
}

/// A name that no other company has: clients are also looked up by name.
std::string companyName(DemoWorld& world, int number, const Industry& industry) {
  const auto awkward = awkwardCompanyNames();
  const std::size_t turn = static_cast<std::size_t>(number) / 20;
  std::string name = number % 20 == 7 && turn < awkward.size() ? std::string(awkward[turn])
                                                               : makeName(world.random, industry);
  for (int tries = 0; !world.companyNames.insert(name).second; ++tries)
    name = makeName(world.random, industry) + (tries < 20 ? "" : " #" + std::to_string(number));
  return name;
}

/// The company that a subsidiary belongs to; -1 for most.
Id chooseParent(DemoWorld& world) {
  const Client* last = world.clients.empty() ? nullptr : &world.clients.back();
  return last && last->isCompany() && world.random.percent(5) ? last->companyId : noId;
}

/// Zero to three people; the first is the one to write to, save in a few companies.
void addPeople(DemoWorld& world, Company& company) {
  const int count = world.random.percent(3) ? 0 : world.random.between(1, 3);
  company.hasDefault = count > 0 && !world.random.percent(5);
  for (int number = 0; number < count; ++number) {
    Row business{{"BusinessName", company.client.name},
                 {"BusinessJobTitle", std::string(world.random.pick(jobTitles()))},
                 {"InheritCompanyInfo", world.random.percent(70)},
                 {"PercentageOwnership", number == 0 ? "100" : "0"}};
    addAddress(business, businessAddress, company.address);
    company.people.push_back(addPerson(world, business, 0));
  }
}

Company makeCompany(DemoWorld& world, int number) {
  RandomSource& random = world.random;
  Company company;
  company.industry = &random.pick(industries());
  Client& client = company.client;
  client.name = companyName(world, number, *company.industry);
  client.lawFirm = company.industry->trade == "Law";
  client.fiscalMonth = random.percent(60) ? 12 : random.between(1, 11);
  client.accountant = random.below(static_cast<int>(world.staff.size()));
  company.domain = mailWord(client.name) + ".example";
  if (random.percent(90)) client.email = "info@" + company.domain;
  if (random.percent(75)) client.fax = makePhone(world);
  client.phone = makePhone(world);
  company.address = makeAddress(world, world.region.code == provinceQuebec);
  return company;
}

void insertCompany(DemoWorld& world, int number, Company& company) {
  Client& client = company.client;
  const std::string corporateName = std::to_string(100000 + number) +
                                    (world.region.isCanada() ? " Canada Inc." : " Holdings Inc.");
  Row row{{"CategoryNum", world.businessCategory},
          {"CompanyNum", chooseParent(world)},
          {"CompanyName", client.name},
          {"CorporateName", corporateName},
          {"ClientIDStr", "B-" + std::to_string(1000 + number)},
          {"CompanyType", client.lawFirm ? "Partnership" : "Corporation"},
          {"IndustryType", std::string(company.industry->name)},
          {"OfficeNumber", client.phone},
          {"FaxNumber", textOrNull(client.fax)},
          {"Email", textOrNull(client.email)},
          {"WebSite", "www." + company.domain},
          {"PartnerName", world.staff.front().name},
          {"AccountantName", world.staff[static_cast<std::size_t>(client.accountant)].name},
          {"Custom1", world.random.percent(20) ? Value("A client of ours") : Value()}};
  addAddress(row, plainAddress, company.address);
  if (company.hasDefault) {
    const Client& contact = company.people.front();
    row.insert(row.end(), {{"DefaultContactName", contact.name},
                           {"DefaultContactPhoneNumber", contact.phone},
                           {"DefaultContactFaxNumber", textOrNull(contact.fax)},
                           {"DefaultContactEmail", textOrNull(contact.email)}});
  }
  client.companyId = world.sink.insertRow("Companies", row);
}

void linkPeople(DemoWorld& world, Company& company) {
  for (const Client& person : company.people)
    world.sink.insert("ContactLinks", {{"ContactIDNum", person.contactId},
                                       {"CompanyNum", company.client.companyId},
                                       {"DefaultContact",
                                        company.hasDefault && &person == &company.people.front()}});
  if (!company.hasDefault) return;
  const Client& contact = company.people.front();
  company.client.contactId = contact.contactId;
  company.client.contactName = contact.name;
  if (!contact.email.empty()) company.client.email = contact.email;
  if (!contact.fax.empty()) company.client.fax = contact.fax;
  company.client.phone = contact.phone;
}

void addNotes(DemoWorld& world, const Client& client) {
  const Value note =
      textOrNull(std::string(world.random.percent(40) ? world.random.pick(clientNotes()) : ""));
  world.sink.insert("CompaniesNotes", {{"CompanyNum", client.companyId},
                                       {"ComapnyNum", client.companyId},
                                       {"Notes", note},
                                       {"BusinessNotes", note}});
}

void addSoftware(DemoWorld& world, const Client& client) {
  if (!world.random.percent(60)) return;
  const Software& software = world.random.pick(softwarePackages());
  world.sink.insert("SoftwareInfo",
                    {{"CompanyIDNum", client.companyId},
                     {"CompanyID", client.companyId},
                     {"DefaultSoftware", true},
                     {"SoftwareName", std::string(software.name)},
                     {"SoftwareVersion", std::string(software.version)},
                     {"SoftwareSerialNumber", makeNumber(world, 6)},
                     {"SoftwareAccountNumber", makeNumber(world, 4)},
                     {"FileSavedAs", mailWord(client.name) + std::string(software.fileEnding)},
                     {"UserName", "admin"}});
}

void addCanadianAccounts(DemoWorld& world, const Client& client, DateTime yearEnd) {
  RandomSource& random = world.random;
  const std::string number = makeNumber(world, 5);
  const Id id = client.clientDataId;
  world.sink.insert("AccountingServices", {{"AccountingServiceID", id},
                                           {"BusinessNumber", number},
                                           {"RC59Permission", random.between(0, 2)},
                                           {"RC59Status", random.between(0, 3)},
                                           {"GSTNumber", number + " RT0001"},
                                           {"GSTFilingMethod", random.between(1, 3)},
                                           {"PSTNumber", makeNumber(world, 4)},
                                           {"PayrollNumber", number + " RP0001"},
                                           {"PayrollRegisteredAs", client.name},
                                           {"YearEndDate", yearEnd},
                                           {"FinancialStatements", random.between(1, 5)}});
  world.sink.insert("CorpTaxInfo", {{"CorpTaxInfoID", id},
                                    {"FederalCorpNumber", number + " RC0001"},
                                    {"ONCorpNumber", makeNumber(world, 3)},
                                    {"MCBS", makeNumber(world, 4)},
                                    {"IncorporationDate", yearEnd.addDays(-365 * 12)},
                                    {"CorporationType", random.between(0, 1)},
                                    {"CorporationLevel", random.between(1, 2)}});
  world.sink.insert("WSIB_EHTInfo", {{"WSIB_EHTInfoID", id},
                                     {"WSIBNumber", makeNumber(world, 3)},
                                     {"WSIBFirmNumber", makeNumber(world, 4)},
                                     {"WSIBPremiumRate", "1.37"},
                                     {"Coverage", "All employees"},
                                     {"EHTNumber", makeNumber(world, 5)},
                                     {"EHTPremiumRate", "0.98"}});
  world.sink.insert("LawInfo", {{"LawInfoID", id},
                                {"LawSocietyMemberNumber",
                                 client.lawFirm ? Value(makeNumber(world, 2)) : Value()}});
  world.sink.insert("OtherInfo", {{"OtherInfoID", id}, {"NameRenewalDate", yearEnd.addDays(500)}});
}

void addAmericanAccounts(DemoWorld& world, const Client& client, DateTime yearEnd) {
  const Id id = client.clientDataId;
  world.sink.insert("AccountingServices", {{"AccountingServiceID", id}, {"YearEndDate", yearEnd}});
  world.sink.insert("ClientUSInfo", {{"ClientUSInfoID", id},
                                     {"EIN", "00-" + makeNumber(world, 3)},
                                     {"SellersPermitNum", makeNumber(world, 4)},
                                     {"USYearEndDate", yearEnd},
                                     {"SoSFileNum", makeNumber(world, 4)},
                                     {"USIncorporationDate", yearEnd.addDays(-365 * 12)},
                                     {"PropertyTaxNum", makeNumber(world, 4)}});
}

void addAccounts(DemoWorld& world, Client& client) {
  const bool active = !world.random.percent(4);
  client.clientDataId = world.sink.insert(
      "ClientData", {{"CompanyIDNum", client.companyId},
                     {"ShowThisClient", true},
                     {"ActiveStatus", active ? 1 : 2},
                     {"ClientCustom1", world.random.percent(15) ? Value("VIP") : Value()}});
  world.sink.insert("ClientOptions", {{"ClientOptionID", client.clientDataId}});
  world.sink.insert("Clients", {{"CompanyIDNum", client.companyId}});
  const DateTime january = DateTime::of(world.today().year() - 1, 1, 1);
  const DateTime yearEnd = monthEnd(january, client.fiscalMonth - 1);
  world.region.isCanada() ? addCanadianAccounts(world, client, yearEnd)
                          : addAmericanAccounts(world, client, yearEnd);
}

}  // namespace

void addCompanies(DemoWorld& world) {
  for (int number = 1; number <= world.options.companies; ++number) {
    Company company = makeCompany(world, number);
    addPeople(world, company);
    insertCompany(world, number, company);
    linkPeople(world, company);
    addNotes(world, company.client);
    addSoftware(world, company.client);
    addAccounts(world, company.client);
    world.clients.push_back(company.client);
  }
}

}  // namespace autonotify::host::demo
