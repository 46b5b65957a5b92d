#include "contacts/modAddressFormatting.h"
#include "contract/windows.h"
#include "store/modNotificationLinks.h"
#include "wizards/NotificationComposer.h"

namespace autonotify {

void NotificationComposer::changeAddress(Step& step) {
  step.run(&Control::setFocus, rtbText);
  if (isCompany(step, companyID_)) return putBusinessAddress(step, companyID_);
  if (isContact(step, contactID_)) {
    return putPersonalAddress(step, contactID_, !channel_.asksClientList);
  }
  const int clientType = getClientTypeFromNotificationID(notifyID_);
  if (clientType == enumAutoNotifyCompany) {
    putBusinessAddress(step, getCompanyIDFromAutoNotificationID(notifyID_));
  } else if (clientType == enumAutoNotifyContact) {
    putPersonalAddress(step, getContactIDFromAutoNotificationID(notifyID_), false);
  }
}

bool NotificationComposer::isCompany(Step& step, Id id) const {
  if (!channel_.asksClientList) return id >= 1;
  return step.holds([&] { return clients().isCompanyClient(id); });
}

bool NotificationComposer::isContact(Step& step, Id id) const {
  if (!channel_.asksClientList) return id >= 1;
  return step.holds([&] { return clients().isContactClient(id); });
}

/// A message that goes at once bears today's date, a later one the date on which it goes, once that
/// is known.
DateTime NotificationComposer::addressDate(Step& step) const {
  const DateTime date = notificationDate.date();
  if (notificationDate.picNotificationDate.visible() && !date.isZero()) return date;
  return step.value(date, [] { return platformClock().today(); });
}

HeadingParts NotificationComposer::headingParts(Step& step) const {
  const DateTime date = addressDate(step);
  return {.date = channel_.addressHasDate ? std::optional(date) : std::nullopt};
}

void NotificationComposer::putBusinessAddress(Step& step, Id id) {
  const auto put = chkAddAddress.value() ? insertBusinessAddress : removeBusinessAddress;
  put(rtbText, id, headingParts(step));
}

/// Where nothing is taken out, unticking puts the address in a second time, as staff know it.
void NotificationComposer::putPersonalAddress(Step& step, Id id, bool canTakeOut) {
  const bool takesOut = canTakeOut && !chkAddAddress.value();
  const auto put = takesOut ? removeContactPersonalAddress : insertContactPersonalAddress;
  put(rtbText, id, headingParts(step));
}

}  // namespace autonotify
