#include "host/demo/people.h"
#include "host/demo/contact_details.h"
#include "host/demo/demo_world.h"
#include "host/demo/word_lists.h"

namespace autonotify::host::demo {

namespace {

DateTime makeBirthday(DemoWorld& world) {
  return DateTime::of(1938, 1, 1).addDays(world.random.below(61 * 365));
}

void addSpouse(DemoWorld& world, Row& row, const Person& person, const Address& home) {
  const Person spouse = makePerson(world);
  const std::string lastName = world.random.percent(50) ? person.lastName : spouse.lastName;
  row.insert(row.end(), {{"SpouseFirstName", spouse.firstName},
                         {"SpouseLastName", lastName},
                         {"SpouseName", spouse.firstName + ' ' + lastName},
                         {"SpouseEmail", mailWord(spouse.displayName()) + "@home.example"},
                         {"SpousePhone_Main", makePhone(world)},
                         {"SpouseGender", spouse.woman ? "Female" : "Male"},
                         {"SpouseBirthday", makeBirthday(world)},
                         {"SpouseSIN", makeSocialNumber(world)},
                         {"Anniversary", DateTime::of(world.random.between(1970, 2020), 6, 21)}});
  addAddress(row, spouseAddress, home);
}

void addPersonalDetails(DemoWorld& world, Row& row, const Person& person) {
  const Address home = makeAddress(world, person.french);
  const std::string_view marital = world.random.pick(maritalStatuses());
  row.insert(row.end(), {{"SocialInsuranceNumber", makeSocialNumber(world)},
                         {"Birthday", makeBirthday(world)},
                         {"MaritialStatus", std::string(marital)},
                         {"Children", std::to_string(world.random.below(4))}});
  addAddress(row, homeAddress, home);
  if (marital == "Married" || marital == "Common-law") addSpouse(world, row, person, home);
}

}  // namespace

Client addPerson(DemoWorld& world, const Row& more, int clientNumber) {
  RandomSource& random = world.random;
  const Person person = makePerson(world);
  Client client;
  client.name = client.contactName = person.displayName();
  client.accountant = random.below(static_cast<int>(world.staff.size()));
  client.phone = makePhone(world);
  const std::string mail = mailWord(person.displayName()) + std::to_string(random.between(10, 99));
  const std::string personalEmail = random.percent(85) ? mail + "@home.example" : "";
  const bool inherits = !more.empty();
  if (inherits && random.percent(80)) client.email = mail + "@work.example";
  if (random.percent(inherits ? 60 : 25)) client.fax = makePhone(world);
  Row row{{"DisplayName", client.name},
          {"NamePrefix", person.woman ? "Ms." : "Mr."},
          {"FirstName", person.firstName},
          {"MiddleName", textOrNull(person.middleName)},
          {"LastName", person.lastName},
          {"Gender", person.woman ? "Female" : "Male"},
          {"SpokenLanguage", person.french ? "French" : "English"},
          {"PartnerName", world.staff.front().name},
          {"AccountantName", world.staff[static_cast<std::size_t>(client.accountant)].name},
          {"BusinessEmail", textOrNull(client.email)},
          {"PersonalEmail", textOrNull(personalEmail)},
          {"BusinessPhone_Main", client.phone},
          {"BusinessPhone_Fax", textOrNull(client.fax)},
          {"HomePhone_Main", makePhone(world)},
          {"HomePhone_Cell", makePhone(world)}};
  if (clientNumber > 0) row.push_back({"ClientIDStr", "P-" + std::to_string(1000 + clientNumber)});
  row.insert(row.end(), more.begin(), more.end());
  addPersonalDetails(world, row, person);
  client.contactId = world.sink.insertRow("Contacts", row);
  if (client.email.empty()) client.email = personalEmail;
  return client;
}

void addPersonalClients(DemoWorld& world) {
  for (int number = 1; number <= world.options.contacts; ++number) {
    const Client client = addPerson(world, {}, number);
    world.sink.insert("ContactLinks", {{"ContactIDNum", client.contactId},
                                       {"CategoryNum", world.personalCategory},
                                       {"IsPersonalTaxCategory", true}});
    world.sink.insert("Clients", {{"ContactIDNum", client.contactId}});
    if (number > 1 && world.random.percent(8))
      world.sink.insert("ContactLinks", {{"ContactIDNum", client.contactId},
                                         {"ContactNum", world.random.pick(world.clients).contactId},
                                         {"FamilyRelationship", "Relative"}});
    const bool hasNote = world.random.percent(30);
    world.sink.insert(
        "ContactsNotes",
        {{"ContactNum", client.contactId},
         {"Notes", hasNote ? Value(std::string(world.random.pick(clientNotes()))) : Value()}});
    world.clients.push_back(client);
  }
}

}  // namespace autonotify::host::demo
