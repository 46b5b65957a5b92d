#include "host/desk/rows/client_names.h"

namespace autonotify::host {

std::string clientName(Desk& desk, Id companyId, Id contactId) {
  if (companyId > 0) return desk.clients().getCompanyDisplayName(companyId);
  if (contactId >= 0) return desk.clients().getContactDisplayName(contactId);
  return {};
}

}  // namespace autonotify::host
