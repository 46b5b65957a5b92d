#pragma once

#include "contract/rows.h"
#include "store/modNotificationLinks.h"

namespace autonotify {

/// Gives a new row what a fax starts with that no item stands behind: the firm as its sender; as
/// its recipient the company with its default contact, or the contact, whichever of the two the
/// client list knows first. A company without a default contact gives its name alone.
void fillBlankFax(Step& step, NewRow& row, const CompanyAndContactID& client);

}  // namespace autonotify
