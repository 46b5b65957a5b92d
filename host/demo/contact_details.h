#pragma once

#include <string>

#include "host/demo/demo_world.h"

/// Addresses and numbers that look right and lead nowhere.
namespace autonotify::host::demo {

struct Address {
  std::string line1, line2;
  std::string city, province, postalCode, country;
};

Address makeAddress(DemoWorld& world, bool french);
/// Where an address goes; the names of its columns.
struct AddressColumns {
  std::string_view address, line1, line2, city, province, postalCode, country;
};
extern const AddressColumns plainAddress, homeAddress, businessAddress, spouseAddress;
void addAddress(Row& row, const AddressColumns& columns, const Address& address);

/// In the exchange 555-01xx, which is kept for fiction.
std::string makePhone(DemoWorld& world);
/// A social insurance or social security number; it begins with 0, as no real one does.
std::string makeSocialNumber(DemoWorld& world);
/// `count` digits behind four zeros.
std::string makeNumber(DemoWorld& world, int count);

/// The text as part of a mail address: lower-case ASCII letters and digits, dots between words.
std::string mailWord(std::string_view text);

struct Person {
  std::string firstName, middleName, lastName;  ///< the middle one is empty for most
  bool woman = false;
  bool french = false;
  /// First name, initial, last name.
  std::string displayName() const;
};
Person makePerson(DemoWorld& world);

}  // namespace autonotify::host::demo
