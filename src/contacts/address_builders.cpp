#include "contacts/address_records.h"
#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tag = procedureTag<"modAddressFormatting", name>;

std::string blockOf(const AddressRecord& record, const AddressParts& parts, bool includePerson,
                    bool asRTF) {
  return parts.hasContactLines() ? createAddressWithContactInfo(record, includePerson, asRTF)
                                 : createAddress(record, includePerson, asRTF);
}

}  // namespace

std::string createCompanyAddress(Id companyID, bool& includePerson, bool asRTF, Id firmID,
                                 bool includeAddress, bool includePhones, bool includeEmail) {
  return procedure(tag<"createCompanyAddress">, std::string{}, [&](Step& step, auto& result) {
    const AddressParts parts{includeAddress, includePhones, includeEmail};
    AddressRecord record;
    readCompanyAddress(step, companyID, firmID, parts, includePerson, record);
    result = blockOf(record, parts, includePerson, asRTF);
  });
}

std::string createBusinessContactAddress(Id contactID, bool asRTF, Id employeeID, Id companyID,
                                         bool includeAddress, bool includePhones, bool includeEmail,
                                         bool includeBusinessName) {
  const auto compose = [&](Step& step, std::string& result) {
    const AddressParts parts{includeAddress, includePhones, includeEmail};
    AddressRecord record;
    readBusinessAddress(step, {contactID, employeeID}, companyID, parts, includeBusinessName,
                        record);
    result = blockOf(record, parts, true, asRTF);
  };
  return procedure(tag<"createBusinessContactAddress">, std::string{}, compose);
}

std::string createPersonalContactAddress(Id contactID, bool asRTF, Id employeeID,
                                         bool includeAddress, bool includePhones,
                                         bool includeEmail) {
  const auto compose = [&](Step& step, std::string& result) {
    const AddressParts parts{includeAddress, includePhones, includeEmail};
    AddressRecord record;
    readHomeAddress(step, {contactID, employeeID}, parts, record);
    result = createAddressWithContactInfo(record, true, asRTF);
  };
  return procedure(tag<"createPersonalContactAddress">, std::string{}, compose);
}

}  // namespace autonotify
