#include "contacts/address_records.h"

namespace autonotify {

std::string createCompanyAddress(Id companyID, bool& includePerson, bool asRTF, Id firmID,
                                 bool includeAddress, bool includePhones, bool includeEmail) {
  return procedure("Morvane.exe-modAddressFormatting-createCompanyAddress", std::string{},
                   [&](Step& step, std::string& result) {
                     const AddressParts parts{includeAddress, includePhones, includeEmail};
                     AddressRecord record;
                     readCompanyAddress(step, companyID, firmID, parts, includePerson, record);
                     result = parts.hasContactLines()
                                  ? createAddressWithContactInfo(record, includePerson, asRTF)
                                  : createAddress(record, includePerson, asRTF);
                   });
}

std::string createBusinessContactAddress(Id contactID, bool asRTF, Id employeeID, Id companyID,
                                         bool includeAddress, bool includePhones, bool includeEmail,
                                         bool includeBusinessName) {
  return procedure("Morvane.exe-modAddressFormatting-createBusinessContactAddress", std::string{},
                   [&](Step& step, std::string& result) {
                     const AddressParts parts{includeAddress, includePhones, includeEmail};
                     AddressRecord record;
                     readBusinessAddress(step, {contactID, employeeID}, companyID, parts,
                                         includeBusinessName, record);
                     result = parts.hasContactLines()
                                  ? createAddressWithContactInfo(record, true, asRTF)
                                  : createAddress(record, true, asRTF);
                   });
}

std::string createPersonalContactAddress(Id contactID, bool asRTF, Id employeeID,
                                         bool includeAddress, bool includePhones,
                                         bool includeEmail) {
  return procedure("Morvane.exe-modAddressFormatting-createPersonalContactAddress", std::string{},
                   [&](Step& step, std::string& result) {
                     AddressRecord record;
                     readHomeAddress(step, {contactID, employeeID},
                                     {includeAddress, includePhones, includeEmail}, record);
                     result = createAddressWithContactInfo(record, true, asRTF);
                   });
}

}  // namespace autonotify
