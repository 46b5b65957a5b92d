#pragma once

#include <optional>

#include "contacts/modAddressFormatting.h"
#include "contract/procedure.h"

// Reading address records. Each function is made of statements of the caller's frame.

namespace autonotify {

/// The name that a contact goes by; empty when there is no such contact.
std::optional<std::string> readDisplayName(Step& step, Id contactId);

/// See createCompanyAddress.
void readCompanyAddress(Step& step, Id companyId, Id firmId, const AddressParts& parts,
                        bool& includePerson, AddressRecord& record);

/// See createBusinessContactAddress. The name of the person is read whatever the parts. False
/// without such a person.
bool readBusinessAddress(Step& step, const AddressPerson& person, Id companyId,
                         const AddressParts& parts, bool includeBusinessName,
                         AddressRecord& record);

/// See createPersonalContactAddress.
void readHomeAddress(Step& step, const AddressPerson& person, const AddressParts& parts,
                     AddressRecord& record);

}  // namespace autonotify
