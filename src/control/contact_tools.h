#pragma once

#include "contract/contact_lists.h"

namespace autonotify {

// What clsNotificationTools tells and changes of contacts; see there.

std::string composeAddress(const AddressWish& wish);
RecipientOffer listRecipients(enumAutoNotifyClientType clientType, Id clientId, RecipientKind kind);
bool setDefaultContact(Id companyID, Id contactID);

}  // namespace autonotify
