#pragma once

#include "platform/Value.h"

// Summaries of a company's contact in rich text, for people who look at the company: the name in
// bold, then business phone, fax, cell and email, a line each.
//
// They are kept in `CompaniesNotes.ContactNotes` of the company, which the summaries own; notes
// that people write have columns of their own. The row is the host's: a company without one gets no
// summary. All procedures settle their failures at the error dialog, and do nothing when the
// database is closed or an id is below 0.

namespace autonotify {

/// Stores the contact's summary with the company, as seen from there: a contact that inherits from
/// its company shows the company's phone and fax in place of missing ones. The summary of a contact
/// of whom nothing is known is empty. Nothing happens for a contact that does not exist.
void saveContactBusinessRTF(Id contactID, Id companyID);

/// Stores the summary anew with every company whose default contact this contact may be. Call it
/// after a change of the contact.
void saveContactBusinessRTFForAllCompanies(Id contactID);

/// Stores the summary of the company's default contact, or that there is none.
void saveCompanyContactRTF(Id companyID);

/// Stores with the company that it has no default contact.
void saveNoDefaultComment(Id companyID);

}  // namespace autonotify
