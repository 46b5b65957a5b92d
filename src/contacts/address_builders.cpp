#include "contacts/address_records.h"
#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modAddressFormatting", name>;

std::string blockOf(const AddressRecord& record, const AddressParts& parts, bool includePerson,
                    bool asRTF) {
  return parts.hasContactLines() ? createAddressWithContactInfo(record, includePerson, asRTF)
                                 : createAddress(record, includePerson, asRTF);
}

}  // namespace

std::string createCompanyAddress(Id companyId, Id firmId, const AddressParts& parts,
                                 bool& includePerson, bool asRTF) {
  return procedure(tagOf<"createCompanyAddress">, std::string{}, [&](Step& step, auto& result) {
    AddressRecord record;
    readCompanyAddress(step, companyId, firmId, parts, includePerson, record);
    result = blockOf(record, parts, includePerson, asRTF);
  });
}

std::string createBusinessContactAddress(const AddressPerson& person, Id companyId,
                                         const AddressParts& parts, bool includeBusinessName,
                                         bool asRTF) {
  const auto compose = [&](Step& step, std::string& result) {
    AddressRecord record;
    readBusinessAddress(step, person, companyId, parts, includeBusinessName, record);
    result = blockOf(record, parts, true, asRTF);
  };
  return procedure(tagOf<"createBusinessContactAddress">, std::string{}, compose);
}

std::string createPersonalContactAddress(const AddressPerson& person, const AddressParts& parts,
                                         bool asRTF) {
  const auto compose = [&](Step& step, std::string& result) {
    AddressRecord record;
    readHomeAddress(step, person, parts, record);
    result = createAddressWithContactInfo(record, true, asRTF);
  };
  return procedure(tagOf<"createPersonalContactAddress">, std::string{}, compose);
}

}  // namespace autonotify
