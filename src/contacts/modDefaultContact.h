#pragma once

#include "platform/Value.h"

// The default contact of a company: the one contact whom the company's notifications go to.
//
// It is a link of a contact to the company whose `DefaultContact` is set. Where a host has left
// several of them, the first one found counts. All procedures settle their failures at the error
// dialog, and do nothing when the database is closed or an id is below 0.

namespace autonotify {

/// The company's default contact, or -1. `exceptContactID` is passed over; -1 passes over nobody.
Id checkForDefaultContact(Id companyID, Id exceptContactID);

/// Makes the contact the company's only default one and refreshes what the company tells of it.
/// False, with nothing written, when the contact is not linked to the company. The new default is
/// set before the old ones are cleared, so that a crash between leaves the company with one.
bool setContactAsDefault(Id companyID, Id contactID);

/// Leaves the company without a default contact and clears what it tells of one.
void setNoContactAsDefault(Id companyID);

/// Writes name, phone, fax and email of the default contact into the company's own columns,
/// business numbers before those at home, and empty texts when there is none; `PortalChangedFlag`
/// is set ahead of them. Call it also after a change of the contact's own data.
void updateDefaultContactInfo(Id companyID);

}  // namespace autonotify
