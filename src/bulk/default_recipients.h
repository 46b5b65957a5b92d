#pragma once

#include <string>

#include "bulk/bulk_choice.h"
#include "contract/procedure.h"

namespace autonotify {

/// Who hears of a client's tasks unless a person says otherwise; empty texts are not known.
struct DefaultRecipients {
  std::string email, fax, faxName, phone, phoneName;
};

/// A contact, or a company by its default contact, is reached at work; a company without one, or
/// with one who is not reached there, by what it has itself. Requires: the client has its id.
DefaultRecipients findDefaultRecipients(Step& step, const BulkClient& client);

}  // namespace autonotify
