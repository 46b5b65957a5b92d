#pragma once

#include <string>
#include <vector>

#include "contract/enumerations.h"
#include "platform/Value.h"

namespace autonotify {

/// Which address block is wanted.
struct AddressWish {
  /// enumAutoNotifyCompany or enumAutoNotifyContact.
  enumAutoNotifyClientType clientType = enumAutoNotifyNone;
  Id id = noId;
  /// Of a contact at work: the company that it may inherit from, -1 for none.
  Id companyId = noId;
  /// Of a contact at home rather than at work.
  bool home = false;
  bool asRTF = false;
  bool phones = false;
  bool email = false;
};

enum class RecipientKind { email, fax, phone, name };

/// What a person may choose a recipient from.
struct RecipientOffer {
  std::vector<std::string> texts;
  /// Position of the text that is proposed, -1 for none.
  int likeliest = -1;
};

}  // namespace autonotify
