#include "host/demo/contact_details.h"

#include "host/demo/word_lists.h"
#include "platform/text.h"

namespace autonotify::host::demo {

namespace {

constexpr std::string_view postalLetters = "ABCEGHJKLMNPRSTVWXYZ";

std::string digits(RandomSource& random, int count) {
  std::string result;
  while (count-- > 0) result += static_cast<char>('0' + random.below(10));
  return result;
}

std::string postalCode(DemoWorld& world, const City& city) {
  std::string code(city.postalPrefix);
  if (!world.region.isCanada()) return code + digits(world.random, 2);
  code += ' ' + digits(world.random, 1);
  code += world.random.pick(postalLetters);
  return code + digits(world.random, 1);
}

struct PlainLetters {
  std::string_view accented;
  std::string_view plain;
};
constexpr PlainLetters plainLetters[] = {
    {"à", "a"}, {"â", "a"}, {"á", "a"}, {"ç", "c"}, {"é", "e"}, {"è", "e"}, {"ê", "e"}, {"ë", "e"},
    {"î", "i"}, {"ï", "i"}, {"ô", "o"}, {"ø", "o"}, {"û", "u"}, {"ü", "u"}, {"É", "e"}};

}  // namespace

const AddressColumns plainAddress{"Address",  "Address1",   "Address2", "City",
                                  "Province", "PostalCode", "Country"};
const AddressColumns homeAddress{"HomeAddress",  "HomeAddress1",   "HomeAddress2", "HomeCity",
                                 "HomeProvince", "HomePostalCode", "HomeCountry"};
const AddressColumns businessAddress{"BusinessAddress", "BusinessAddress1", "BusinessAddress2",
                                     "BusinessCity",    "BusinessProvince", "BusinessPostalCode",
                                     "BusinessCountry"};
const AddressColumns spouseAddress{"SpouseAddress", "SpouseAddress1", "SpouseAddress2",
                                   "SpouseCity",    "SpouseProvince", "SpousePostalCode",
                                   "SpouseCountry"};

Address makeAddress(DemoWorld& world, bool french) {
  RandomSource& random = world.random;
  const City& city = random.pick(citiesOf(world.region));
  const std::string number = std::to_string(random.between(1, 1999));
  const std::string street(random.pick(streetNames(french)));
  Address result;
  result.line1 = number + (french ? ", " : " ") + street;
  if (random.percent(25)) result.line2 = "Suite #" + std::to_string(random.between(100, 999));
  result.city = city.name;
  result.province = world.region.isCanada() ? world.region.province : city.state;
  result.postalCode = postalCode(world, city);
  result.country = world.region.country;
  return result;
}

void addAddress(Row& row, const AddressColumns& columns, const Address& address) {
  const std::string lines =
      address.line2.empty() ? address.line1 : address.line1 + "\r\n" + address.line2;
  row.insert(row.end(), {{columns.address, lines},
                         {columns.line1, address.line1},
                         {columns.line2, address.line2},
                         {columns.city, address.city},
                         {columns.province, address.province},
                         {columns.postalCode, address.postalCode},
                         {columns.country, address.country}});
}

std::string makePhone(DemoWorld& world) {
  const City& city = world.random.pick(citiesOf(world.region));
  return '(' + std::string(city.areaCode) + ") 555-01" + digits(world.random, 2);
}

std::string makeSocialNumber(DemoWorld& world) {
  std::string number = '0' + digits(world.random, 8);
  const bool canadian = world.region.isCanada();
  if (!canadian) number.replace(0, 3, "000");
  number.insert(canadian ? 6 : 5, 1, canadian ? ' ' : '-');
  return number.insert(3, 1, canadian ? ' ' : '-');
}

std::string makeNumber(DemoWorld& world, int count) {
  return "0000" + digits(world.random, count);
}

std::string mailWord(std::string_view text) {
  std::string plain(text);
  for (const PlainLetters& letter : plainLetters)
    plain = replaceAll(plain, letter.accented, letter.plain);
  std::string result;
  for (const char letter : lowerCase(plain)) {
    if ((letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9'))
      result += letter;
    else if (letter == ' ' && !result.empty() && result.back() != '.')
      result += '.';
  }
  if (!result.empty() && result.back() == '.') result.pop_back();
  return result;
}

std::string Person::displayName() const {
  const std::string initial = middleName.empty() ? "" : middleName.substr(0, 1) + ". ";
  return firstName + ' ' + initial + lastName;
}

Person makePerson(DemoWorld& world) {
  const FirstName& first = world.random.pick(firstNames());
  const std::string_view last = world.random.pick(lastNames(first.french));
  const std::string_view middle = world.random.pick(middleNames());
  return {std::string(first.text), std::string(middle), std::string(last), first.woman,
          first.french};
}

}  // namespace autonotify::host::demo
