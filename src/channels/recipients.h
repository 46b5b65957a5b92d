#pragma once

#include <string>
#include <utility>
#include <vector>

#include "channels/modChannelNotifications.h"
#include "contract/rows.h"

namespace autonotify {

/// The client of a schedule entry: its company if the client list knows it as one, otherwise its
/// contact if the list knows that, otherwise nobody.
NotificationClient clientOfScheduleEntry(Step& step, Id scheduleId);

/// The texts of a channel's columns, in the order in which they are written.
using ChannelFields = std::vector<std::pair<const char*, std::string>>;

// What a channel's row says about its recipient (and, for a fax, its sender). A fallback number or
// address of the company serves as told with each; fax and phone fall back only behind a default
// contact.
//
// For a client who is neither company nor contact the first three open an empty statement, which
// the database refuses.

/// To: the address of the person; for a company without one, the company's own.
ChannelFields emailFields(Step& step, const NotificationClient& client);
/// To, From, both fax numbers and the number of pages.
ChannelFields faxFields(Step& step, const NotificationClient& client);
/// To and the number to call.
ChannelFields phoneFields(Step& step, const NotificationClient& client);
/// To, as the client list knows it, without a look into the database.
ChannelFields listedEmailFields(Step& step, const NotificationClient& client);

// The same for a diary item whose clients are `given`. The first of them that the client list knows
// counts; for nobody the recipient stays empty. A contact is reached at home rather than at work.
ChannelFields itemEmailFields(Step& step, const NotificationClient& given);
ChannelFields itemFaxFields(Step& step, const NotificationClient& given);
ChannelFields itemPhoneFields(Step& step, const NotificationClient& given);

/// Nothing: a letter carries all in its text.
ChannelFields letterFields(Step& step, const NotificationClient& client);

}  // namespace autonotify
