#include "host/desk/work/channel_outlook.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

#include "host/desk/rows/channel_names.h"
#include "host/desk/work/claiming.h"
#include "host/desk/work/client_card.h"

namespace autonotify::host {
namespace {

struct ChannelRecipients {
  notifyType channel;
  RecipientKind kind;
};
/// A letter's recipient is not chosen.
constexpr ChannelRecipients recipients[] = {{nt_Email, RecipientKind::email},
                                            {nt_Fax, RecipientKind::fax},
                                            {nt_Phone, RecipientKind::phone}};

constexpr const char* officeColumns[] = {"Address"};
constexpr const char* personalColumns[] = {"BusinessAddress", "HomeAddress"};

/// Where a letter would go.
struct PostalAddress {
  enumAutoNotifyClientType of;
  const char* statement;
  std::span<const char* const> columns;
};
constexpr PostalAddress postalAddresses[] = {
    {enumAutoNotifyCompany,
     "SELECT Companies.Address FROM Companies WHERE CompanyID=", officeColumns},
    {enumAutoNotifyContact,
     "SELECT Contacts.BusinessAddress, Contacts.HomeAddress FROM Contacts WHERE ContactID=",
     personalColumns},
};

bool hasPostalAddress(Desk& desk, const Client& client) {
  const PostalAddress& place = *std::ranges::find(postalAddresses, client.type, &PostalAddress::of);
  bool isKnown = false;
  firstRow(desk.database(), fmt::format("{}{};", place.statement, client.id), [&](const Row& row) {
    isKnown = std::ranges::any_of(place.columns,
                                  [&](const char* column) { return !row.text(column).empty(); });
  });
  return isKnown;
}

/// Emails are offered to the firm's staff too: there only a client's own address is proposed.
bool leadsToClient(const RecipientOffer& offer, notifyType channel) {
  return channel == nt_Email ? offer.likeliest >= 0 : !offer.texts.empty();
}

Outcome<bool> hasAddress(Desk& desk, const Client& client, notifyType channel) {
  const ChannelRecipients* row = findChannel(recipients, channel);
  if (!row) return hasPostalAddress(desk, client);
  const auto offer = listRecipients(desk, client, row->kind);
  if (!offer) return offer.refused();
  return leadsToClient(*offer, channel);
}

bool waits(const Notification& row) {
  return stateOf(row) == NotificationState::pending;
}

std::optional<Notification> chiefRow(const std::vector<Notification>& rows, notifyType channel) {
  std::optional<Notification> chief;
  for (const Notification& row : rows) {
    if (row.channel == channel && (!chief || !waits(*chief) || waits(row))) chief = row;
  }
  return chief;
}

}  // namespace

Outcome<std::vector<ChannelOutlook>> readChannelOutlook(Desk& desk, Id id) {
  const auto task = requireTask(desk, id);
  if (!task) return task.refused();
  const std::vector<Notification> rows = readNotificationsOf(desk, id).rows;
  const Client client = clientOf(desk, *task);
  std::vector<ChannelOutlook> outlook;
  for (const notifyType channel : allNotifyTypes) {
    const auto known = hasAddress(desk, client, channel);
    if (!known) return known.refused();
    outlook.push_back({channel, chiefRow(rows, channel), *known});
  }
  return outlook;
}

}  // namespace autonotify::host
